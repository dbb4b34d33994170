#pragma once

#include <QList>
#include <QObject>
#include <QString>

class Queue;

// The print application's printers, in its order, known by name.
// Owned by the application; it owns its queues and deletes one that is removed, so whoever
// keeps a queue keeps it by QPointer.
class Queues : public QObject
{
    Q_OBJECT

public:
    explicit Queues(QObject* parent = nullptr);
    ~Queues() override;

    // A snapshot in the application's order: a walk stays safe while queues come and go.
    virtual QList<Queue*> List() const = 0;
    // The queue of that name, compared exactly, or none; an unknown name is no failure.
    virtual Queue* Item(const QString& name) const = 0;
    // Runs the application's own step for adding a printer. The new queue, or none if the
    // user gave up; PrinterAdded tells of it too.
    virtual Queue* AddQueue() = 0;
    virtual void RemoveQueue(const QString& name) = 0;

signals:
    void PrinterAdded(const QString& name);
    void PrinterDeleted(const QString& name);
};
