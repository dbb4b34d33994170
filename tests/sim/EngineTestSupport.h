#pragma once

#include "sim/SimKnobs.h"

#include <QDateTime>
#include <QTimeZone>
#include <gtest/gtest.h>
#include <memory>

// Wednesday 5 September 2007, 14:07:30: when each printer in these tests is switched on.
inline const QDateTime kOn(QDate(2007, 9, 5), QTime(14, 7, 30), QTimeZone::utc());

// The engine that the knobs of `query` set up; null, and a failure, when they are refused.
template <typename Engine, typename Settings>
std::unique_ptr<Engine> makeEngine(const QString& query)
{
    QString error;
    const std::optional<SimKnobs> knobs = SimKnobs::fromQuery(query, error);
    const std::optional<Settings> settings = knobs ? Settings::read(*knobs, error) : std::nullopt;
    EXPECT_TRUE(settings) << query.toStdString() << ": " << error.toStdString();
    return settings ? std::make_unique<Engine>(*settings) : nullptr;
}

// What the engine answers to `bytes` when they come `secondsOn` seconds after kOn.
template <typename Engine>
QList<QByteArray> send(Engine& engine, const QByteArray& bytes, qint64 secondsOn = 0)
{
    return engine.receive(bytes, kOn.addSecs(secondsOn));
}

// The replies of `whole` to `bytes` at once, checked to equal those of `byteByByte`, a printer
// set up alike, to the same bytes one at a time.
template <typename Engine>
QList<QByteArray> sentWholeAndByteByByte(Engine& whole, Engine& byteByByte, const QByteArray& bytes)
{
    QList<QByteArray> replies;
    for (const char byte : bytes)
        replies += send(byteByByte, QByteArray(1, byte));
    const QList<QByteArray> expected = send(whole, bytes);
    EXPECT_EQ(replies, expected);
    return expected;
}
