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

    // In the store's order. A value missing or of the wrong type takes its default: no
    // port, printer number 0, the name as the friendly name.
    static QList<QueueRecord> load();
    // False with the reason for a name that is empty, holds a backslash or is taken (names
    // are keys, so "Line 1" and "LINE 1" can't both be queues).
    static bool add(const QueueRecord& record, QString& problem);
    static bool remove(const QString& name, QString& problem);
};
