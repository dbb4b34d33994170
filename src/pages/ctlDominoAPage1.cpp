#include "pages/ctlDominoAPage1.h"

#include "platform/qt/LongTime.h"
#include "pages/NamedControl.h"
#include "pages/PrinterDatePicker.h"
#include "platform/qt/ControlHelpers.h"
#include "services/IDialogs.h"
#include "services/MessageCatalogue.h"
#include "services/NumericUtilities.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

namespace {
constexpr qint32 MsgConfiguration = 268;
constexpr qint32 MsgMachineType = 269;
constexpr qint32 MsgInkType = 270;
constexpr qint32 MsgNozzleType = 271;
constexpr qint32 MsgRasterType = 272;
constexpr qint32 MsgTime = 273;
constexpr qint32 MsgDate = 274;
constexpr qint32 MsgTimeLabel = 275;
constexpr qint32 MsgInvalidTime = 276;

QLineEdit* readOnlyBox(const char* name, QWidget* parent)
{
    auto* box = NamedControl<QLineEdit>(name, parent);
    box->setReadOnly(true);
    return box;
}
} // namespace

ctlDominoAPage1::ctlDominoAPage1(QWidget* parent)
    : HandlerPage(parent)
    , m_fraConfig(NamedControl<QGroupBox>("fraConfig", this))
    , m_lblMachineType(NamedControl<QLabel>("lblMachineType", m_fraConfig))
    , m_txtMachineType(readOnlyBox("txtMachineType", m_fraConfig))
    , m_lblInkType(NamedControl<QLabel>("lblInkType", m_fraConfig))
    , m_txtInkType(readOnlyBox("txtInkType", m_fraConfig))
    , m_lblNozzleType(NamedControl<QLabel>("lblNozzleType", m_fraConfig))
    , m_txtNozzleType(readOnlyBox("txtNozzleType", m_fraConfig))
    , m_lblRasterType(NamedControl<QLabel>("lblRasterType", m_fraConfig))
    , m_txtRasterType(readOnlyBox("txtRasterType", m_fraConfig))
    , m_fraTime(NamedControl<QGroupBox>("fraTime", this))
    , m_lblDate(NamedControl<QLabel>("lblDate", m_fraTime))
    , m_dtpDate(NamedControl<PrinterDatePicker>("dtpDate", m_fraTime))
    , m_lblTime(NamedControl<QLabel>("lblTime", m_fraTime))
    // Open for typing, unlike the other boxes: setting the printer's clock is what an
    // operator comes to this page for.
    , m_txtTime(NamedControl<QLineEdit>("txtTime", m_fraTime))
{
    auto* config = new QFormLayout(m_fraConfig);
    config->addRow(m_lblMachineType, m_txtMachineType);
    config->addRow(m_lblInkType, m_txtInkType);
    config->addRow(m_lblNozzleType, m_txtNozzleType);
    config->addRow(m_lblRasterType, m_txtRasterType);

    m_txtTime->setReadOnly(true);
    auto* time = new QFormLayout(m_fraTime);
    time->addRow(m_lblDate, m_dtpDate);
    time->addRow(m_lblTime, m_txtTime);

    auto* page = new QVBoxLayout(this);
    page->addWidget(m_fraConfig);
    page->addWidget(m_fraTime);
    page->addStretch();

    connect(m_txtTime, &QLineEdit::textChanged, this,
            [this] { RunTrapped(context("txtTime_Change"), [this] { txtTime_Change(); }); });
}

void ctlDominoAPage1::Setup(const QString&, ComponentHandler* oHandler)
{
    bind(oHandler);
    applyCaptions();
    m_Handler_StatusChanged();
}

void ctlDominoAPage1::applyCaptions()
{
    Caption(*m_fraConfig, MsgConfiguration, QStringLiteral("configuration"));
    Caption(*m_lblMachineType, MsgMachineType, QStringLiteral("machine type"));
    Caption(*m_lblInkType, MsgInkType, QStringLiteral("ink type"));
    Caption(*m_lblNozzleType, MsgNozzleType, QStringLiteral("nozzle type"));
    Caption(*m_lblRasterType, MsgRasterType, QStringLiteral("rater type"));
    Caption(*m_fraTime, MsgTime, QStringLiteral("time"));
    Caption(*m_lblDate, MsgDate, QStringLiteral("date"));
    Caption(*m_lblTime, MsgTimeLabel, QStringLiteral("time"));
}

void ctlDominoAPage1::m_Handler_StatusChanged()
{
    if (!m_Handler)
        return;
    const clsDominoHandlerA& handler = *m_Handler;
    m_txtNozzleType->setText(handler.NozzleType());
    m_txtInkType->setText(handler.InkSystem());
    m_txtMachineType->setText(handler.MachineType());
    m_txtRasterType->setText(handler.RasterType());
    if (!IsTagSet(*m_dtpDate))
        m_dtpDate->showPrinterDate(handler.DateTime().date());
    // A time typed before the printer's clock is known would have no date to go with.
    m_txtTime->setReadOnly(!handler.DateTime().isValid());
    if (!IsTagSet(*m_txtTime))
        m_txtTime->setText(LongTime::text(handler.DateTime()));
}


QDateTime ctlDominoAPage1::onPrinterDate(const QTime& time) const
{
    const QDateTime& printerTime = m_Handler->DateTime();
    return CombineDateTime(printerTime, QDateTime(printerTime.date(), time));
}


void ctlDominoAPage1::txtTime_Change()
{
    if (!m_Handler)
        return;
    const QDateTime& printerTime = m_Handler->DateTime();
    const QString typed = m_txtTime->text();
    bool modified = false;
    // What the refresh itself writes is the printer's time, whatever the locale's format
    // leaves out of it.
    if (typed != LongTime::text(printerTime)) {
        const std::optional<QTime> time = LongTime::parse(typed);
        modified = !time || onPrinterDate(*time) != printerTime;
    }
    SetTag(*m_txtTime, modified);
    askOwnerToCheckApply(*m_Handler);
}

bool ctlDominoAPage1::IsPageModified() const
{
    const QList<QWidget*> controls = findChildren<QWidget*>();
    return std::any_of(controls.begin(), controls.end(),
                       [](const QWidget* control) { return IsTagSet(*control); });
}

void ctlDominoAPage1::ClearModified()
{
    for (QWidget* control : findChildren<QWidget*>())
        SetTag(*control, false);
}

bool ctlDominoAPage1::ApplyModified()
{
    RunTrapped(context("ApplyModified"), [this] {
        if (!m_Handler || !IsTagSet(*m_txtTime))
            return;
        const std::optional<QTime> time = LongTime::parse(m_txtTime->text());
        if (!time) {
            IDialogs::Box box;
            box.text = GetMessage(MsgInvalidTime, QStringLiteral("Please enter a valid time."));
            box.title = GetErrorTitle(QString());
            box.icon = IDialogs::Icon::Warning;
            IDialogs::process().show(box);
            m_txtTime->setFocus();
            return;
        }
        SetTag(*m_txtTime, false);
        m_Handler->SyncTime(onPrinterDate(*time));
    });
    return true;
}
