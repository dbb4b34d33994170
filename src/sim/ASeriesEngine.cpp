#include "sim/ASeriesEngine.h"

#include "sim/ASeriesClock.h"
#include "sim/ASeriesCommand.h"
#include "sim/ASeriesFrame.h"
#include "sim/SimOutputLimit.h"

using namespace ASeriesCommand;

std::unique_ptr<SimEngine> ASeriesEngine::create(const SimKnobs& knobs, QString& error)
{
    const std::optional<ASeriesSettings> settings = ASeriesSettings::read(knobs, error);
    if (!settings)
        return nullptr;
    return std::make_unique<ASeriesEngine>(*settings);
}

ASeriesEngine::ASeriesEngine(const ASeriesSettings& settings)
    : m_settings(settings)
    , m_replies(m_settings, m_clock, m_uptime)
{}

QList<QByteArray> ASeriesEngine::receive(const QByteArray& bytes, const QDateTime& now)
{
    m_uptime.powerOn(now);
    SimOutputLimit output;
    for (const ASeriesRequest& request : m_reader.read(bytes, now))
        output.add(answer(request, now));
    return output.replies();
}

QByteArray ASeriesEngine::answer(const ASeriesRequest& request, const QDateTime& now)
{
    if (request.id == m_settings.errorId)
        return ASeriesFrame::build(request.id, Error);
    switch (request.type) {
    case Read: {
        // Whatever data a read carries, as the console may send some, changes nothing.
        const std::optional<QByteArray> data = m_replies.dataOf(request.id, now);
        return ASeriesFrame::build(request.id, data ? Reply : Error, data.value_or(QByteArray()));
    }
    case Write:
        return write(request, now);
    default:
        // Replies and errors are the printer's to send, not to take.
        return ASeriesFrame::build(request.id, Error);
    }
}

QByteArray ASeriesEngine::write(const ASeriesRequest& request, const QDateTime& now)
{
    // The clock is all it lets anyone write.
    const std::optional<QDateTime> clock =
        request.id == Clock ? ASeriesClock::clockOf(request.data, now) : std::nullopt;
    if (!clock)
        return ASeriesFrame::build(request.id, Error);
    m_clock.set(*clock, now);
    return ASeriesFrame::build(request.id, Reply);
}
