#include "pages/ctlAveryPage1.h"

#include "core/ErrorColours.h"
#include "pages/NamedControl.h"
#include "platform/qt/QtTreeView.h"
#include "services/MessageCatalogue.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr qint32 MsgName = 102;
constexpr qint32 MsgPort = 103;
constexpr qint32 MsgType = 104;
constexpr qint32 MsgEPROMVersion = 465;
constexpr qint32 MsgFreeBytesInBuffer = 466;
constexpr qint32 MsgLabelsToPrint = 467;
constexpr qint32 MsgFormatInPrinter = 468;
constexpr qint32 MsgStart = 469;
constexpr qint32 MsgStop = 470;
constexpr qint32 MsgClear = 471;
constexpr qint32 MsgNoFormat = 472;
constexpr qint32 MsgFormatReceiving = 473;
constexpr qint32 MsgFormatReady = 474;
constexpr qint32 MsgError = 475;

// The printer's format state as words; a state it doesn't know shows nothing.
QString formatInPrinterText(qint32 formatInPrinter)
{
    switch (formatInPrinter) {
    case 0:
        return GetMessage(MsgNoFormat, QStringLiteral("No format"));
    case 1:
        return GetMessage(MsgFormatReceiving, QStringLiteral("Format being received"));
    case 2:
        return GetMessage(MsgFormatReady, QStringLiteral("Format ready"));
    default:
        return {};
    }
}
} // namespace

ctlAveryPage1::ctlAveryPage1(QWidget* parent)
    : HandlerPage(parent)
    , m_lblName(NamedControl<QLabel>("lblName", this))
    , m_lblNameData(NamedControl<QLabel>("lblNameData", this))
    , m_lblType(NamedControl<QLabel>("lblType", this))
    , m_lblTypeData(NamedControl<QLabel>("lblTypeData", this))
    , m_lblPort(NamedControl<QLabel>("lblPort", this))
    , m_lblPortData(NamedControl<QLabel>("lblPortData", this))
    , m_lblEPROMVersion(NamedControl<QLabel>("lblEPROMVersion", this))
    , m_lblEPROMVersionData(NamedControl<QLabel>("lblEPROMVersionData", this))
    , m_lblFreeBytesInBuffer(NamedControl<QLabel>("lblFreeBytesInBuffer", this))
    , m_lblFreeBytesInBufferData(NamedControl<QLabel>("lblFreeBytesInBufferData", this))
    , m_lblLabelsToPrint(NamedControl<QLabel>("lblLabelsToPrint", this))
    , m_lblLabelsToPrintData(NamedControl<QLabel>("lblLabelsToPrintData", this))
    , m_lblFormatInPrinter(NamedControl<QLabel>("lblFormatInPrinter", this))
    , m_lblFormatInPrinterData(NamedControl<QLabel>("lblFormatInPrinterData", this))
    , m_lblError(NamedControl<QLabel>("lblError", this))
    , m_cmdStart(NamedControl<QPushButton>("cmdStart", this))
    , m_cmdStop(NamedControl<QPushButton>("cmdStop", this))
    , m_cmdClear(NamedControl<QPushButton>("cmdClear", this))
{
    auto* values = new QGridLayout;
    values->setColumnStretch(1, 1);
    const std::pair<QLabel*, QLabel*> rows[] = {
        {m_lblName, m_lblNameData},
        {m_lblType, m_lblTypeData},
        {m_lblPort, m_lblPortData},
        {m_lblEPROMVersion, m_lblEPROMVersionData},
        {m_lblFreeBytesInBuffer, m_lblFreeBytesInBufferData},
        {m_lblLabelsToPrint, m_lblLabelsToPrintData},
        {m_lblFormatInPrinter, m_lblFormatInPrinterData}};
    for (const auto& [caption, value] : rows) {
        const int row = values->rowCount();
        values->addWidget(caption, row, 0);
        values->addWidget(value, row, 1);
        // A port or a version is worth copying into a support call.
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }

    m_lblError->setAutoFillBackground(true);
    m_lblError->setWordWrap(true);
    m_lblError->setMargin(4);
    m_lblError->hide();

    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {m_cmdStart, m_cmdStop, m_cmdClear})
        buttons->addWidget(button);
    buttons->addStretch();

    auto* page = new QVBoxLayout(this);
    page->addLayout(values);
    page->addWidget(m_lblError);
    page->addLayout(buttons);
    page->addStretch();

    connectCommand(m_cmdStart, "cmdStart_Click", &clsAveryHandler::StartPrinting);
    connectCommand(m_cmdStop, "cmdStop_Click", &clsAveryHandler::StopPrinting);
    connectCommand(m_cmdClear, "cmdClear_Click", &clsAveryHandler::ClearPrinter);
}

