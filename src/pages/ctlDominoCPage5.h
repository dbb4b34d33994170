#pragma once

#include "drivers/clsDominoHandlerC.h"
#include "pages/CommandTestPage.h"

// The secure tab of a C-series coder: the way into the command test console.
class ctlDominoCPage5 : public CommandTestPage<clsDominoHandlerC>
{
    Q_OBJECT

public:
    explicit ctlDominoCPage5(QWidget* parent = nullptr);
};
