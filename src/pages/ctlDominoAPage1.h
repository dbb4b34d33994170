#pragma once

#include "drivers/clsDominoHandlerA.h"
#include "pages/PrinterPage.h"

class PrinterDatePicker;
class QGroupBox;
class QLabel;
class QLineEdit;

// The "properties" tab of an A-series printer: its configuration and its clock. A time typed
// into the clock's box is kept from the refreshes until the frame applies or cancels it.
class ctlDominoAPage1 : public HandlerPage<clsDominoHandlerA>
{
    Q_OBJECT

public:
    explicit ctlDominoAPage1(QWidget* parent = nullptr);

    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    void m_Handler_StatusChanged() override;

    bool IsPageModified() const;
    void ClearModified();
    // Sends a typed time with the printer's own date. A time that can't be read is refused
    // with a box and stays marked. Always true.
    bool ApplyModified();

private:
    void applyCaptions();
    void txtTime_Change();
    // The printer's date at that time of day.
    QDateTime onPrinterDate(const QTime& time) const;

    QGroupBox* m_fraConfig;
    QLabel* m_lblMachineType;
    QLineEdit* m_txtMachineType;
    QLabel* m_lblInkType;
    QLineEdit* m_txtInkType;
    QLabel* m_lblNozzleType;
    QLineEdit* m_txtNozzleType;
    QLabel* m_lblRasterType;
    QLineEdit* m_txtRasterType;
    QGroupBox* m_fraTime;
    QLabel* m_lblDate;
    PrinterDatePicker* m_dtpDate;
    QLabel* m_lblTime;
    QLineEdit* m_txtTime;
};
