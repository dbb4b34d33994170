#pragma once

#include <QDateEdit>

// The date a printer tells: the picker can be opened, but a date picked in it springs back
// to the printer's. Blank while the printer's date is unknown.
class PrinterDatePicker : public QDateEdit
{
    Q_OBJECT

public:
    explicit PrinterDatePicker(QWidget* parent = nullptr);

    // An invalid date shows the blank.
    void showPrinterDate(const QDate& date);

private:
    void springBack();

    QDate m_printerDate;
};
