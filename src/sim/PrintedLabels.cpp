#include "sim/PrintedLabels.h"

void PrintedLabels::read(const QByteArray& bytes)
{
    const QList<QStringList> labels = m_reader.read(bytes);
    for (qsizetype index = 0; index < labels.size(); ++index) {
        ++m_count;
        // Of a flood, only the notices that will be kept are worth making.
        if (index >= labels.size() - kNoticesKept)
            m_notices.append(QStringLiteral("label %1: %2")
                                 .arg(m_count)
                                 .arg(labels[index].join(QStringLiteral(" | ")))
                                 .trimmed());
    }
    if (!labels.isEmpty())
        m_lastFields = labels.last();
    if (m_notices.size() > kNoticesKept)
        m_notices.remove(0, m_notices.size() - kNoticesKept);
}

QStringList PrintedLabels::takeNotices()
{
    return std::exchange(m_notices, {});
}
