#pragma once

#include "drivers/clsDominoHandlerC.h"
#include "pages/PrinterPage.h"

class QComboBox;
class PrinterDatePicker;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class ctlDominoCShift;

// The "printer set-up" tab of a C-series coder: its clock and language, as the coder reports
// them, and the four work shifts, which the user can send to the coder.
class ctlDominoCPage1 : public HandlerPage<clsDominoHandlerC>
{
    Q_OBJECT

public:
    explicit ctlDominoCPage1(QWidget* parent = nullptr);

    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

private:
    QGroupBox* buildClockFrame();
    // The coder's date; the picker's blank value while the coder hasn't told it.
    void cmdSendShifts_Click();

    QGroupBox* m_fraTime = nullptr;
    QLabel* m_lblDate = nullptr;
    QLabel* m_lblTime = nullptr;
    QLabel* m_lblLanguage;
    PrinterDatePicker* m_dtpDate;
    QLineEdit* m_txtTime;
    QComboBox* m_cboLanguage;
    ctlDominoCShift* m_ctlDominoCShift;
    QPushButton* m_cmdSendShifts;
};
