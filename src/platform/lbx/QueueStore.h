#pragma once

#include "platform/lbx/QueueRecord.h"

#include <QList>

// The print application's queues in the settings store, one key a queue below QueuesKey,
// shared by every program on the machine.
class QueueStore
{
public:
    inline static const QString QueuesKey =
        QStringLiteral("Software\\Orvane\\LabelApplication\\Queues");

    // What became of a change; true when it was made.
    struct Outcome
    {
        enum Kind { Done, Refused, NoSuchQueue, NotWritten } kind = Done;
        explicit operator bool() const { return kind == Done; }
    };

    // In the store's order. A value missing or of the wrong type takes its default: no
    // port, printer number 0, the name as the friendly name.
    static QList<QueueRecord> load();
    // Why `name` can't name a queue: it is empty, holds a backslash, or holds what the store
    // takes in no name. Empty when it can.
    static QString nameProblem(const QString& name);
    // Refused, with the reason, for a name that nameProblem refuses or that is taken (names
    // are keys, so "Line 1" and "LINE 1" can't both be queues); NotWritten when the store
    // can't take the change.
    static Outcome add(const QueueRecord& record, QString& problem);
    static Outcome remove(const QString& name, QString& problem);
};
