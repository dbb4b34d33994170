#pragma once

#include "sim/SimKnobs.h"

#include <QByteArray>
#include <QString>

// Knob readers that several kinds need beyond SimKnobs' own. Like SimKnobs, they name the
// first bad knob in `error` and give the default back for it.
namespace SimKnobReaders {
void refuse(QString& error, const QString& name, const QString& what);
// Printable ASCII of `shortest` to `longest` characters: the wire carries one byte per
// character, and a control byte would cut a reply short.
QByteArray text(const SimKnobs& knobs, const QString& name, const QString& defaultText,
                qsizetype shortest, qsizetype longest, QString& error);
} // namespace SimKnobReaders
