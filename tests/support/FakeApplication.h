#pragma once

#include "drivers/Application.h"
#include "drivers/LabelSet.h"
#include "drivers/LabelSets.h"
#include "drivers/PrintJob.h"
#include "drivers/Queue.h"
#include "drivers/Queues.h"
#include "printing/clsLBXHandler.h"

#include <QHash>
#include <QList>
#include <memory>
#include <optional>
#include <utility>

class FakeApplication;

// The print application in memory, for tests: plain fields a test sets and reads. Its files
// are a table of paths: a format with the printer type it was made for, a label set that
// suits the group or doesn't; any other path can't be opened. Jobs stay listed where they
// were made, so a test sees what was done to them after the code under test dropped them.

class FakePrintJob : public PrintJob
{
    Q_OBJECT

public:
    FakePrintJob(QString path, qint32 quantity, bool bPause, qint32 printerType);

    qint32 PrinterType() const override { return printerType; }
    QList<PromptedValue>& PromptedValues() override { return promptedValues; }
    QList<DatabaseKey>& DatabaseKeys() override { return databaseKeys; }
    // The elements' identifiers as the group's identifiers settle them.
    QList<LabelSetElement> LabelSetElements() const override;
    void Cancel() override { ++cancelCount; }
    void SetGroupIdentifier(const QString& identifier, const QString& printer) override;

    bool cancelled() const { return cancelCount > 0; }

    QString path;
    qint32 quantity;
    bool pause;
    qint32 printerType;
    int cancelCount = 0;
    QList<std::pair<QString, QString>> groupIdentifiers;
    QList<PromptedValue> promptedValues;
    QList<DatabaseKey> databaseKeys;
    QList<LabelSetElement> elements;
};

class FakeQueue : public Queue
{
    Q_OBJECT

public:
    FakeQueue(const FakeApplication& application, QString name, qint16 printerNumber,
              QObject* parent);

    QString Name() const override { return m_name; }
    QString FriendlyName() const override { return friendlyName; }
    QString PortName() const override { return portName; }
    qint16 PrinterNumber() const override { return printerNumber; }
    qint32 PendingItems() const override { return pendingItems; }
    bool ReplyWanted() const override { return replyWanted; }
    void setReplyWanted(bool wanted) override;
    void SendData(const QByteArray& data) override { sent.append(data); }
    void ShowPrinterProperties() override { ++propertiesShown; }
    std::shared_ptr<PrintJob> CreateJob(const QString& path, qint32 quantity, bool bPause) override;

    // Bytes from the printer, as the port would hand them on.
    void inject(const QByteArray& data) { emit DataReceived(data); }

    // Told apart from the name, so that a test sees which of the two was shown.
    QString friendlyName;
    QString portName;
    qint16 printerNumber;
    qint32 pendingItems = 0;
    bool replyWanted = false;
    // Every value ReplyWanted was given, in order.
    QList<bool> replyWantedWrites;
    QList<QByteArray> sent;
    int propertiesShown = 0;
    QList<std::shared_ptr<FakePrintJob>> jobs;

private:
    const FakeApplication& m_application;
    QString m_name;
};

class FakeQueues : public Queues
{
    Q_OBJECT

public:
    FakeQueues(const FakeApplication& application, QObject* parent);

    QList<Queue*> List() const override;
    Queue* Item(const QString& name) const override;
    Queue* AddQueue() override;
    void RemoveQueue(const QString& name) override;

    // A printer set up behind the program's back; raises PrinterAdded. Names aren't checked
    // for clashes, so that a test can give two queues one name.
    FakeQueue& add(const QString& name, qint16 printerNumber, const QString& portName = {});
    // A printer removed behind the program's back: deleted at once, PrinterDeleted raised.
    // The first queue of that name; an unknown name does nothing.
    void remove(const QString& name);
    FakeQueue* find(const QString& name) const;

    // What the user sets up in the next AddQueue; without it the user gives up.
    std::optional<std::pair<QString, qint16>> nextAddition;
    // The names RemoveQueue was asked for, known or not.
    QList<QString> removeRequests;

private:
    const FakeApplication& m_application;
    QList<FakeQueue*> m_queues;
};

class FakeLabelSet : public LabelSet
{
    Q_OBJECT

public:
    FakeLabelSet(QString path, qint32 printerType);

    void PrepareLabelSet() override { ++prepared; }
    std::shared_ptr<PrintJob> CreateLabelSetJob(qint32 quantity, const QString& comment,
                                                bool bPause) override;

    QString path;
    qint32 printerType;
    int prepared = 0;
    QString comment;
    QList<std::shared_ptr<FakePrintJob>> jobs;
};

class FakeLabelSets : public LabelSets
{
    Q_OBJECT

public:
    FakeLabelSets(const FakeApplication& application, QObject* parent);

    std::shared_ptr<LabelSet> Item(const QString& path) override;

    QList<std::shared_ptr<FakeLabelSet>> opened;

private:
    const FakeApplication& m_application;
};

class FakeApplication : public Application
{
    Q_OBJECT

public:
    // What the fake raises for a file that can't be opened, and for a dead connection.
    static constexpr qint32 FileNotFound = 53;
    static constexpr qint32 ServerGone = 462;

    FakeApplication();

    QVariant Probe() override;
    class Queues& Queues() override { return queues; }
    QString UserName() const override { return userName; }
    QString LabelRootFolder() const override { return labelRootFolder; }
    QString FileViewRootFolder() const override { return fileViewRootFolder; }
    QString DefaultQueueName() const override { return defaultQueueName; }
    class LabelSets& LabelSets() override { return labelSets; }
    bool IsAdministrator() const override { return administrator; }

    // The files the application can open.
    void addFormat(const QString& path, qint32 printerType);
    // A label set that suits the group of the default queue, or one that doesn't.
    void addLabelSet(const QString& path, bool suitsGroup = true, qint32 printerType = 0);
    std::optional<qint32> formatType(const QString& path) const;
    // Whether a label set is known, and if so whether it suits.
    std::optional<bool> labelSetSuits(const QString& path) const;
    qint32 labelSetType(const QString& path) const;

    // A factory for InstallApplicationFactory that finds this application running while
    // `attachable` holds. It holds the application weakly: once a test drops it, the
    // application counts as not running.
    static ApplicationFactory attachTo(const std::shared_ptr<FakeApplication>& application);

    FakeQueues& queues;
    FakeLabelSets& labelSets;
    QString userName;
    QString labelRootFolder;
    QString fileViewRootFolder;
    QString defaultQueueName;
    bool administrator = false;
    // False: the application is gone and every probe fails.
    bool alive = true;
    // The next so many probes fail, as a broken connection would before it is made again.
    int failingProbes = 0;
    int probes = 0;
    bool attachable = true;
    int attaches = 0;
    // What a job of the file at that path holds: the values it asks for and, for a label
    // set, its labels by printer identifier.
    QHash<QString, QList<PromptedValue>> promptedValuesOf;
    QHash<QString, QList<DatabaseKey>> databaseKeysOf;
    QHash<QString, QList<LabelSetElement>> elementsOf;

private:
    QHash<QString, qint32> m_formats;
    QHash<QString, std::pair<bool, qint32>> m_labelSets;
};
