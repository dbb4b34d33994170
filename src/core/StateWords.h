#pragma once

#include <QString>

// A printer's state as vigilctl prints it: "good", "no answer", ...; "unknown" for a number
// no driver gives.
QString StateWord(qint32 state);
