#include "StateCounts.h"

#include "core/ErrorColours.h"
#include "core/clsComponents.h"

#include <QStringList>

namespace {
// In the order the counts are told and labelled.
struct Column
{
    qint32 state;
    const char* one;
    const char* many;
    const char* label;
};

constexpr Column Columns[] = {
    {StateGood, "good", "good", "good"},      {StateWarning, "warning", "warnings", "warning"},
    {StateFault, "fault", "faults", "fault"}, {StateNoAnswer, "no answer", "no answer", "noanswer"},
    {StatePortBusy, "busy", "busy", "busy"},  {StateDisabled, "disabled", "disabled", "disabled"},
};

QString verdictWord(StateCounts::Verdict verdict)
{
    switch (verdict) {
    case StateCounts::Ok:
        return QStringLiteral("OK");
    case StateCounts::Warning:
        return QStringLiteral("WARNING");
    case StateCounts::Critical:
        return QStringLiteral("CRITICAL");
    case StateCounts::Unknown:
        break;
    }
    return QStringLiteral("UNKNOWN");
}
} // namespace

StateCounts StateCounts::of(TreeNode& node)
{
    StateCounts counts;
    if (!node.isGroup()) {
        counts.add(node.GetErrorState());
        return counts;
    }
    for (const auto& child : static_cast<clsComponents&>(node).Col().snapshot()) {
        const StateCounts below = of(*child);
        for (int state = 0; state < States; ++state)
            counts.m_counts[state] += below.m_counts[state];
    }
    return counts;
}

void StateCounts::add(qint32 state)
{
    ++m_counts[state >= 0 && state < States ? state : StateFault];
}

int StateCounts::printers() const
{
    int sum = 0;
    for (const int count : m_counts)
        sum += count;
    return sum;
}

StateCounts::Verdict StateCounts::verdict() const
{
    if (m_counts[StateFault] + m_counts[StatePortBusy] + m_counts[StateNoAnswer] > 0)
        return Critical;
    return m_counts[StateWarning] > 0 ? Warning : Ok;
}

QString StateCounts::pluginLine() const
{
    QStringList told;
    QStringList labelled;
    for (const Column& column : Columns) {
        const int count = m_counts[column.state];
        if (count > 0)
            told.append(QStringLiteral("%1 %2").arg(count).arg(
                QLatin1String(count == 1 ? column.one : column.many)));
        labelled.append(QStringLiteral("%1=%2").arg(QLatin1String(column.label)).arg(count));
    }
    const int total = printers();
    QString line = QStringLiteral("%1 - %2 %3")
                       .arg(verdictWord(verdict()))
                       .arg(total)
                       .arg(total == 1 ? QStringLiteral("printer") : QStringLiteral("printers"));
    if (!told.isEmpty())
        line += QStringLiteral(": ") + told.join(QStringLiteral(", "));
    return line + QStringLiteral(" | ") + labelled.join(QLatin1Char(' '));
}

QJsonObject StateCounts::json() const
{
    QJsonObject object{{QStringLiteral("verdict"), verdictWord(verdict())},
                       {QStringLiteral("printers"), printers()}};
    for (const Column& column : Columns)
        object.insert(QLatin1String(column.label), m_counts[column.state]);
    return object;
}

QString StateCounts::unknownLine(const QString& problem)
{
    return verdictWord(Unknown) + QStringLiteral(" - ") + problem;
}
