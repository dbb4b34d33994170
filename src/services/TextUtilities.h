#pragma once

#include <QString>
#include <array>

// Paths here use the platform's separator, "/".

// The part after the last separator; the whole text when there is none.
QString GetFileName(const QString& path);
// The path with a separator at its end, unless it is empty or has one already.
QString GetSafePath(const QString& path);
// Replaces every occurrence of `find`, without regard to case; the search goes on behind
// each replacement, so a replacement that holds `find` isn't replaced again.
void ReplaceTokens(QString& text, const QString& find, const QString& with);
// Prepends `pad` once for every character the text is short of `width`.
QString PadLeft(const QString& text, const QString& pad, qint16 width);
// The characters from 1-based `first`, `last - first` of them, one more when inclusive.
QString MidRange(const QString& text, qint32 first, qint32 last, bool inclusive);
QString TrimCrLf(const QString& text);
QString TrimNul(const QString& text);
QString TrimControl(const QString& text);
// The value of the first complete line "FMT=..." of a print item's status text.
QString FindFormatName(const QString& statusText);
// "10.0.0.1" into four numbers; false at the first part that isn't a number, with the parts
// before it already stored.
bool ParseDottedQuad(const QString& text, std::array<qint32, 4>& parts);

bool IsGroupId(const QString& id);
bool IsPrinterId(const QString& id);
