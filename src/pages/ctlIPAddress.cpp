#include "pages/ctlIPAddress.h"

#include "pages/PageControls.h"
#include "services/TextUtilities.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

namespace {
constexpr qint32 LowestOctet = 0;
constexpr qint32 HighestOctet = 255;
constexpr int SmallStep = 1;
constexpr int ShiftStep = 10;
const char* const DotNames[] = {"Text1", "Text3", "Text4"};
} // namespace

ctlIPAddress::ctlIPAddress(QWidget* parent)
    : QWidget(parent)
{
    // The background looks like one text box, with the four boxes and their dots on it.
    auto* background = NamedControl<QLineEdit>("txtBackground", this);
    background->setReadOnly(true);
    background->setFocusPolicy(Qt::NoFocus);
    auto* row = new QHBoxLayout(background);
    row->setContentsMargins(2, 0, 2, 0);
    row->setSpacing(0);
    for (int index = 0; index < Octets; ++index) {
        if (index > 0) {
            auto* dot = NamedControl<QLabel>(DotNames[index - 1], background);
            dot->setText(QStringLiteral("."));
            row->addWidget(dot);
        }
        row->addWidget(addOctetBox(index));
    }
    auto* outer = new QHBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(background);
    for (QLineEdit* box : m_txtAddress)
        box->setText(QStringLiteral("0"));
}

QLineEdit* ctlIPAddress::addOctetBox(int index)
{
    auto* box = NamedControl<QLineEdit>("txtAddress", this);
    box->setText(QStringLiteral("255"));
    box->setFrame(false);
    box->setAlignment(Qt::AlignCenter);
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
    m_lastGoodText[size_t(index)] = box->text();
    m_txtAddress[size_t(index)] = box;
    SelectAllOnFocus(*box);
    box->installEventFilter(this);
    connect(box, &QLineEdit::textChanged, this, [this, index] { txtAddress_Change(index); });
    return box;
}

void ctlIPAddress::txtAddress_Change(int index)
{
    QLineEdit& box = *m_txtAddress[size_t(index)];
    if (WholeNumberWithin(box.text(), LowestOctet, HighestOctet))
        m_lastGoodText[size_t(index)] = box.text();
    else
        box.setText(m_lastGoodText[size_t(index)]);
}

bool ctlIPAddress::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto found = std::find(m_txtAddress.begin(), m_txtAddress.end(), watched);
    if (found == m_txtAddress.end())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const int size = key->modifiers().testFlag(Qt::ShiftModifier) ? ShiftStep : SmallStep;
    const int index = int(found - m_txtAddress.begin());
    switch (key->key()) {
    case Qt::Key_Up:
        step(index, size);
        return true;
    case Qt::Key_Down:
        step(index, -size);
        return true;
    default:
        return false;
    }
}

// Past either end the value starts again at the other, however large the step.
void ctlIPAddress::step(int index, int by)
{
    QLineEdit& box = *m_txtAddress[size_t(index)];
    qint32 value = WholeNumberWithin(box.text(), LowestOctet, HighestOctet).value_or(0) + by;
    if (value > HighestOctet)
        value = LowestOctet;
    else if (value < LowestOctet)
        value = HighestOctet;
    box.setText(QString::number(value));
    box.selectAll();
}

QString ctlIPAddress::Address() const
{
    QStringList octets;
    for (const QLineEdit* box : m_txtAddress)
        octets.append(box->text());
    return octets.join(QLatin1Char('.'));
}

void ctlIPAddress::setAddress(const QString& address)
{
    std::array<qint32, Octets> octets{};
    if (!ParseDottedQuad(address, octets))
        return;
    for (int index = 0; index < Octets; ++index)
        m_txtAddress[size_t(index)]->setText(QString::number(octets[size_t(index)]));
}

bool ctlIPAddress::IsValid() const
{
    std::array<qint32, Octets> octets{};
    return ParseDottedQuad(Address(), octets);
}

bool ctlIPAddress::IsNotLessThan(const QString& other) const
{
    std::array<qint32, Octets> mine{};
    std::array<qint32, Octets> theirs{};
    if (!ParseDottedQuad(Address(), mine) || !ParseDottedQuad(other, theirs))
        return false;
    return !std::lexicographical_compare(mine.begin(), mine.end(), theirs.begin(), theirs.end());
}
