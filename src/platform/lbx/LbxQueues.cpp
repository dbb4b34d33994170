#include "platform/lbx/LbxQueues.h"

#include "platform/lbx/IQueueDialogs.h"
#include "platform/lbx/LbxQueue.h"
#include "platform/lbx/QueueStore.h"
#include "services/ErrorBox.h"
#include "services/SettingsStore.h"

#include <QHash>
#include <algorithm>

LbxQueues::LbxQueues(QObject* parent)
    : Queues(parent)
{
    m_dataVersion = SettingsStore::process().dataVersion();
    for (const QueueRecord& record : QueueStore::load())
        m_queues.append(new LbxQueue(record, this));
    connect(&m_watch, &QTimer::timeout, this, &LbxQueues::checkStore);
    m_watch.start(WatchIntervalMs);
}

LbxQueues::~LbxQueues() = default;

QList<Queue*> LbxQueues::List() const
{
    return {m_queues.begin(), m_queues.end()};
}

Queue* LbxQueues::Item(const QString& name) const
{
    return find(name);
}

LbxQueue* LbxQueues::find(const QString& name) const
{
    for (LbxQueue* queue : m_queues)
        if (queue->Name() == name)
            return queue;
    return nullptr;
}

Queue* LbxQueues::AddQueue()
{
    const std::optional<QueueRecord> record = IQueueDialogs::process().askForNewQueue();
    if (!record)
        return nullptr;
    QString problem;
    if (!QueueStore::add(*record, problem)) {
        ShowError(problem, QStringLiteral("AddQueue"));
        return nullptr;
    }
    return addQueue(*record);
}

void LbxQueues::RemoveQueue(const QString& name)
{
    QString problem;
    if (!QueueStore::remove(name, problem)) {
        ShowError(problem, QStringLiteral("RemoveQueue"));
        return;
    }
    if (LbxQueue* queue = find(name))
        dropQueue(queue);
}

LbxQueue* LbxQueues::addQueue(const QueueRecord& record)
{
    auto* queue = new LbxQueue(record, this);
    m_queues.append(queue);
    emit PrinterAdded(record.name);
    return queue;
}

void LbxQueues::dropQueue(LbxQueue* queue)
{
    m_queues.removeOne(queue);
    const QString name = queue->Name();
    // Whoever hears of it may still be inside a call of the queue's.
    queue->deleteLater();
    emit PrinterDeleted(name);
}

bool LbxQueues::wiresSettled() const
{
    return std::none_of(m_queues.begin(), m_queues.end(), [](const LbxQueue* queue) {
        return queue->transport().state() == Transport::State::Connecting;
    });
}

void LbxQueues::checkStore()
{
    const qint64 version = SettingsStore::process().dataVersion();
    if (version == m_dataVersion)
        return;
    m_dataVersion = version;
    reload();
}

void LbxQueues::reload()
{
    const QList<QueueRecord> records = QueueStore::load();
    QHash<QString, const QueueRecord*> stored;
    for (const QueueRecord& record : records)
        stored.insert(record.name, &record);
    for (LbxQueue* queue : QList<LbxQueue*>(m_queues)) {
        if (const QueueRecord* record = stored.value(queue->Name()))
            queue->reconfigure(*record);
        else
            dropQueue(queue);
    }
    for (const QueueRecord& record : records)
        if (!find(record.name))
            addQueue(record);
    QHash<QString, qsizetype> rank;
    for (qsizetype index = 0; index < records.size(); ++index)
        rank.insert(records.at(index).name, index);
    std::stable_sort(m_queues.begin(), m_queues.end(), [&rank](LbxQueue* a, LbxQueue* b) {
        return rank.value(a->Name()) < rank.value(b->Name());
    });
}
