#include "platform/lbx/LbxPrintJob.h"

#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/LbxQueue.h"
#include "platform/lbx/PrintSpool.h"
#include "platform/lbx/QueueStore.h"
#include "services/ErrorBox.h"
#include "services/VigilError.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QSet>

std::shared_ptr<PrintJob> LbxPrintJob::create(const QString& path, qint32 quantity, LbxQueue& queue,
                                              std::shared_ptr<PrintSpool> spool)
{
    if (quantity < 1)
        throw VigilError(VigilError::InvalidProcedureCall, QStringLiteral("LbxQueue"),
                         QStringLiteral("%1 can't be printed %2 times: a job needs a quantity "
                                        "of 1 or more")
                             .arg(path)
                             .arg(quantity));
    QList<Label> labels;
    std::shared_ptr<LbxPrintJob> job;
    if (path.endsWith(QLatin1String(".LBS"), Qt::CaseInsensitive)) {
        const LabelSetFile set = LabelSetFile::read(path);
        for (const LabelSetFile::Element& element : set.elements())
            labels.append({element.identifier, element.format});
        job.reset(new LbxPrintJob(labels, quantity, queue, std::move(spool)));
        job->m_prompts = set.prompts();
        job->m_keys = set.keys();
    } else {
        const LabelFormat format = LabelFormat::read(path);
        labels.append({QString(), format});
        job.reset(new LbxPrintJob(labels, quantity, queue, std::move(spool)));
        job->m_printerType = format.printerType();
        job->m_prompts = format.prompts();
        job->m_keys = format.keys();
    }
    return job;
}

LbxPrintJob::LbxPrintJob(QList<Label> labels, qint32 quantity, LbxQueue& queue,
                         std::shared_ptr<PrintSpool> spool)
    : m_labels(std::move(labels))
    , m_quantity(quantity)
    , m_queue(&queue)
    , m_queueName(queue.Name())
    , m_spool(std::move(spool))
{}

LbxPrintJob::~LbxPrintJob()
{
    if (!m_bCancelled)
        RunTrapped(QStringLiteral("LbxPrintJob - Release"), [this] { release(); });
}

QList<LabelSetElement> LbxPrintJob::LabelSetElements() const
{
    QList<LabelSetElement> elements;
    const QDir root(LbxApplication::labelRootFolder());
    for (const Label& label : m_labels)
        if (!label.identifier.isEmpty())
            elements.append({queueOf(label), root.relativeFilePath(label.format.path())});
    return elements;
}

void LbxPrintJob::SetGroupIdentifier(const QString& identifier, const QString& printer)
{
    if (printer.isEmpty())
        m_printers.remove(identifier);
    else
        m_printers.insert(identifier, printer);
}

QString LbxPrintJob::queueOf(const Label& label) const
{
    if (label.identifier.isEmpty())
        return m_queueName;
    return m_printers.value(label.identifier, label.identifier);
}

QHash<QString, QString> LbxPrintJob::valuesByName() const
{
    QHash<QString, QString> values;
    for (const PromptedValue& prompt : m_prompts)
        values.insert(prompt.VarName.trimmed().toLower(), prompt.Value);
    for (const DatabaseKey& key : m_keys)
        values.insert(key.VarName.trimmed().toLower(), key.Value);
    return values;
}

void LbxPrintJob::release()
{
    QSet<QString> queues;
    for (const QueueRecord& record : QueueStore::load())
        queues.insert(record.name);
    queues.insert(m_queueName);
    const QHash<QString, QString> values = valuesByName();
    for (const Label& label : std::as_const(m_labels)) {
        const QString queue = queueOf(label);
        const QString format = QFileInfo(label.format.path()).fileName();
        if (!queues.contains(queue)) {
            const QString text = QStringLiteral("%1 is not printed: there is no printer queue "
                                                "\"%2\" for the identifier \"%3\"")
                                     .arg(format, queue, label.identifier);
            if (m_queue)
                m_queue->reportError(VigilError::InvalidProcedureCall, text);
            else
                qWarning().noquote() << text;
            continue;
        }
        m_spool->add(queue, format, label.format.render(values), m_quantity);
    }
}
