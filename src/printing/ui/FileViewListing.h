#pragma once

#include <QList>
#include <QString>

// What the file view shows of a label folder, in the order its items are added: for each
// folder its subfolders (each followed at once by its own contents), then its label sets,
// then its formats, each kind sorted by name so that the order is the same on every run.
// Hidden, system and read-only files count; other extensions don't appear. Paths are joined
// with "/".
class FileViewListing
{
public:
    enum class Kind { Folder = 1, LabelSet = 2, Format = 3 };

    struct Entry
    {
        QString name;
        QString path;
        // The containing folder's path; empty for what lies right in the root folder.
        QString parentPath;
        Kind kind;
    };

    // Raises when the root folder isn't there. A folder met a second time through a link is
    // listed but not walked again, so a link to an outer folder ends.
    static QList<Entry> list(const QString& rootFolder);
    // The tree key of an item: "ID" and its full path.
    static QString keyOf(const QString& path) { return QStringLiteral("ID") + path; }
};
