#include "platform/host/HostCommandRow.h"

namespace {
constexpr int FieldCount = 8;
const QChar LineFeed(u'\n');

std::optional<HostCommandRow> fromFields(const QStringList& fields)
{
    if (fields.size() != FieldCount || fields[0].isEmpty())
        return std::nullopt;
    bool numeric = false;
    HostCommandRow row;
    row.command = fields[0];
    row.caption = fields[1];
    row.key = fields[2];
    row.tip = fields[3];
    row.status = fields[4];
    row.flag = fields[5].compare(QLatin1String("TRUE"), Qt::CaseInsensitive) == 0;
    row.iconPath = fields[6];
    row.number = fields[7].toInt(&numeric);
    return numeric ? std::optional(row) : std::nullopt;
}
} // namespace

std::optional<HostCommandRow> HostCommandRow::fromToolbarRow(const QString& row)
{
    return fromFields(row.split(LineFeed));
}

std::optional<HostCommandRow> HostCommandRow::fromMenuRow(const QString& row)
{
    QStringList fields = row.split(LineFeed);
    bool numeric = false;
    const int first = fields.value(0).toInt(&numeric);
    if (!numeric)
        return std::nullopt;
    if (first < 0) {
        HostCommandRow mark;
        mark.mark = first;
        mark.markTitle = fields.value(1);
        return mark;
    }
    fields.removeFirst();
    return fromFields(fields);
}
