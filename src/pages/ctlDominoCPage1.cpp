#include "pages/ctlDominoCPage1.h"

#include "pages/PageControls.h"
#include "pages/PrinterDatePicker.h"
#include "pages/ctlDominoCShift.h"
#include "platform/qt/ControlHelpers.h"
#include "platform/qt/LongTime.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
constexpr qint32 MsgTimeFrame = 144;
constexpr qint32 MsgDate = 145;
constexpr qint32 MsgTime = 146;
constexpr qint32 MsgLanguage = 147;
constexpr qint32 MsgSendNow = 82;
constexpr qint32 MsgBadStartHour = 233;
constexpr qint32 MsgBadStartMinute = 234;

constexpr ComboEntry Languages[] = {
    {148, "English", 0}, {149, "German", 1}, {150, "French", 2},     {151, "Spanish", 3},
    {152, "Italian", 4}, {153, "Dutch", 5},  {154, "Portuguese", 6}, {155, "Swedish", 7},
};

} // namespace

ctlDominoCPage1::ctlDominoCPage1(QWidget* parent)
    : HandlerPage(parent)
    , m_lblLanguage(NamedControl<QLabel>("lblLanguage", this))
    , m_dtpDate(NamedControl<PrinterDatePicker>("dtpDate", this))
    , m_txtTime(NamedControl<QLineEdit>("txtTime", this))
    , m_cboLanguage(NamedControl<QComboBox>("cboLanguage", this))
    , m_ctlDominoCShift(NamedControl<ctlDominoCShift>("ctlDominoCShift", this))
    , m_cmdSendShifts(NamedControl<QPushButton>("cmdSendShifts", this))
{
    m_txtTime->setReadOnly(true);
    MakeReadOnly(*m_cboLanguage);

    auto* language = new QHBoxLayout;
    language->addWidget(m_lblLanguage);
    language->addWidget(m_cboLanguage, 1);
    auto* send = new QHBoxLayout;
    send->addStretch(1);
    send->addWidget(m_cmdSendShifts);

    auto* page = new QVBoxLayout(this);
    page->addWidget(buildClockFrame());
    page->addLayout(language);
    page->addWidget(m_ctlDominoCShift);
    page->addLayout(send);
    page->addStretch(1);

    connect(m_cmdSendShifts, &QPushButton::clicked, this, [this] {
        RunTrapped(context("cmdSendShifts_Click"), [this] { cmdSendShifts_Click(); });
    });
}

QGroupBox* ctlDominoCPage1::buildClockFrame()
{
    m_fraTime = NamedControl<QGroupBox>("fraTime", this);
    m_lblDate = NamedControl<QLabel>("lblDate", m_fraTime);
    m_lblTime = NamedControl<QLabel>("lblTime", m_fraTime);
    auto* grid = new QGridLayout(m_fraTime);
    grid->addWidget(m_lblDate, 0, 0);
    grid->addWidget(m_dtpDate, 0, 1);
    grid->addWidget(m_lblTime, 1, 0);
    grid->addWidget(m_txtTime, 1, 1);
    grid->setColumnStretch(1, 1);
    return m_fraTime;
}

void ctlDominoCPage1::Setup(const QString&, ComponentHandler* oHandler)
{
    bind(oHandler);
    Caption(*m_fraTime, MsgTimeFrame, QStringLiteral("time"));
    Caption(*m_lblDate, MsgDate, QStringLiteral("date"));
    Caption(*m_lblTime, MsgTime, QStringLiteral("time"));
    Caption(*m_lblLanguage, MsgLanguage, QStringLiteral("lang"));
    Caption(*m_cmdSendShifts, MsgSendNow, QStringLiteral("send now"));
    FillCombo(*m_cboLanguage, Languages);
    m_Handler_StatusChanged();
}

void ctlDominoCPage1::m_Handler_StatusChanged()
{
    if (!m_Handler)
        return;
    const QDateTime clock = m_Handler->DateTime();
    m_dtpDate->showPrinterDate(clock.date());
    m_txtTime->setText(LongTime::text(clock));
    SelectComboByData(*m_cboLanguage, m_Handler->Language());
}



void ctlDominoCPage1::cmdSendShifts_Click()
{
    if (!m_Handler)
        return;
    const clsShift& shifts = m_ctlDominoCShift->Shifts();
    if (const auto fault = m_ctlDominoCShift->FirstFault()) {
        const qint32 message =
            fault->field == ctlShift::Field::StartHour ? MsgBadStartHour : MsgBadStartMinute;
        ShowError(FormatMessage(message, {fault->shiftCaption}), QString());
        fault->box->setFocus();
        return;
    }
    // The coder takes the shifts without an answer; the handler sends nothing while print
    // work waits or the printer is disabled.
    m_Handler->SetShifts(shifts);
}
