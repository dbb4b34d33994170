#include "sim/SimKnobs.h"

#include <QUrlQuery>

SimKnobs::SimKnobs(QMap<QString, QString> values)
    : m_values(std::move(values))
{}

std::optional<SimKnobs> SimKnobs::fromQuery(const QString& query, QString& error)
{
    QMap<QString, QString> values;
    for (const auto& [name, value] : QUrlQuery(query).queryItems(QUrl::FullyDecoded)) {
        if (name.isEmpty()) {
            error = QStringLiteral("a knob without a name in \"%1\"").arg(query);
            return std::nullopt;
        }
        if (values.contains(name)) {
            error = QStringLiteral("the knob \"%1\" is given twice").arg(name);
            return std::nullopt;
        }
        values.insert(name, value);
    }
    return SimKnobs(values);
}

std::optional<SimKnobs> SimKnobs::fromJson(const QJsonObject& object, QString& error)
{
    QMap<QString, QString> values;
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QJsonValue value = it.value();
        if (value.isBool())
            values.insert(it.key(),
                          value.toBool() ? QStringLiteral("true") : QStringLiteral("false"));
        else if (value.isDouble())
            values.insert(it.key(), QString::number(value.toDouble(), 'g', 17));
        else if (value.isString())
            values.insert(it.key(), value.toString());
        else {
            error = QStringLiteral("the knob \"%1\" must be a number, a text or true/false")
                        .arg(it.key());
            return std::nullopt;
        }
    }
    return SimKnobs(values);
}

bool SimKnobs::has(const QString& name) const
{
    m_read.insert(name);
    return m_values.contains(name);
}

QString SimKnobs::text(const QString& name, const QString& defaultText) const
{
    m_read.insert(name);
    return m_values.value(name, defaultText);
}

qint64 SimKnobs::number(const QString& name, qint64 defaultNumber, qint64 lowest, qint64 highest,
                        QString& error) const
{
    m_read.insert(name);
    if (!m_values.contains(name))
        return defaultNumber;
    bool ok = false;
    const qint64 value = m_values.value(name).trimmed().toLongLong(&ok);
    if (!ok || value < lowest || value > highest) {
        // The first bad knob is the one named.
        if (error.isEmpty())
            error =
                QStringLiteral("the knob \"%1\" must be a whole number from %2 to %3, not \"%4\"")
                    .arg(name)
                    .arg(lowest)
                    .arg(highest)
                    .arg(m_values.value(name));
        return defaultNumber;
    }
    return value;
}

bool SimKnobs::flag(const QString& name, bool defaultFlag, QString& error) const
{
    m_read.insert(name);
    if (!m_values.contains(name))
        return defaultFlag;
    const QString value = m_values.value(name).trimmed().toLower();
    if (value == QLatin1String("1") || value == QLatin1String("true") ||
        value == QLatin1String("yes") || value == QLatin1String("on"))
        return true;
    if (value == QLatin1String("0") || value == QLatin1String("false") ||
        value == QLatin1String("no") || value == QLatin1String("off"))
        return false;
    if (error.isEmpty())
        error = QStringLiteral("the knob \"%1\" must be true or false, not \"%2\"")
                    .arg(name, m_values.value(name));
    return defaultFlag;
}

QStringList SimKnobs::unreadNames() const
{
    QStringList names;
    for (const QString& name : m_values.keys())
        if (!m_read.contains(name))
            names.append(name);
    return names;
}

QString SimKnobs::toQuery() const
{
    // QUrlQuery takes a "%XX" it is given as already encoded: a '%' must go in as "%25" to
    // come back as itself.
    const auto literal = [](QString text) {
        return text.replace(QLatin1Char('%'), QLatin1String("%25"));
    };
    QUrlQuery query;
    for (auto it = m_values.begin(); it != m_values.end(); ++it)
        query.addQueryItem(literal(it.key()), literal(it.value()));
    return query.toString(QUrl::FullyEncoded);
}
