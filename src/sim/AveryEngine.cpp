#include "sim/AveryEngine.h"

#include "sim/AveryStatusFrame.h"
#include "sim/SimOutputLimit.h"

std::unique_ptr<SimEngine> AveryEngine::create(const SimKnobs& knobs, QString& error)
{
    const std::optional<AverySettings> settings = AverySettings::read(knobs, error);
    if (!settings)
        return nullptr;
    return std::make_unique<AveryEngine>(*settings);
}

AveryEngine::AveryEngine(const AverySettings& settings)
    : m_settings(settings)
    , m_state(m_settings)
{}

QList<QByteArray> AveryEngine::receive(const QByteArray& bytes, const QDateTime& now)
{
    if (m_uptime.powerOn(now))
        m_state.powerOn(now);
    m_printed.read(bytes);
    SimOutputLimit output;
    for (const AveryCommand command : m_reader.read(bytes)) {
        switch (command) {
        case AveryCommand::Status:
            output.add(AveryStatusFrame::build(m_settings, m_state.format(), m_state.labels(now)));
            break;
        case AveryCommand::Start:
            m_state.start(now);
            break;
        case AveryCommand::Stop:
            m_state.stop(now);
            break;
        case AveryCommand::Clear:
            m_state.clear();
            break;
        }
    }
    return output.replies();
}
