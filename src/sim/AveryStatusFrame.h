#pragma once

#include "sim/AverySettings.h"

#include <QByteArray>

// The status frame, short or long as the settings' layout is:
//   "S" code "A" unread flag format "M" labels "F" free "K" version
// The code and the numbers are zero-padded in front to their fields, a number too large for
// its field is sent as the largest it holds, and the version is padded with blanks behind.
namespace AveryStatusFrame {
QByteArray build(const AverySettings& settings, int format, qint64 labels);
} // namespace AveryStatusFrame
