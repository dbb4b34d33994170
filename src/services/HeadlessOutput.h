#pragma once

#include <QString>
#include <cstdio>

// What a program without a window shows instead of a window: one line on a stream, line
// breaks inside the text turned to blanks.
void WriteHeadlessLine(FILE* stream, const QString& text);
