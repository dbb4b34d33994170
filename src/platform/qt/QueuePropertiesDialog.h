#pragma once

#include "platform/lbx/QueueRecord.h"

#include <QDialog>

// What the print application knows of one queue, to read and nothing to change.
class QueuePropertiesDialog : public QDialog
{
    Q_OBJECT

public:
    // `reachability` says whether the port is up, or why not.
    QueuePropertiesDialog(const QueueRecord& record, const QString& reachability,
                          QWidget* parent = nullptr);

    // The number with the family whose handler serves it: "2100 (Domino C-series)".
    static QString typeText(qint32 printerNumber);
};
