#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QTextStream>
#include <functional>
#include <optional>

struct ScenarioPrinter
{
    QString name;
    QString kind;
    // "HOST:PORT" as written; whether it can be listened on is found out by listening.
    QString listen;
    QJsonObject knobs;
};

// The printers one run serves, as a JSON file holds them:
//   {"printers": [{"name": "Line 1", "kind": "echo", "listen": "127.0.0.2:9100",
//                  "knobs": {"delay": 20}}, ...]}
// Only the shape is checked here; a kind or knob a printer can't have is that printer's
// problem alone, found when it is made.
class Scenario
{
public:
    explicit Scenario(QList<ScenarioPrinter> printers);

    // None with `error` set, in one line, for text that isn't JSON or isn't of this shape.
    static std::optional<Scenario> fromJson(const QByteArray& json, QString& error);
    // Writes `count` printers, made one at a time as they are written: a fleet of millions
    // needs no more memory than one printer.
    static void write(QTextStream& out, qint64 count,
                      const std::function<ScenarioPrinter(qint64 index)>& printerAt);

    const QList<ScenarioPrinter>& printers() const { return m_printers; }

private:
    QList<ScenarioPrinter> m_printers;
};
