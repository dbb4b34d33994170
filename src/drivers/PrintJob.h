#pragma once

#include <QObject>
#include <QString>

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
    // The job is dropped and nothing prints.
    virtual void Cancel() = 0;
    // Tells a label set job which printer of the group one of its identifiers means.
    virtual void SetGroupIdentifier(const QString& identifier, const QString& printer) = 0;
};
