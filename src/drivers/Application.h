#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

class LabelSets;
class Queues;

// The print application: its printers, its label folders and the user's right to change
// the tree. Every printer is reached through it.
// Held by the adapter through the attach factory's shared pointer; it owns its Queues and
// LabelSets for as long as it lives.
class Application : public QObject
{
    Q_OBJECT

public:
    explicit Application(QObject* parent = nullptr);
    ~Application() override;

    // Answers anything while the connection lives; raises VigilError when it is dead.
    virtual QVariant Probe() = 0;
    // One collection for the process.
    virtual class Queues& Queues() = 0;
    // May be empty.
    virtual QString UserName() const = 0;
    virtual QString LabelRootFolder() const = 0;
    virtual QString FileViewRootFolder() const = 0;
    virtual QString DefaultQueueName() const = 0;
    virtual class LabelSets& LabelSets() = 0;
    virtual bool IsAdministrator() const = 0;
};
