#pragma once

#include <QJsonObject>
#include <QMap>
#include <QSet>
#include <QString>
#include <optional>

// The settings of one simulated printer, by name: from a port name's query
// ("delay=20&fragment=3") or from a scenario's JSON object. Each reader takes the names it
// knows; a name nobody took is a mistake worth telling the user about.
class SimKnobs
{
public:
    SimKnobs() = default;
    explicit SimKnobs(QMap<QString, QString> values);

    // "name=value&name=value", percent-encoded as in a URL; empty is no knobs.
    static std::optional<SimKnobs> fromQuery(const QString& query, QString& error);
    // Numbers, texts and Booleans; nested values are refused.
    static std::optional<SimKnobs> fromJson(const QJsonObject& object, QString& error);

    bool has(const QString& name) const;
    QString text(const QString& name, const QString& defaultText = {}) const;
    // A value that isn't a whole number within the bounds is an error, named in `error`.
    qint64 number(const QString& name, qint64 defaultNumber, qint64 lowest, qint64 highest,
                  QString& error) const;
    // "1", "true", "yes" and "on" are true; "0", "false", "no" and "off" false.
    bool flag(const QString& name, bool defaultFlag, QString& error) const;

    // The names no reader has asked for, sorted.
    QStringList unreadNames() const;
    QString toQuery() const;
    const QMap<QString, QString>& values() const { return m_values; }

private:
    QMap<QString, QString> m_values;
    mutable QSet<QString> m_read;
};
