#pragma once

#include "drivers/clsDominoHandlerA.h"
#include "pages/CommandTestPage.h"

// The engineer tab of an A-series printer: the way into the command test console.
class ctlDominoAPage2 : public CommandTestPage<clsDominoHandlerA>
{
    Q_OBJECT

public:
    explicit ctlDominoAPage2(QWidget* parent = nullptr);
};
