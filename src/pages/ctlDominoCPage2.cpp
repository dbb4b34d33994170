#include "pages/ctlDominoCPage2.h"

#include "core/ErrorColours.h"
#include "pages/ControlRefresh.h"
#include "pages/NamedControl.h"
#include "platform/qt/ControlHelpers.h"
#include "platform/qt/QtTreeView.h"
#include "platform/qt/Twips.h"
#include "services/IDialogs.h"
#include "services/MessageCatalogue.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr qint32 MsgCommsBusy = 107;
constexpr qint32 MsgCommsBusyRetry = 108;
constexpr qint32 MsgCurrentError = 164;
constexpr qint32 MsgErrId = 165;
constexpr qint32 MsgErrMsg = 166;
constexpr qint32 MsgAlerts = 167;
constexpr qint32 MsgInkOk = 168;
constexpr qint32 MsgInkLow = 169;
constexpr qint32 MsgBottleOut = 170;
constexpr qint32 MsgNak = 171;
constexpr qint32 MsgCommsOk = 172;
constexpr qint32 MsgSoh = 173;
constexpr qint32 MsgLog = 174;
constexpr qint32 MsgIgnoreErrLog = 175;
constexpr qint32 MsgGetErrorLog = 176;
constexpr qint32 MsgProcessing = 283;

constexpr qint32 LargeIcon = 3;
constexpr int StripWidthTwips = 135;
constexpr int InkPictureSize = 32;
// The alert is read whole, a long one by scrolling.
constexpr int AlertLines = 3;

// A strip in the colour the dashboards give the state. The desktop's colours are those of a
// button nobody has painted.
void paintStrip(QPushButton& strip, qint32 state)
{
    const QPalette desktop = QApplication::palette(&strip);
    QPalette palette = strip.palette();
    palette.setColor(QPalette::Button,
                     QtTreeView::toColor(LookUpColour(state, DashboardPalette, false), desktop));
    strip.setPalette(palette);
}

QPushButton* colourStrip(const char* name)
{
    auto* strip = NamedControl<QPushButton>(name);
    // Flat, it shows nothing but its background: a bar of colour.
    strip->setFlat(true);
    strip->setAutoFillBackground(true);
    strip->setFixedWidth(toPixels(StripWidthTwips));
    strip->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    return strip;
}
} // namespace

ctlDominoCPage2::ctlDominoCPage2(QWidget* parent)
    : HandlerPage(parent)
    , fraCurrentError(NamedControl<QGroupBox>("fraCurrentError"))
    , lblErrID(NamedControl<QLabel>("lblErrID"))
    , txtErrID(NamedControl<QLineEdit>("txtErrID"))
    , lblErrMsg(NamedControl<QLabel>("lblErrMsg"))
    , txtErrMsg(NamedControl<QPlainTextEdit>("txtErrMsg"))
    , fraErrors(NamedControl<QGroupBox>("fraErrors"))
    , cmdErrInk(colourStrip("cmdErrInk"))
    , imgInk(NamedControl<QLabel>("imgInk"))
    , lblInk(NamedControl<QLabel>("lblInk"))
    , cmdErrComms(colourStrip("cmdErrComms"))
    , lblComms(NamedControl<QLabel>("lblComms"))
    , chkGetErrorLog(NamedControl<QCheckBox>("chkGetErrorLog"))
    , lblLog(NamedControl<QLabel>("lblLog"))
    , lstAlarm(NamedControl<QListWidget>("lstAlarm"))
    , cmdIgnoreErrLog(NamedControl<QPushButton>("cmdIgnoreErrLog"))
    , imlInk(LargeIcon)
{
    txtErrID->setReadOnly(true);
    txtErrMsg->setReadOnly(true);
    txtErrMsg->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    txtErrMsg->setFixedHeight(txtErrMsg->fontMetrics().lineSpacing() * AlertLines +
                              2 * txtErrMsg->frameWidth() + 8);
    cmdErrInk->setEnabled(false);
    paintStrip(*cmdErrInk, StateFault);
    imgInk->setFixedSize(InkPictureSize, InkPictureSize);
    lblInk->setText(QStringLiteral("ink out"));
    lblComms->setText(QStringLiteral("last commication attempted: "));
    lblComms->setWordWrap(true);
    layOut();

    connect(chkGetErrorLog, &QCheckBox::clicked, this, &ctlDominoCPage2::chkGetErrorLog_Click);
    connect(cmdIgnoreErrLog, &QPushButton::clicked, this, &ctlDominoCPage2::cmdIgnoreErrLog_Click);
    connect(cmdErrComms, &QPushButton::clicked, this, &ctlDominoCPage2::cmdErrComms_Click);
    connect(lstAlarm, &QListWidget::itemDoubleClicked, this, &ctlDominoCPage2::lstAlarm_DblClick);
}

void ctlDominoCPage2::layOut()
{
    auto* current = new QGridLayout(fraCurrentError);
    current->addWidget(lblErrID, 0, 0);
    current->addWidget(txtErrID, 0, 1);
    current->addWidget(lblErrMsg, 1, 0, Qt::AlignTop);
    current->addWidget(txtErrMsg, 1, 1);
    current->setColumnStretch(1, 1);

    auto* errors = new QGridLayout(fraErrors);
    errors->addWidget(cmdErrInk, 0, 0);
    errors->addWidget(imgInk, 0, 1);
    errors->addWidget(lblInk, 0, 2);
    errors->addWidget(cmdErrComms, 1, 0);
    errors->addWidget(lblComms, 1, 1, 1, 2);
    errors->addWidget(chkGetErrorLog, 2, 0, 1, 3);
    errors->addWidget(lblLog, 3, 0, 1, 3);
    errors->addWidget(lstAlarm, 4, 0, 1, 3);
    errors->addWidget(cmdIgnoreErrLog, 5, 0, 1, 3, Qt::AlignRight);
    errors->setColumnStretch(2, 1);
    errors->setRowStretch(4, 1);

    auto* page = new QVBoxLayout(this);
    page->addWidget(fraCurrentError);
    page->addWidget(fraErrors, 1);
}

