#pragma once

#include <QWidget>
#include <optional>

class QLabel;
class QLineEdit;
class clsShift;

// One work shift: its identifier and start time, bound to one slot of a shift record.
class ctlShift : public QWidget
{
    Q_OBJECT

public:
    enum class Field { Id, StartHour, StartMinute };

    explicit ctlShift(QWidget* parent = nullptr);

    // Shows the slot and binds to it.
    void SetShift(const clsShift& shifts, qint32 index);
    // Writes the boxes to the bound slot if they hold a valid shift; otherwise writes nothing.
    bool GetShift(clsShift& shifts) const;
    // The first box the shift can't take: an hour from 0 to 23, a minute from 0 to 59, each
    // rounded to a whole number. The identifier is free text. None when both are good.
    std::optional<Field> InvalidField() const;
    QLineEdit& box(Field field) const;

private:
    QLabel* addLabel(const char* objectName, qint32 messageId, const char* fallback);
    QLineEdit* addBox(const char* objectName);

    qint32 m_nIndex = 0;
    QLineEdit* m_txtId;
    QLineEdit* m_txtStartHour;
    QLineEdit* m_txtStartMinute;
};
