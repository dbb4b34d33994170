#include "pages/ControlRefresh.h"

#include <QListWidget>
#include <QPlainTextEdit>

void ShowText(QPlainTextEdit& box, const QString& text)
{
    if (box.toPlainText() != text)
        box.setPlainText(text);
}

void ShowLines(QListWidget& list, const QStringList& lines)
{
    QStringList shown;
    for (int row = 0; row < list.count(); ++row)
        shown.append(list.item(row)->text());
    if (shown == lines)
        return;
    const int selected = list.currentRow();
    list.clear();
    list.addItems(lines);
    if (selected >= 0 && selected < list.count())
        list.setCurrentRow(selected);
}
