#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <memory>

// One alarm of an A-series printer as the catalogue knows it.
struct clsAlarms
{
    QString AlarmId;
    QString AlarmText;
    qint32 AlarmLevel = 0;
};

// The alarms in the order they were added, looked up by key.
class clsAlarmCollection
{
public:
    // Stored under key (without a key when it is empty) and given back. A key that is there
    // already raises VigilError and adds nothing.
    std::shared_ptr<clsAlarms> Add(const QString& text, const QString& id, qint32 level,
                                   const QString& key);
    // Raises VigilError when the key isn't there.
    std::shared_ptr<clsAlarms> Item(const QString& key) const;
    qint32 Count() const;
    // Raises VigilError when the key isn't there.
    void Remove(const QString& key);
    // In order of adding.
    QList<std::shared_ptr<clsAlarms>> NewEnum() const;
    // Adds the alarms of a file of lines "number<tab>level<tab>text". A file that can't be
    // read, a number that doesn't convert or a number met twice raises VigilError; what was
    // added before the failure stays.
    void LoadFile(const QString& path);

private:
    QList<std::shared_ptr<clsAlarms>> m_alarms;
    QHash<QString, std::shared_ptr<clsAlarms>> m_byKey;
};

// The process-wide catalogue of kind 1, read once; raises VigilError for other kinds.
clsAlarmCollection& GetAlarmLookup(qint32 kind);
// Forgets the process-wide catalogue, so that a test can load another.
void ResetAlarmLookup();
