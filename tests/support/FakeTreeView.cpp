#include "support/FakeTreeView.h"

void FakeTreeView::setItemText(const QString& key, const QString& text)
{
    if (hasItem(key))
        ++m_textWrites;
    MemoryTreeView::setItemText(key, text);
}

QString FakeTreeView::hitTest(float x, float y) const
{
    const QString key = m_points.value(QPoint(int(x), int(y)));
    return hasItem(key) ? key : QString();
}
