#pragma once

#include "core/MemoryTreeView.h"

#include <QHash>
#include <QPoint>

// The memory view with what a test needs besides: items placed at points for the hit test,
// and a record of label edits, text writes and refreshes.
class FakeTreeView : public MemoryTreeView
{
public:
    void setItemText(const QString& key, const QString& text) override;
    QString hitTest(float x, float y) const override;
    void startLabelEdit(const QString& key) override { m_editedKey = key; }
    void refresh() override { ++m_refreshes; }

    void placeItemAt(int x, int y, const QString& key) { m_points.insert(QPoint(x, y), key); }
    const QString& editedKey() const { return m_editedKey; }
    int textWrites() const { return m_textWrites; }
    int refreshes() const { return m_refreshes; }

private:
    QHash<QPoint, QString> m_points;
    QString m_editedKey;
    int m_textWrites = 0;
    int m_refreshes = 0;
};
