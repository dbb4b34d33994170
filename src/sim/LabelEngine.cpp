#include "sim/LabelEngine.h"

std::unique_ptr<SimEngine> LabelEngine::create(const SimKnobs&, QString&)
{
    return std::make_unique<LabelEngine>();
}

QList<QByteArray> LabelEngine::receive(const QByteArray& bytes, const QDateTime&)
{
    const QList<QStringList> labels = m_reader.read(bytes);
    for (qsizetype index = 0; index < labels.size(); ++index) {
        ++m_labelCount;
        // Of a flood, only the notices that will be kept are worth making.
        if (index >= labels.size() - kNoticesKept)
            m_notices.append(QStringLiteral("label %1: %2")
                                 .arg(m_labelCount)
                                 .arg(labels[index].join(QStringLiteral(" | ")))
                                 .trimmed());
    }
    if (!labels.isEmpty())
        m_lastFields = labels.last();
    if (m_notices.size() > kNoticesKept)
        m_notices.remove(0, m_notices.size() - kNoticesKept);
    return {};
}

QStringList LabelEngine::takeNotices()
{
    return std::exchange(m_notices, {});
}
