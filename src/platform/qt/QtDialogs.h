#pragma once

#include "services/IDialogs.h"

// The system's boxes as modal message boxes over the control's window. A box runs its own
// event loop, so timers and queue events go on while the user reads it.
class QtDialogs : public IDialogs
{
public:
    Answer show(const Box& box) override;
};
