#include "support/FakeApplication.h"

#include "services/VigilError.h"

FakePrintJob::FakePrintJob(QString path, qint32 quantity, bool bPause, qint32 printerType)
    : path(std::move(path))
    , quantity(quantity)
    , pause(bPause)
    , printerType(printerType)
{}

void FakePrintJob::SetGroupIdentifier(const QString& identifier, const QString& printer)
{
    groupIdentifiers.append({identifier, printer});
}

QList<LabelSetElement> FakePrintJob::LabelSetElements() const
{
    QList<LabelSetElement> settled = elements;
    for (LabelSetElement& element : settled) {
        QString printer;
        for (const auto& [identifier, named] : groupIdentifiers)
            if (identifier == element.identifier)
                printer = named;
        if (!printer.isEmpty())
            element.identifier = printer;
    }
    return settled;
}

FakeQueue::FakeQueue(const FakeApplication& application, QString name, qint16 printerNumber,
                     QObject* parent)
    : Queue(parent)
    , friendlyName(name + QStringLiteral(" (friendly)"))
    , printerNumber(printerNumber)
    , m_application(application)
    , m_name(std::move(name))
{}

void FakeQueue::setReplyWanted(bool wanted)
{
    replyWanted = wanted;
    replyWantedWrites.append(wanted);
}

std::shared_ptr<PrintJob> FakeQueue::CreateJob(const QString& path, qint32 quantity, bool bPause)
{
    qint32 type = 0;
    if (const std::optional<qint32> format = m_application.formatType(path)) {
        type = *format;
    } else if (const std::optional<bool> suits = m_application.labelSetSuits(path)) {
        if (!*suits)
            throw VigilError(5, QStringLiteral("LBX.Queue"),
                             QStringLiteral("Invalid procedure call or argument"));
        type = m_application.labelSetType(path);
    } else {
        throw VigilError(FakeApplication::FileNotFound, QStringLiteral("LBX.Queue"),
                         QStringLiteral("Cannot open ") + path);
    }
    auto job = std::make_shared<FakePrintJob>(path, quantity, bPause, type);
    job->promptedValues = m_application.promptedValuesOf.value(path);
    job->databaseKeys = m_application.databaseKeysOf.value(path);
    job->elements = m_application.elementsOf.value(path);
    jobs.append(job);
    return job;
}

FakeQueues::FakeQueues(const FakeApplication& application, QObject* parent)
    : Queues(parent)
    , m_application(application)
{}

QList<Queue*> FakeQueues::List() const
{
    QList<Queue*> queues;
    for (FakeQueue* queue : m_queues)
        queues.append(queue);
    return queues;
}

Queue* FakeQueues::Item(const QString& name) const
{
    return find(name);
}

Queue* FakeQueues::AddQueue()
{
    if (!nextAddition)
        return nullptr;
    const auto [name, number] = *nextAddition;
    nextAddition.reset();
    return &add(name, number);
}

void FakeQueues::RemoveQueue(const QString& name)
{
    removeRequests.append(name);
    remove(name);
}

FakeQueue& FakeQueues::add(const QString& name, qint16 printerNumber, const QString& portName)
{
    auto* queue = new FakeQueue(m_application, name, printerNumber, this);
    queue->portName = portName;
    m_queues.append(queue);
    emit PrinterAdded(name);
    return *queue;
}

void FakeQueues::remove(const QString& name)
{
    FakeQueue* queue = find(name);
    if (!queue)
        return;
    m_queues.removeOne(queue);
    delete queue;
    emit PrinterDeleted(name);
}

FakeQueue* FakeQueues::find(const QString& name) const
{
    for (FakeQueue* queue : m_queues) {
        if (queue->Name() == name)
            return queue;
    }
    return nullptr;
}

FakeLabelSet::FakeLabelSet(QString path, qint32 printerType)
    : path(std::move(path))
    , printerType(printerType)
{}

std::shared_ptr<PrintJob> FakeLabelSet::CreateLabelSetJob(qint32 quantity, const QString& comment,
                                                          bool bPause)
{
    this->comment = comment;
    auto job = std::make_shared<FakePrintJob>(path, quantity, bPause, printerType);
    jobs.append(job);
    return job;
}

FakeLabelSets::FakeLabelSets(const FakeApplication& application, QObject* parent)
    : LabelSets(parent)
    , m_application(application)
{}

std::shared_ptr<LabelSet> FakeLabelSets::Item(const QString& path)
{
    if (!m_application.labelSetSuits(path).has_value())
        return nullptr;
    auto labelSet = std::make_shared<FakeLabelSet>(path, m_application.labelSetType(path));
    opened.append(labelSet);
    return labelSet;
}

FakeApplication::FakeApplication()
    : queues(*new FakeQueues(*this, this))
    , labelSets(*new FakeLabelSets(*this, this))
{}

QVariant FakeApplication::Probe()
{
    ++probes;
    if (failingProbes > 0) {
        --failingProbes;
        throw VigilError(ServerGone, QStringLiteral("LBX.Application"),
                         QStringLiteral("The connection was broken"));
    }
    if (!alive)
        throw VigilError(ServerGone, QStringLiteral("LBX.Application"),
                         QStringLiteral("The application has gone"));
    return QStringLiteral("LBX.Application");
}

void FakeApplication::addFormat(const QString& path, qint32 printerType)
{
    m_formats.insert(path, printerType);
}

void FakeApplication::addLabelSet(const QString& path, bool suitsGroup, qint32 printerType)
{
    m_labelSets.insert(path, {suitsGroup, printerType});
}

std::optional<qint32> FakeApplication::formatType(const QString& path) const
{
    const auto found = m_formats.constFind(path);
    if (found == m_formats.constEnd())
        return std::nullopt;
    return *found;
}

std::optional<bool> FakeApplication::labelSetSuits(const QString& path) const
{
    const auto found = m_labelSets.constFind(path);
    if (found == m_labelSets.constEnd())
        return std::nullopt;
    return found->first;
}

qint32 FakeApplication::labelSetType(const QString& path) const
{
    return m_labelSets.value(path).second;
}

ApplicationFactory FakeApplication::attachTo(const std::shared_ptr<FakeApplication>& application)
{
    return [weak = std::weak_ptr<FakeApplication>(application)]() -> std::shared_ptr<Application> {
        const std::shared_ptr<FakeApplication> running = weak.lock();
        if (!running)
            return nullptr;
        ++running->attaches;
        return running->attachable ? running : nullptr;
    };
}
