#include "core/StateCounts.h"

#include "core/ErrorColours.h"
#include "core/clsComponents.h"

#include <QStringList>

namespace {
// In the order the counts are told and labelled.
struct Column
{
    ErrorState state;
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

ErrorState StateCounts::countedAs(qint32 state)
{
    return state >= 0 && state < States ? static_cast<ErrorState>(state) : StateFault;
}

void StateCounts::add(qint32 state)
{
    ++m_counts[countedAs(state)];
}

void StateCounts::take(qint32 state)
{
    int& count = m_counts[countedAs(state)];
    count = qMax(0, count - 1);
}

int StateCounts::count(qint32 state) const
{
    return m_counts[countedAs(state)];
}

QString StateCounts::told(qint32 state) const
{
    const ErrorState counted = countedAs(state);
    for (const Column& column : Columns) {
        if (column.state == counted) {
            const int many = m_counts[counted];
            return QStringLiteral("%1 %2").arg(many).arg(
                QLatin1String(many == 1 ? column.one : column.many));
        }
    }
    return {};
}

std::optional<ErrorState> StateCounts::worstTrouble() const
{
    for (const ErrorState state : {StateFault, StateNoAnswer, StatePortBusy, StateWarning}) {
        if (m_counts[state] > 0)
            return state;
    }
    return std::nullopt;
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
    QStringList toldCounts;
    QStringList labelled;
    for (const Column& column : Columns) {
        const int count = m_counts[column.state];
        if (count > 0)
            toldCounts.append(told(column.state));
        labelled.append(QStringLiteral("%1=%2").arg(QLatin1String(column.label)).arg(count));
    }
    const int total = printers();
    QString line = QStringLiteral("%1 - %2 %3")
                       .arg(verdictWord(verdict()))
                       .arg(total)
                       .arg(total == 1 ? QStringLiteral("printer") : QStringLiteral("printers"));
    if (!toldCounts.isEmpty())
        line += QStringLiteral(": ") + toldCounts.join(QStringLiteral(", "));
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
