#pragma once

#include "drivers/clsDominoHandlerA.h"
#include "pages/PrinterPage.h"

class QGroupBox;
class QLabel;
class QLineEdit;

// The "print set-up" tab of an A-series printer: what it has printed and what it detected.
class ctlDominoAPage4 : public HandlerPage<clsDominoHandlerA>
{
    Q_OBJECT

public:
    explicit ctlDominoAPage4(QWidget* parent = nullptr);

    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

private:
    QGroupBox* m_fraCounts;
    QLabel* m_lblPrinted;
    QLineEdit* m_txtPrinted;
    QLabel* m_lblDetected;
    QLineEdit* m_txtDetected;
};
