#include "pages/ctlCommands.h"

#include "drivers/clsASeriesMessage.h"
#include "pages/NamedControl.h"
#include "pages/PrinterPage.h"
#include "pages/frmCommandTest.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"
#include "services/NumericUtilities.h"
#include "services/TextUtilities.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
constexpr qint32 MsgCommand = 77;
constexpr qint32 MsgDescription = 78;
constexpr qint32 MsgSend = 79;
constexpr qint32 MsgData = 80;
constexpr qint32 MsgType = 81;
constexpr qint32 MsgSendNow = 82;
constexpr qint32 MsgReceive = 83;
constexpr qint32 MsgShowAsText = 84;
constexpr qint32 MsgFirstTypeName = 85;
constexpr qint32 MsgOtherTypeName = 91;
constexpr qint32 MsgHeader = 92;
constexpr qint32 MsgDataHex = 93;
constexpr qint32 MsgDataText = 94;
constexpr qint32 MsgLength = 95;
constexpr qint32 MsgChecksum = 96;

constexpr qint32 LastNamedType = 5;
constexpr qint32 AnyCommand = -1;
constexpr int DataLines = 3;
const QString Context = QStringLiteral("ctlCommands - ");

QString hexDigits(uint code)
{
    return QStringLiteral("%1").arg(code, 2, 16, QLatin1Char('0')).toUpper();
}

// "(0x07) ": how a byte reads in the reply box.
QString codeForm(uint code)
{
    return QStringLiteral("(0x") + hexDigits(code) + QStringLiteral(") ");
}

QString codeForms(const QByteArray& bytes)
{
    QString forms;
    for (const char byte : bytes)
        forms += codeForm(quint8(byte));
    return forms;
}

// Each character beside its code; a control character shows as a blank.
QString annotated(const QString& text)
{
    QString shown;
    for (const QChar character : text)
        shown += (character.unicode() < 32 ? QChar(QLatin1Char(' ')) : character) +
                 QLatin1Char(' ') + codeForm(character.unicode());
    return shown;
}

// The fields of an A-series frame, a line each; empty for bytes that aren't a good frame.
QString decodedFrame(const QByteArray& bytes)
{
    clsASeriesMessage frame;
    if (!frame.ParseMessage(bytes, AnyCommand))
        return {};
    const auto label = [](qint32 id) {
        return GetMessage(id) + QStringLiteral(": ");
    };
    // The data's strings end in zero bytes: each on a line of its own.
    const QString dataText = BytesToString(frame.GetData()).replace(QChar(0), QLatin1Char('\n'));
    return QStringList{label(MsgHeader) + codeForms(frame.Header()),
                       label(MsgCommand) + codeForm(frame.CommandID()),
                       label(MsgType) + ctlCommands::TypeName(frame.CommandType()),
                       QString(),
                       label(MsgDataText) + dataText,
                       QString(),
                       label(MsgDataHex) + codeForms(frame.GetData()),
                       QString(),
                       label(MsgLength) + QString::number(frame.GetDataLen()),
                       label(MsgChecksum) + QString::number(frame.GetChecksum())}
        .join(QLatin1Char('\n'));
}
} // namespace

ctlCommands::ctlCommands(QWidget* parent)
    : QWidget(parent)
    , fraSend(NamedControl<QGroupBox>("fraSend"))
    , lstCmd(NamedControl<QTreeWidget>("lstCmd"))
    , lblData(NamedControl<QLabel>("lblData"))
    , txtData(NamedControl<QPlainTextEdit>("txtData"))
    , lblType(NamedControl<QLabel>("lblType"))
    , lstType(NamedControl<QListWidget>("lstType"))
    , cmdSend(NamedControl<QPushButton>("cmdSend"))
    , fraReceive(NamedControl<QGroupBox>("fraReceive"))
    , txtReceive(NamedControl<QPlainTextEdit>("txtReceive"))
    , chkShowAsText(NamedControl<QCheckBox>("chkShowAsText"))
{
    Caption(*fraSend, MsgSend, QStringLiteral("send"));
    lstCmd->setHeaderLabels({GetMessage(MsgCommand, QStringLiteral("cmd")),
                             GetMessage(MsgDescription, QStringLiteral("description"))});
    lstCmd->setRootIsDecorated(false);
    lstCmd->setSelectionMode(QAbstractItemView::SingleSelection);
    lstCmd->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    Caption(*lblData, MsgData, QStringLiteral("data"));
    Caption(*lblType, MsgType, QStringLiteral("type"));
    for (const qint32 type : {0, 1}) {
        auto* entry = new QListWidgetItem(TypeName(type), lstType);
        entry->setData(Qt::UserRole, type);
    }
    Caption(*cmdSend, MsgSendNow, QStringLiteral("send now"));
    Caption(*fraReceive, MsgReceive, QStringLiteral("receive"));
    Caption(*chkShowAsText, MsgShowAsText, QStringLiteral("show as text"));
    txtReceive->setReadOnly(true);
    txtReceive->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    // Codes line up in columns.
    txtReceive->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layOut();

    connect(cmdSend, &QPushButton::clicked, this, &ctlCommands::cmdSend_Click);
    connect(chkShowAsText, &QCheckBox::clicked, this, &ctlCommands::refreshDisplay);
}

