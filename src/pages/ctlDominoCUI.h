#pragma once

#include "pages/DominoFrame.h"

class ctlGeneralCSeriesPage;

// The frame of a C-series coder: eight tabs, from its general page to the console's.
// Its apply and cancel buttons have nothing to apply: they stay disabled.
class ctlDominoCUI : public DominoFrame
{
    Q_OBJECT

public:
    explicit ctlDominoCUI(QWidget* parent = nullptr);

private:
    void refreshGeneralPage(ComponentHandler& handler) override;

    ctlGeneralCSeriesPage* m_generalPage;
};
