#pragma once

#include <QObject>
#include <QString>
#include <memory>

class LabelSet;

// The application's way to label set files.
// Owned by the application; each set it opens belongs to the caller.
class LabelSets : public QObject
{
    Q_OBJECT

public:
    explicit LabelSets(QObject* parent = nullptr);
    ~LabelSets() override;

    // The set at that path, or none when there is no such set; an unknown path is no failure.
    virtual std::shared_ptr<LabelSet> Item(const QString& path) = 0;
};
