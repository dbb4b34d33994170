#pragma once

#include <QString>
#include <QStringList>

// The tree of groups and printers as the window shows it. Items are known by key, the
// node's id; the view holds no data of its own beyond what is drawn. Points are in twips,
// the control's units.
class ITreeView
{
public:
    virtual ~ITreeView() = default;

    virtual void clear() = 0;
    // Adds an item below `parentKey`, or at the top when it is empty. False when the key is
    // taken or the parent is missing.
    virtual bool addItem(const QString& parentKey, const QString& key, const QString& text,
                         qint32 image) = 0;
    // The item goes with the items below it.
    virtual void removeItem(const QString& key) = 0;
    virtual bool hasItem(const QString& key) const = 0;
    // Every key, parents before their children.
    virtual QStringList keys() const = 0;
    // Empty for a top-level item or a missing one.
    virtual QString parentKey(const QString& key) const = 0;
    virtual QString itemText(const QString& key) const = 0;
    virtual void setItemText(const QString& key, const QString& text) = 0;
    virtual void setItemColours(const QString& key, quint32 background, quint32 text) = 0;
    // Empty when nothing is selected.
    virtual QString selectedKey() const = 0;
    virtual void selectItem(const QString& key) = 0;
    virtual void expandItem(const QString& key) = 0;
    // The key of the item at that point, or empty.
    virtual QString hitTest(float x, float y) const = 0;
    // Opens the in-place editor on the item's label; the edit ends in the control's
    // treePrinters_BeforeLabelEdit and treePrinters_AfterLabelEdit.
    virtual void startLabelEdit(const QString& key) = 0;
    // Marks the item a drag stands over; an empty key clears the mark.
    virtual void setDropHighlight(const QString& key) = 0;
    virtual void setVisible(bool visible) = 0;
    // Draws again what has changed.
    virtual void refresh() = 0;
    virtual void resetMousePointer() = 0;
};

// One item of the view, as GetTreeNode hands it out.
class TreeItem
{
public:
    TreeItem(ITreeView& view, QString key)
        : m_view(view)
        , m_key(std::move(key))
    {}

    const QString& Key() const { return m_key; }
    QString Text() const { return m_view.itemText(m_key); }
    void setText(const QString& text) { m_view.setItemText(m_key, text); }
    void setColours(quint32 background, quint32 text)
    {
        m_view.setItemColours(m_key, background, text);
    }

private:
    ITreeView& m_view;
    QString m_key;
};
