#pragma once

#include <QtGlobal>

// The states a printer or group can be in, worst last but for "disabled", which outranks
// them all when states are compared.
enum ErrorState : qint32 {
    StateNoAnswer = 0,
    StateGood = 1,
    StateWarning = 2,
    StateFault = 3,
    StatePortBusy = 4,
    StateDisabled = 5,
};
