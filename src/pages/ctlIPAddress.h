#pragma once

#include <QWidget>
#include <array>

class QLineEdit;

// A four-box editor of a dotted address. Each box holds a number from 0 to 255 and nothing
// else: a text that isn't one is replaced by the box's last good text. Up and Down step a
// box by 1, by 10 with Shift, wrapping round at the ends.
class ctlIPAddress : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Octets = 4;

    explicit ctlIPAddress(QWidget* parent = nullptr);

    // The four boxes joined with ".".
    QString Address() const;
    // An address that doesn't read as four numbers changes nothing.
    void setAddress(const QString& address);
    bool IsValid() const;
    // Whether this address comes at or after the other, octet by octet; false when either
    // doesn't read.
    bool IsNotLessThan(const QString& other) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The boxes share one name, txtAddress, and are told apart by their place.
    QLineEdit* addOctetBox(int index);
    void txtAddress_Change(int index);
    void step(int index, int by);

    std::array<QLineEdit*, Octets> m_txtAddress{};
    std::array<QString, Octets> m_lastGoodText;
};
