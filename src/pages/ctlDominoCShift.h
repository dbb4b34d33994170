#pragma once

#include "drivers/clsShift.h"
#include "pages/ctlShift.h"

#include <QWidget>
#include <array>
#include <optional>

class QGroupBox;

// The four work shifts of a C-series coder, one frame each, over the record that carries
// them to the printer.
class ctlDominoCShift : public QWidget
{
    Q_OBJECT

public:
    // The first shift that doesn't validate: its frame's caption and the box at fault.
    struct Fault
    {
        QString shiftCaption;
        ctlShift::Field field;
        QLineEdit* box;
    };

    explicit ctlDominoCShift(QWidget* parent = nullptr);

    // Validates first; the record is given whatever that found, with the shifts before the
    // first invalid one taken in.
    const clsShift& Shifts();
    // The boxes keep what they show, and the next validation writes it into this record.
    void setShifts(const clsShift& shifts);
    // Takes the shifts into the record in order, up to the first one that isn't valid.
    bool Validate();
    // Moves no focus and shows nothing: telling the user is the caller's choice.
    std::optional<Fault> FirstFault() const;

private:
    clsShift m_oShifts;
    std::array<QGroupBox*, clsShift::Slots> m_fraShift{};
    std::array<ctlShift*, clsShift::Slots> m_ctlShift{};
};
