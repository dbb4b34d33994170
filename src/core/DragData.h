#pragma once

#include <QString>
#include <optional>

// What a drag over the tree carries, as the control reads it: a text, or nothing it knows.
struct DragData
{
    std::optional<QString> text;

    void clear() { text.reset(); }
};

// Drop effects as the platform counts them.
enum DropEffect { DropEffectNone = 0, DropEffectCopy = 1, DropEffectMove = 2 };

// Where a drag stands over the tree.
enum DragState { DragEnter = 0, DragLeave = 1, DragOver = 2 };
