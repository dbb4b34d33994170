#include "platform/qt/frmOptions.h"

#include "core/AddInControl.h"
#include "core/Globals.h"
#include "platform/qt/FormPosition.h"
#include "platform/qt/NoticeOptionsBox.h"
#include "services/ApplicationOptions.h"
#include "services/Conversions.h"
#include "services/ErrorBox.h"
#include "services/IDialogs.h"
#include "services/MessageCatalogue.h"
#include "services/VigilError.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QVBoxLayout>

namespace {
constexpr int SmallStep = 1;
constexpr int LargeStep = 10;

// The spin box as an up-down control beside the field: its arrows alone, without an edit
// field of its own and without taking the focus from the field.
void showArrowsOnly(QSpinBox& spin)
{
    if (auto* edit = spin.findChild<QLineEdit*>())
        edit->hide();
    spin.setFocusPolicy(Qt::NoFocus);
    QStyleOptionSpinBox option;
    option.initFrom(&spin);
    option.subControls = QStyle::SC_SpinBoxUp;
    const QRect arrows =
        spin.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &spin);
    const int frame = spin.style()->pixelMetric(QStyle::PM_SpinBoxFrameWidth, &option, &spin);
    spin.setFixedWidth(arrows.width() + 2 * frame);
}
} // namespace

frmOptions::frmOptions(QWidget* owner)
    : QDialog(owner)
    , fraPoll(new QGroupBox(this))
    , lblInterval(new QLabel(fraPoll))
    , txtInterval(new QLineEdit(fraPoll))
    , spnInterval(new QSpinBox(fraPoll))
    , lblIntervalUnits(new QLabel(fraPoll))
    , fraNotices(new NoticeOptionsBox(this))
    , cmdOK(new QPushButton(this))
    , cmdCancel(new QPushButton(this))
{
    fraPoll->setObjectName(QStringLiteral("fraPoll"));
    lblInterval->setObjectName(QStringLiteral("lblInterval"));
    txtInterval->setObjectName(QStringLiteral("txtInterval"));
    spnInterval->setObjectName(QStringLiteral("spnInterval"));
    lblIntervalUnits->setObjectName(QStringLiteral("lblIntervalUnits"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    setCaptions();
    spnInterval->setRange(MinSeconds, MaxSeconds);
    // The arrows wrap to the other end of the range, as the keys in the field do.
    spnInterval->setWrapping(true);
    layOut();

    connect(txtInterval, &QLineEdit::textChanged, this, &frmOptions::followField);
    connect(spnInterval, &QSpinBox::valueChanged, this,
            [this](int seconds) { txtInterval->setText(QString::number(seconds)); });
    txtInterval->installEventFilter(this);
    connect(cmdOK, &QPushButton::clicked, this, &frmOptions::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    txtInterval->setText(TextOf(GetPollInterval() / 1000.0));
}

void frmOptions::CreateAndShow(QWidget* owner)
{
    auto* form = new frmOptions(owner);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->setWindowModality(Qt::ApplicationModal);
    ShowForm(*form, true);
}

void frmOptions::setCaptions()
{
    setWindowTitle(GetMessage(26));
    fraPoll->setTitle(GetMessage(27));
    lblInterval->setText(GetMessage(28));
    lblIntervalUnits->setText(GetMessage(29));
    cmdOK->setText(GetMessage(15));
    cmdCancel->setText(GetMessage(16));
}

void frmOptions::layOut()
{
    auto* interval = new QHBoxLayout(fraPoll);
    interval->addWidget(lblInterval);
    auto* field = new QHBoxLayout;
    field->setSpacing(0);
    field->addWidget(txtInterval);
    field->addWidget(spnInterval);
    interval->addLayout(field);
    interval->addWidget(lblIntervalUnits);
    interval->addStretch();
    showArrowsOnly(*spnInterval);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    cmdOK->setDefault(true);

    auto* form = new QVBoxLayout(this);
    form->addWidget(fraPoll);
    form->addWidget(fraNotices);
    form->addLayout(buttons);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool frmOptions::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtInterval && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down) {
            stepInterval(key->key() == Qt::Key_Up ? 1 : -1, key->modifiers());
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmOptions::stepInterval(int direction, Qt::KeyboardModifiers modifiers)
{
    const std::optional<double> value = NumericValue(txtInterval->text());
    // A field that isn't a number is left for the user to put right.
    if (!value)
        return;
    const int step = modifiers & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier)
                         ? LargeStep
                         : SmallStep;
    double seconds = *value + direction * step;
    if (seconds > MaxSeconds)
        seconds = MinSeconds;
    else if (seconds < MinSeconds)
        seconds = MaxSeconds;
    txtInterval->setText(TextOf(seconds));
}

void frmOptions::followField(const QString& text)
{
    const std::optional<qint32> seconds = wholeSeconds(text);
    if (!seconds || *seconds < MinSeconds || *seconds > MaxSeconds)
        return;
    const QSignalBlocker quiet(spnInterval);
    spnInterval->setValue(*seconds);
}

void frmOptions::cmdOK_Click()
{
    RunTrapped(QStringLiteral("frmOptions - cmdOK_Click"), [this] {
        const std::optional<qint32> seconds = wholeSeconds(txtInterval->text());
        if (!seconds || *seconds < MinSeconds || *seconds > MaxSeconds) {
            IDialogs::Box box;
            box.text = FormatMessage(30, {MinSeconds, MaxSeconds});
            IDialogs::process().show(box);
            txtInterval->setFocus();
            return;
        }
        SetPollIntervalOption(*seconds * 1000);
        SaveOptions();
        // The notices read theirs at each check.
        fraNotices->save();
        if (g_oAddIn)
            g_oAddIn->UpdatePollInterval();
        accept();
    });
}

std::optional<qint32> frmOptions::wholeSeconds(const QString& text)
{
    if (!IsNumeric(text))
        return std::nullopt;
    try {
        return ToLong(text);
    } catch (const VigilError&) {
        // Too large for 32 bits: refused as any number out of range is.
        return std::nullopt;
    }
}