void ctlDominoCPage2::applyCaptions()
{
    Caption(*fraCurrentError, MsgCurrentError, QStringLiteral("current error"));
    Caption(*lblErrID, MsgErrId, QStringLiteral("id"));
    Caption(*lblErrMsg, MsgErrMsg, QStringLiteral("description"));
    Caption(*fraErrors, MsgAlerts, QStringLiteral("alerts"));
    Caption(*chkGetErrorLog, MsgGetErrorLog, QStringLiteral("check error log"));
    Caption(*lblLog, MsgLog, QStringLiteral("log"));
    Caption(*cmdIgnoreErrLog, MsgIgnoreErrLog, QStringLiteral("ignore current error"));
}

void ctlDominoCPage2::Setup(const QString&, ComponentHandler* oHandler)
{
    clsDominoHandlerC& handler = bind(oHandler);
    applyCaptions();
    m_Handler_StatusChanged();
    // The log is shown from the next reply on.
    lstAlarm->clear();
    lstAlarm->addItem(GetMessage(MsgProcessing, QStringLiteral("processing...")));
    chkGetErrorLog->setChecked(handler.bCheckErrorLog());
}

void ctlDominoCPage2::m_Handler_StatusChanged()
{
    if (!m_Handler)
        return;
    // The alert and its detail are worked out with the state; this refresh shows today's.
    m_Handler->GetErrorState();
    txtErrID->setText(m_Handler->CommsDetail());
    ShowText(*txtErrMsg, m_Handler->HighestAlert());
    ShowInkState();
    ShowCommsState();
    ShowAlertList();
}

void ctlDominoCPage2::ShowInkState()
{
    const qint32 remaining = m_Handler->PrintsRemaining();
    QString text;
    QString picture;
    ErrorState state = StateNoAnswer;
    switch (m_Handler->InkStatus()) {
    case 0:
        text = GetMessage(MsgInkOk);
        picture = QStringLiteral("InkOk.ico");
        state = StateGood;
        break;
    case 1:
    case 2:
        text = FormatMessage(MsgInkLow, {remaining});
        picture = QStringLiteral("InkOut.ico");
        state = remaining == 0 ? StateFault : StateWarning;
        break;
    case 3:
        text = GetMessage(MsgBottleOut);
        picture = QStringLiteral("BottleOut.ico");
        state = StateFault;
        break;
    default:
        break;
    }
    lblInk->setText(text);
    paintStrip(*cmdErrInk, state);
    if (picture.isEmpty())
        imgInk->clear();
    else
        showPicture(LoadIconImage(imlInk, picture, LargeIcon));
}

// A picture that can't be had leaves the one shown.
void ctlDominoCPage2::showPicture(qint32 index)
{
    const ImageList::Picture* picture = imlInk.picture(index);
    if (!picture)
        return;
    const QPixmap pixmap(picture->path);
    if (!pixmap.isNull())
        imgInk->setPixmap(
            pixmap.scaled(imgInk->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

QString ctlDominoCPage2::CommsText(qint32 commsErrors, bool portBusy)
{
    if (portBusy)
        return GetMessage(MsgCommsBusy) + QLatin1Char('\n') + GetMessage(MsgCommsBusyRetry);
    if (commsErrors & clsDominoHandlerC::SohBit)
        return GetMessage(MsgSoh);
    if (commsErrors & clsDominoHandlerC::NakBit)
        return GetMessage(MsgNak);
    return GetMessage(MsgCommsOk);
}

void ctlDominoCPage2::ShowCommsState()
{
    const qint32 commsErrors = m_Handler->CommsErrors();
    const ErrorState state = m_Handler->GetErrorState();
    const bool portBusy = state == StatePortBusy;
    // The strip shows only when there is something to clear or to wait for.
    cmdErrComms->setVisible(commsErrors != 0 || portBusy);
    paintStrip(*cmdErrComms, state);
    lblComms->setText(CommsText(commsErrors, portBusy));
}

void ctlDominoCPage2::ShowAlertList()
{
    QStringList entries;
    m_Handler->PopulateAlertListBox(entries);
    ShowLines(*lstAlarm, entries);
}

void ctlDominoCPage2::chkGetErrorLog_Click()
{
    RunTrapped(context("chkGetErrorLog_Click"), [this] {
        if (m_Handler)
            m_Handler->setBCheckErrorLog(chkGetErrorLog->isChecked());
    });
}

void ctlDominoCPage2::cmdIgnoreErrLog_Click()
{
    RunTrapped(context("cmdIgnoreErrLog_Click"), [this] {
        if (m_Handler)
            m_Handler->IgnoreCurrentErrorLog();
    });
}

void ctlDominoCPage2::cmdErrComms_Click()
{
    RunTrapped(context("cmdErrComms_Click"), [this] {
        if (!m_Handler)
            return;
        m_Handler->ClearCommsError();
        ShowCommsState();
    });
}

void ctlDominoCPage2::lstAlarm_DblClick()
{
    RunTrapped(context("lstAlarm_DblClick"), [this] {
        const QListWidgetItem* selected = lstAlarm->currentItem();
        if (!selected)
            return;
        IDialogs::Box box;
        box.text = selected->text();
        box.title = GetErrorTitle(QString());
        box.icon = IDialogs::Icon::Information;
        IDialogs::process().show(box);
    });
}
