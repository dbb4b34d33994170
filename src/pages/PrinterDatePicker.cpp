#include "pages/PrinterDatePicker.h"

PrinterDatePicker::PrinterDatePicker(QWidget* parent)
    : QDateEdit(parent)
{
    setCalendarPopup(true);
    // The blank is the picker's lowest date.
    setSpecialValueText(QStringLiteral(" "));
    m_printerDate = minimumDate();
    setDate(m_printerDate);
    connect(this, &QDateEdit::dateChanged, this, &PrinterDatePicker::springBack);
}

void PrinterDatePicker::showPrinterDate(const QDate& date)
{
    m_printerDate = date.isValid() ? date : minimumDate();
    setDate(m_printerDate);
}

void PrinterDatePicker::springBack()
{
    if (date() != m_printerDate)
        setDate(m_printerDate);
}
