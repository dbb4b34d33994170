#pragma once

#include "core/ErrorState.h"

#include <QString>

// A printer's trouble, as an operator is told about it.
struct TroubleNotice
{
    QString printerId;
    QString printer;
    QString group;
    ErrorState state = StateFault;
    // The printer's highest alert; empty when it has none.
    QString alert;
    // A sound to play with the notice; empty for none.
    QString soundFile;

    // "Coder 3: fault"
    QString summary() const;
    // "Line 1\nInk out"
    QString body() const;
};
