#pragma once

#include "pages/DominoFrame.h"

class ctlDominoAPage1;
class ctlGeneralPage;

// The frame of an A-series coder: five tabs, and apply and cancel for the one page with
// something to apply, the printer's clock.
class ctlDominoAUI : public DominoFrame
{
    Q_OBJECT

public:
    explicit ctlDominoAUI(QWidget* parent = nullptr);

    // Apply and cancel are enabled while the properties page holds a change.
    Q_INVOKABLE void CheckApply();

private:
    void refreshGeneralPage(ComponentHandler& handler) override;
    void statusChanged() override { CheckApply(); }
    void cmdApply_Click();
    void cmdCancel_Click();

    ctlGeneralPage* m_generalPage;
    ctlDominoAPage1* m_propertiesPage;
};
