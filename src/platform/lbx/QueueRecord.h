#pragma once

#include <QString>

// What the store keeps of one queue.
struct QueueRecord
{
    QString name;
    QString portName;
    qint16 printerNumber = 0;
    QString friendlyName;

    bool operator==(const QueueRecord&) const = default;
};