void ctlAveryPage1::connectCommand(QPushButton* button, const char* routine,
                                   void (clsAveryHandler::*command)())
{
    connect(button, &QPushButton::clicked, this, [this, routine, command] {
        RunTrapped(context(routine), [this, command] {
            if (m_Handler)
                (m_Handler->*command)();
        });
    });
}

void ctlAveryPage1::Setup(const QString&, ComponentHandler* oHandler)
{
    bind(oHandler);
    applyCaptions();
    ShowStatus();
}

void ctlAveryPage1::applyCaptions()
{
    const QString designed = QStringLiteral("Label1");
    Caption(*m_lblName, MsgName, QStringLiteral("name"));
    Caption(*m_lblType, MsgType, QStringLiteral("type"));
    Caption(*m_lblPort, MsgPort, QStringLiteral("port"));
    Caption(*m_lblEPROMVersion, MsgEPROMVersion, designed);
    Caption(*m_lblFreeBytesInBuffer, MsgFreeBytesInBuffer, designed);
    Caption(*m_lblLabelsToPrint, MsgLabelsToPrint, designed);
    Caption(*m_lblFormatInPrinter, MsgFormatInPrinter, designed);
    Caption(*m_cmdStart, MsgStart, QStringLiteral("&start"));
    Caption(*m_cmdStop, MsgStop, QStringLiteral("sto&p"));
    Caption(*m_cmdClear, MsgClear, QStringLiteral("&Clear"));
}

void ctlAveryPage1::m_Handler_StatusChanged()
{
    ShowStatus();
}

void ctlAveryPage1::ShowStatus()
{
    if (!m_Handler)
        return;
    clsAveryHandler& handler = *m_Handler;
    m_lblNameData->setText(handler.m_sName);
    m_lblTypeData->setText(handler.HandlerFreindlyName());
    m_lblPortData->setText(handler.Port());
    m_lblEPROMVersionData->setText(handler.EPROMVersion);
    m_lblFormatInPrinterData->setText(formatInPrinterText(handler.FormatInPrinter));
    m_lblFreeBytesInBufferData->setText(QString::number(handler.FreeBytesInBuffer));
    m_lblLabelsToPrintData->setText(QString::number(handler.LabelsToPrint));
    // The handler sends nothing to a disabled printer; greyed buttons tell the operator why.
    for (QPushButton* button : {m_cmdStart, m_cmdStop, m_cmdClear})
        button->setEnabled(!handler.Disabled());

    const ErrorState state = handler.GetErrorState();
    const QString message = handler.ErrorMessage();
    if ((state == StateNoAnswer || state == StateGood) && message.isEmpty())
        m_lblError->hide();
    else
        showError(state, message);
}

void ctlAveryPage1::showError(ErrorState state, const QString& message)
{
    const QPalette& page = palette();
    QPalette colours = m_lblError->palette();
    colours.setColor(QPalette::Window,
                     QtTreeView::toColor(LookUpColour(state, TreePalette, false), page));
    colours.setColor(QPalette::WindowText,
                     QtTreeView::toColor(LookUpColour(state, TreePalette, true), page));
    m_lblError->setPalette(colours);
    m_lblError->setText(GetMessage(MsgError, QStringLiteral("Error")) + QStringLiteral(": ") +
                        message);
    m_lblError->show();
}
