#pragma once

#include "drivers/Queues.h"
#include "platform/lbx/QueueRecord.h"

#include <QTimer>

class LbxQueue;

// The queues of the store. Queues added or removed here are told at once; those that
// another program (another workstation, vigilctl) adds or removes are noticed within a
// second, by asking the store on a timer whether anybody else has written to it.
class LbxQueues : public Queues
{
    Q_OBJECT

public:
    static constexpr int WatchIntervalMs = 500;

    explicit LbxQueues(QObject* parent = nullptr);
    ~LbxQueues() override;

    QList<Queue*> List() const override;
    Queue* Item(const QString& name) const override;
    Queue* AddQueue() override;
    void RemoveQueue(const QString& name) override;

    // Brings the queues in line with the store now.
    void reload();
    // Whether every queue's wire has come up or given up for now.
    bool wiresSettled() const;

private:
    LbxQueue* find(const QString& name) const;
    LbxQueue* addQueue(const QueueRecord& record);
    void dropQueue(LbxQueue* queue);
    void checkStore();

    QList<LbxQueue*> m_queues;
    QTimer m_watch;
    qint64 m_dataVersion = -1;
};
