#pragma once

#include <QList>
#include <QString>

// One printer identifier of a group: the name a label set uses, and the queue name of the
// printer of the group that it stands for (the word for "no printer" when none is chosen).
struct clsGroupIdentifier
{
    QString m_strPrinterIdentifier;
    QString m_strPrinter;

    bool operator==(const clsGroupIdentifier&) const = default;
};

using GroupIdentifiers = QList<clsGroupIdentifier>;