void ctlCommands::layOut()
{
    txtData->setFixedHeight(txtData->fontMetrics().lineSpacing() * DataLines +
                            2 * txtData->frameWidth() + 8);
    lstType->setFixedHeight(lstType->sizeHintForRow(0) * lstType->count() +
                            2 * lstType->frameWidth());
    auto* send = new QGridLayout(fraSend);
    send->addWidget(lstCmd, 0, 0, 1, 2);
    send->addWidget(lblData, 1, 0, Qt::AlignTop);
    send->addWidget(txtData, 1, 1);
    send->addWidget(lblType, 2, 0, Qt::AlignTop);
    send->addWidget(lstType, 2, 1);
    send->addWidget(cmdSend, 3, 0, 1, 2, Qt::AlignRight);
    send->setRowStretch(0, 1);
    send->setColumnStretch(1, 1);

    auto* receive = new QVBoxLayout(fraReceive);
    receive->addWidget(txtReceive, 1);
    receive->addWidget(chkShowAsText);

    auto* sides = new QHBoxLayout(this);
    sides->setContentsMargins(0, 0, 0, 0);
    sides->addWidget(fraSend, 1);
    sides->addWidget(fraReceive, 1);
}

void ctlCommands::Setup(frmCommandTest* owner)
{
    m_owner = owner;
}

void ctlCommands::AddCommand(quint8 code, const QString& description)
{
    m_records.append({code, description});
    auto* row = new QTreeWidgetItem(lstCmd, {QStringLiteral("0x") + hexDigits(code), description});
    row->setData(0, Qt::UserRole, m_records.size() - 1);
}

void ctlCommands::EnableType(bool enabled)
{
    lstType->setEnabled(enabled);
}

void ctlCommands::EnableShowAsText(bool enabled)
{
    chkShowAsText->setEnabled(enabled);
}

bool ctlCommands::UsesData() const
{
    return !txtData->toPlainText().isEmpty();
}

std::optional<ctlCommands::Command> ctlCommands::GetCommand() const
{
    const QList<QTreeWidgetItem*> chosen = lstCmd->selectedItems();
    if (chosen.isEmpty())
        return std::nullopt;
    Command command;
    command.code = m_records.at(chosen.first()->data(0, Qt::UserRole).toInt()).code;
    const QList<QListWidgetItem*> type = lstType->selectedItems();
    if (!type.isEmpty())
        command.type = type.first()->data(Qt::UserRole).toInt();
    else if (lstType->isEnabledTo(this))
        return std::nullopt;
    command.data = ParseCommandData(txtData->toPlainText());
    return command;
}

QByteArray ctlCommands::ParseCommandData(const QString& text)
{
    const QStringList tokens = text.split(QLatin1Char(','));
    if (tokens.size() <= 1)
        return StringToBytes(text);
    QByteArray bytes;
    for (const QString& token : tokens) {
        bool numeric = false;
        const int value = token.trimmed().toInt(&numeric);
        bytes += char(numeric && value >= 0 && value <= 255 ? value : 0);
    }
    return bytes;
}

QString ctlCommands::TypeName(qint32 type)
{
    return GetMessage(type >= 0 && type <= LastNamedType ? MsgFirstTypeName + type
                                                         : MsgOtherTypeName);
}

void ctlCommands::clearResponse()
{
    m_sResponse.clear();
    m_abResponse.clear();
}

void ctlCommands::SetResponseString(const QString& response)
{
    clearResponse();
    m_sResponse = response;
    refreshDisplay();
}

void ctlCommands::SetResponseBytes(const QByteArray& response)
{
    clearResponse();
    m_abResponse = response;
    refreshDisplay();
}

void ctlCommands::refreshDisplay()
{
    QString shown;
    if (!m_sResponse.isEmpty())
        shown = chkShowAsText->isChecked() ? TrimControl(m_sResponse) : annotated(m_sResponse);
    else if (!m_abResponse.isEmpty())
        shown = m_bASeries ? decodedFrame(m_abResponse) : codeForms(m_abResponse);
    txtReceive->setPlainText(shown);
}

// The old reply goes at once, so that what shows next is this command's.
void ctlCommands::cmdSend_Click()
{
    RunTrapped(Context + QStringLiteral("cmdSend_Click"), [this] {
        if (!m_owner)
            return;
        clearResponse();
        refreshDisplay();
        m_owner->SendCommand();
    });
}
