#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QStringList>

// The protocol of one kind of simulated printer: bytes in, the replies a printer of that
// kind would give out. What a wire does to them (delay, fragments, silence, garbage) is
// SimPrinter's business, not the engine's.
class SimEngine
{
public:
    virtual ~SimEngine() = default;

    // Takes bytes as they arrive, in fragments of any size, and answers the whole replies
    // now due, in order. `now` drives whatever the printer does by itself over time.
    virtual QList<QByteArray> receive(const QByteArray& bytes, const QDateTime& now) = 0;
    // What it has done since last asked that someone watching would want told, one line each
    // ("label 3: ..."); most kinds have nothing to tell.
    virtual QStringList takeNotices() { return {}; }
};
