#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// The texts that a drag of a node of the tree, and of a file of the file view, begins with.
inline const QString ComponentDragText = QStringLiteral("MSComponent");
inline const QString FileDragText = QStringLiteral("MSFileDir_");

// What a drag over the tree carries, as the control reads it: a text, a list of files from
// the desktop (full paths), or nothing it knows.
struct DragData
{
    std::optional<QString> text;
    std::optional<QStringList> files;

    void clear()
    {
        text.reset();
        files.reset();
    }
};

// Drop effects as the platform counts them.
enum DropEffect { DropEffectNone = 0, DropEffectCopy = 1, DropEffectMove = 2 };

// Where a drag stands over the tree.
enum DragState { DragEnter = 0, DragLeave = 1, DragOver = 2 };
