#include "dashboard/ShortcutKeys.h"

#include "core/clsComponent.h"

#include <QtMath>

namespace {
const char* const Edges[] = {"top", "left", "width", "height"};
// What GetStoredSettingByIdx answers past the last row.
const QString PastTheEnd = QStringLiteral("-1");
} // namespace

ShortcutKeys::ShortcutKeys(clsComponent& dashboard)
    : m_dashboard(dashboard)
{}

QString ShortcutKeys::keyOf(const QString& sID, const char* edge)
{
    return Prefix + sID + QLatin1Char('.') + QLatin1String(edge);
}

void ShortcutKeys::write(const QString& sID, const QRect& twips) const
{
    const int values[] = {twips.top(), twips.left(), twips.width(), twips.height()};
    for (int edge = 0; edge < 4; ++edge)
        m_dashboard.AddStoredSetting(keyOf(sID, Edges[edge]), QString::number(values[edge]));
}

void ShortcutKeys::remove(const QString& sID) const
{
    for (const char* edge : Edges)
        m_dashboard.RemoveStoredSetting(keyOf(sID, edge));
}

QPoint ShortcutKeys::topLeft(const QString& sID) const
{
    const auto read = [&](const char* edge) {
        QString text;
        m_dashboard.GetStoredSetting(keyOf(sID, edge), text);
        bool number = false;
        const double value = text.trimmed().toDouble(&number);
        return number && qIsFinite(value) ? qRound(qBound(-1e9, value, 1e9)) : 0;
    };
    return QPoint(read("left"), read("top"));
}

QStringList ShortcutKeys::ids() const
{
    QStringList found;
    for (qint32 index = 0;; ++index) {
        const QString name = m_dashboard.GetStoredSettingByIdx(index, true);
        if (name == PastTheEnd)
            break;
        if (!name.startsWith(Prefix))
            continue;
        const qsizetype dot = name.indexOf(QLatin1Char('.'), Prefix.size());
        const QString id = name.mid(Prefix.size(), dot < 0 ? -1 : dot - Prefix.size());
        if (!id.isEmpty() && !found.contains(id))
            found.append(id);
    }
    return found;
}
