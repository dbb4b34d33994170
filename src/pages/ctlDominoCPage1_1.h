#pragma once

#include "drivers/clsDominoHandlerC.h"
#include "pages/PrinterPage.h"

class QCheckBox;
class QComboBox;
class QLabel;

// The "interface set-up" tab of a C-series coder: where its photocell sits and whether it
// counts by a shaft encoder, as the coder reports them.
class ctlDominoCPage1_1 : public HandlerPage<clsDominoHandlerC>
{
    Q_OBJECT

public:
    explicit ctlDominoCPage1_1(QWidget* parent = nullptr);

    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

private:
    QLabel* m_lblPhotocell;
    QComboBox* m_cboPhotocell;
    QCheckBox* m_chkShaft;
};
