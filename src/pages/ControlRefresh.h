#pragma once

#include <QStringList>

class QListWidget;
class QPlainTextEdit;

// Pages refresh at every poll. A control is rewritten only when what it shows has changed,
// so that a refresh doesn't throw away where the user has scrolled to or what is selected.

void ShowText(QPlainTextEdit& box, const QString& text);
// The selection stays on its row number, and goes when the row is no longer there.
void ShowLines(QListWidget& list, const QStringList& lines);
