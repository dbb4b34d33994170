#pragma once

#include <QObject>
#include <QString>
#include <memory>

class PrintJob;

// A label set file opened by the application: a format for each printer identifier.
// Belongs to whoever opened it; the job it makes is shared like any other.
class LabelSet : public QObject
{
    Q_OBJECT

public:
    explicit LabelSet(QObject* parent = nullptr);
    ~LabelSet() override;

    virtual void PrepareLabelSet() = 0;
    virtual std::shared_ptr<PrintJob> CreateLabelSetJob(qint32 quantity, const QString& comment,
                                                        bool bPause) = 0;
};
