#pragma once

#include <QList>
#include <QObject>
#include <QString>

// A value of a label that the operator types at print time.
struct PromptedValue
{
    QString VarName;
    QString Prompt;
    QString Value;
    qint32 MaxLength = 0;
    // No limit to the length; MaxLength is then not read.
    bool NoMaxLength = true;
    // An input mask in Qt's syntax; empty for none.
    QString Mask;
    bool MaskAllowSpaces = true;
    bool MaskForceAllChars = false;
    bool MaskForcedEntry = false;
    bool MaskForcedUpper = false;
    bool MaskForcedLower = false;
    // Carried as the file has them.
    qint16 Type = 0;
    qint32 UsageFlags = 0;
};

// A value of a label that the operator picks from a database table; the name is also the
// table's.
struct DatabaseKey
{
    QString VarName;
    QString Prompt;
    QString Value;
    // An SQLite file, or a Qt SQL driver with its connection options ("QPSQL:host=db").
    QString DataSource;
    // The column listed to pick from.
    QString KeyField;
};

// One label of a label set: the printer identifier it is for, and its format.
struct LabelSetElement
{
    QString identifier;
    QString format;
};

// Work for one queue, made from a format or a label set.
// Shared by whoever received it; dropping the last reference without Cancel lets it print.
class PrintJob : public QObject
{
    Q_OBJECT

public:
    explicit PrintJob(QObject* parent = nullptr);
    ~PrintJob() override;

    // The printer type the format was made for.
    virtual qint32 PrinterType() const = 0;
    // In the file's order; the values are written before the job is released.
    virtual QList<PromptedValue>& PromptedValues() = 0;
    virtual QList<DatabaseKey>& DatabaseKeys() = 0;
    // A label set's labels in the set's order; none for a format's job.
    virtual QList<LabelSetElement> LabelSetElements() const = 0;
    // The job is dropped and nothing prints.
    virtual void Cancel() = 0;
    // Tells a label set job which printer of the group one of its identifiers means.
    virtual void SetGroupIdentifier(const QString& identifier, const QString& printer) = 0;
};
