#include "sim/CSeriesEngine.h"

#include "sim/CSeriesArguments.h"
#include "sim/CSeriesCommand.h"

namespace {
const QByteArray kNak(1, CSeriesCommand::Nak);
const QByteArray kNothing;
} // namespace

std::unique_ptr<SimEngine> CSeriesEngine::create(const SimKnobs& knobs, QString& error)
{
    const std::optional<CSeriesSettings> settings = CSeriesSettings::read(knobs, error);
    if (!settings)
        return nullptr;
    return std::make_unique<CSeriesEngine>(*settings);
}

CSeriesEngine::CSeriesEngine(const CSeriesSettings& settings)
    : m_settings(settings)
    , m_timeline(m_settings)
    , m_replies(m_settings, m_state, m_timeline)
{
    m_state.currentFile = m_settings.currentFile;
    m_state.printCount = m_settings.count;
}

QList<QByteArray> CSeriesEngine::receive(const QByteArray& bytes, const QDateTime& now)
{
    m_timeline.powerOn(now);
    QList<QByteArray> replies;
    qsizetype buffered = 0;
    for (const CSeriesRequest& request : m_reader.read(bytes, now)) {
        const QByteArray reply = answer(request, now);
        // Once a reply has overflowed the buffer, so does everything behind it.
        buffered += reply.size();
        if (!reply.isEmpty() && buffered <= kOutputBuffer)
            replies.append(reply);
    }
    return replies;
}

QByteArray CSeriesEngine::answer(const CSeriesRequest& request, const QDateTime& now)
{
    // A spoilt command is still read whole, so that what follows it is read as it should be.
    if (request.bTooLong || request.code == m_settings.nakCode)
        return kNak;
    if (request.code == m_settings.sohCode)
        return QByteArray(1, CSeriesCommand::Soh);
    return carryOut(request, now);
}

QByteArray CSeriesEngine::carryOut(const CSeriesRequest& request, const QDateTime& now)
{
    using namespace CSeriesArguments;
    const bool bGarbled = request.code == m_settings.garbleCode;
    const QByteArray& argument = request.argument;
    switch (request.code) {
    case CSeriesCommand::Status:
        return m_replies.status(now, bGarbled);
    case CSeriesCommand::Setup:
        return m_replies.setup(bGarbled);
    case CSeriesCommand::ErrorLog:
        return m_replies.errorLog(now, bGarbled);
    case CSeriesCommand::LogoList:
        return m_replies.logoList();
    case CSeriesCommand::CurrentFile:
        return m_replies.currentFile();
    case CSeriesCommand::PrintCount:
        return m_replies.printCount();
    case CSeriesCommand::FileList:
        return m_replies.fileList();
    case CSeriesCommand::SelectMessage:
        return selectMessage(argument);
    case CSeriesCommand::SetDirection:
    case CSeriesCommand::SetOrientation: {
        const std::optional<int> value = digitOf(argument);
        if (!value)
            return kNak;
        int& kept =
            request.code == CSeriesCommand::SetDirection ? m_state.direction : m_state.orientation;
        kept = *value;
        return QByteArray(1, CSeriesCommand::End);
    }
    // The three below are answered by nothing when they are taken.
    case CSeriesCommand::SetClock: {
        const std::optional<QDateTime> clock = clockOf(argument, now);
        if (!clock)
            return kNak;
        m_state.setClock(*clock, now);
        return kNothing;
    }
    case CSeriesCommand::SetCounts: {
        const std::optional<int> count = countOf(argument);
        if (!count)
            return kNak;
        m_state.printCount = *count;
        return kNothing;
    }
    case CSeriesCommand::SetShifts: {
        const std::optional<QList<CSeriesShift>> shifts = shiftsOf(argument);
        if (!shifts)
            return kNak;
        m_state.shifts = *shifts;
        return kNothing;
    }
    default:
        // As a printer does with a command it doesn't know.
        return kNak;
    }
}

QByteArray CSeriesEngine::selectMessage(const QByteArray& argument)
{
    const QByteArray name = CSeriesArguments::messageNameOf(argument);
    if (!m_settings.files.contains(name))
        return kNak;
    m_state.currentFile = name;
    return QByteArray(1, CSeriesCommand::Ack);
}
