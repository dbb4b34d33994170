#include "drivers/clsAveryHandler.h"

#include "core/IconFiles.h"
#include "drivers/clsAveryErrorCodes.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

namespace {
const char* const StatusRequest = "#!X0#!P";
const char* const Start = "#!SR#!P";
const char* const Stop = "#!SP#!P";
const char* const Clear = "#!CA#!P";

// Where the fields of a status frame stand, counted from 0.
struct FrameLayout
{
    int codeLength;
    int labelsLength;
    int freeLength;
    int versionLength;

    int size() const
    {
        return 1 + codeLength + 4 + labelsLength + 1 + freeLength + 1 + versionLength;
    }
    int code() const { return 1; }
    int a() const { return 1 + codeLength; }
    int flag() const { return a() + 2; }
    int format() const { return a() + 3; }
    int m() const { return a() + 4; }
    int labels() const { return m() + 1; }
    int f() const { return labels() + labelsLength; }
    int free() const { return f() + 1; }
    int k() const { return free() + freeLength; }
    int version() const { return k() + 1; }
};

constexpr FrameLayout Short{2, 5, 5, 2};
constexpr FrameLayout Long{4, 6, 6, 16};

bool allDigits(const QByteArray& field)
{
    return !field.isEmpty() &&
           std::all_of(field.begin(), field.end(), [](char c) { return c >= '0' && c <= '9'; });
}
} // namespace

bool clsAveryHandler::Initialise(clsComponent*, const QString&, const QString& sName)
{
    m_sName = sName;
    m_nAddress = 1;
    // Not answering until its first data comes.
    replyClock().markLost(ReplyClock::NoStage);
    if (!attachQueue(sName))
        return false;
    if (queue())
        m_sModel = ModelLetter(queue()->PrinterNumber());
    return true;
}

QString clsAveryHandler::ModelLetter(qint32 n)
{
    const auto in = [n](qint32 first, qint32 last) {
        return n >= first && n <= last;
    };
    if (in(123, 125) || n == 127 || n == 128 || n == 130 || n == 131)
        return QStringLiteral("D");
    if (n == 126)
        return QStringLiteral("A");
    if (n == 129 || in(132, 150) || in(780, 783))
        return QStringLiteral("E");
    if (in(151, 156) || in(161, 166) || in(786, 788))
        return QStringLiteral("H");
    if (in(157, 160))
        return QStringLiteral("G");
    return QStringLiteral("X");
}

bool clsAveryHandler::IsPrinterTypeSupported(qint32 n) const
{
    return ((n >= 123 && n <= 169) || (n >= 780 && n <= 799)) && n != 784 && n != 785;
}

void clsAveryHandler::setDisabled(bool disabled)
{
    m_bDisabled = disabled;
    emit StatusChanged();
}

QString clsAveryHandler::PrinterIcon(qint32)
{
    return IconFile(QStringLiteral("LocalLabelPrinter.ico"));
}

void clsAveryHandler::setPortBusy(bool busy)
{
    if (busy == m_bPortBusy)
        return;
    m_bPortBusy = busy;
    emit StatusChanged();
}

QByteArray clsAveryHandler::Command(const char* body) const
{
    const QByteArray address = QByteArray::number(m_nAddress);
    return "#!A" + address + body + address;
}

void clsAveryHandler::Process()
{
    if (!queue() || m_bDisabled)
        return;
    queue()->setReplyWanted(true);
    queue()->SendData(Command(StatusRequest));
    replyClock().start();
    emit StatusChanged();
}

void clsAveryHandler::sendCommand(const char* body)
{
    // A disabled printer is sent nothing, the user's commands included.
    if (queue() && !m_bDisabled)
        queue()->SendData(Command(body));
}

void clsAveryHandler::StartPrinting()
{
    sendCommand(Start);
}

void clsAveryHandler::StopPrinting()
{
    sendCommand(Stop);
}

void clsAveryHandler::ClearPrinter()
{
    sendCommand(Clear);
}

void clsAveryHandler::ProcessResponse(const QByteArray& sReply)
{
    ProcessResponse(sReply, false);
}

void clsAveryHandler::ProcessResponse(const QByteArray& sReply, bool bSuppress)
{
    const int frameLength = m_sModel == QLatin1String("H") ? LongFrame : ShortFrame;
    m_receiveBuffer += sReply;
    if (m_receiveBuffer.size() < frameLength)
        return;
    const QByteArray frame = m_receiveBuffer.left(frameLength);
    m_bPortBusy = false;
    if (readFrame(frame))
        RaiseStatusChanged(bSuppress);
    // Whatever stood behind the frame goes with it: the next request starts clean.
    m_receiveBuffer.clear();
    if (queue())
        queue()->setReplyWanted(false);
}

bool clsAveryHandler::readFrame(const QByteArray& frame)
{
    const FrameLayout& at = frame.size() == LongFrame ? Long : Short;
    const std::pair<int, char> markers[] = {
        {0, 'S'}, {at.a(), 'A'}, {at.m(), 'M'}, {at.f(), 'F'}, {at.k(), 'K'}};
    for (const auto& [position, marker] : markers)
        if (frame.at(position) != marker)
            return false;
    const QByteArray format = frame.mid(at.format(), 1);
    const QByteArray labels = frame.mid(at.labels(), at.labelsLength);
    const QByteArray free = frame.mid(at.free(), at.freeLength);
    // Digits that aren't digits leave everything as it was.
    if (!allDigits(format) || !allDigits(labels) || !allDigits(free))
        return false;
    m_bErrorFlagged = frame.at(at.flag()) == '1';
    m_sErrorCode =
        m_bErrorFlagged ? QString::fromLatin1(frame.mid(at.code(), at.codeLength)) : QString();
    FormatInPrinter = format.toInt();
    LabelsToPrint = labels.toInt();
    FreeBytesInBuffer = free.toInt();
    QByteArray version = frame.mid(at.version(), at.versionLength);
    while (version.endsWith(' '))
        version.chop(1);
    EPROMVersion = QString::fromLatin1(version);
    return true;
}

ErrorState clsAveryHandler::GetErrorState()
{
    if (m_bDisabled)
        return StateDisabled;
    if (m_bPortBusy)
        return StatePortBusy;
    if (replyClock().timedOut())
        return StateNoAnswer;
    if (!m_bErrorFlagged)
        return StateGood;
    switch (clsAveryErrorCodes::process().GetErrorLevel(m_sErrorCode)) {
    case 0:
        return StateWarning;
    case 1:
    case 2:
        return StateFault;
    default:
        return StateNoAnswer;
    }
}

QString clsAveryHandler::ErrorMessage() const
{
    return m_sErrorCode.isEmpty() ? QString()
                                  : clsAveryErrorCodes::process().GetErrorDescription(m_sErrorCode);
}

QString clsAveryHandler::HighestAlert()
{
    return m_sErrorCode.isEmpty() ? QString() : m_sErrorCode + QLatin1Char(' ') + ErrorMessage();
}
