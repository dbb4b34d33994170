#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// One line of a printer's history: the state it moved into, or came up in when there is no
// old state.
struct StateChange
{
    // Milliseconds since the epoch.
    qint64 atMs = 0;
    QString printerId;
    QString printer;
    // The groups the printer sits in, outermost first, below the site's root.
    QStringList groups;
    std::optional<qint32> oldState;
    qint32 newState = 0;
    QString alert;
};
