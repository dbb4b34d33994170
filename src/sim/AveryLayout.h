#pragma once

#include <QtGlobal>

// The widths of the status frame's fields: the short form of 22 bytes, and the long one of 40
// that the "H" models send.
struct AveryLayout
{
    qsizetype codeWidth;
    // Labels to print and free bytes alike.
    qsizetype numberWidth;
    qsizetype versionWidth;

    static constexpr AveryLayout shortForm() { return {2, 5, 2}; }
    static constexpr AveryLayout longForm() { return {4, 6, 16}; }
};
