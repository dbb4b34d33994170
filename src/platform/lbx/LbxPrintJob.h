#pragma once

#include "drivers/PrintJob.h"
#include "platform/lbx/LabelFormat.h"

#include <QHash>
#include <QPointer>
#include <memory>

class LbxQueue;
class PrintSpool;

// A job of this print application: the labels of a format, or of each element of a label
// set, with the values the user gives them. Released (dropped without Cancel), it renders
// each label and hands it to the spool for its queue; until then nothing is sent.
class LbxPrintJob : public PrintJob
{
    Q_OBJECT

public:
    // Reads the .FMT or .LBS at `path` for `queue`. Raises VigilError as LabelFormat does,
    // and for a quantity below 1.
    static std::shared_ptr<PrintJob> create(const QString& path, qint32 quantity, LbxQueue& queue,
                                            std::shared_ptr<PrintSpool> spool);
    ~LbxPrintJob() override;

    qint32 PrinterType() const override { return m_printerType; }
    QList<PromptedValue>& PromptedValues() override { return m_prompts; }
    QList<DatabaseKey>& DatabaseKeys() override { return m_keys; }
    // The printer each element goes to (its identifier until told otherwise), and its format
    // relative to the label root folder.
    QList<LabelSetElement> LabelSetElements() const override;
    void Cancel() override { m_bCancelled = true; }
    // From now on the elements with this identifier go to `printer`; an empty printer gives
    // them back their identifier.
    void SetGroupIdentifier(const QString& identifier, const QString& printer) override;

private:
    struct Label
    {
        // Empty for a format's one label, which goes to the job's own queue.
        QString identifier;
        LabelFormat format;
    };

    LbxPrintJob(QList<Label> labels, qint32 quantity, LbxQueue& queue,
                std::shared_ptr<PrintSpool> spool);
    void release();
    QString queueOf(const Label& label) const;
    QHash<QString, QString> valuesByName() const;

    QList<Label> m_labels;
    qint32 m_quantity;
    qint32 m_printerType = 0;
    QList<PromptedValue> m_prompts;
    QList<DatabaseKey> m_keys;
    QHash<QString, QString> m_printers;
    QPointer<LbxQueue> m_queue;
    QString m_queueName;
    std::shared_ptr<PrintSpool> m_spool;
    bool m_bCancelled = false;
};
