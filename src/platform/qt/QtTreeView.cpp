#include "platform/qt/QtTreeView.h"

#include "core/ImageList.h"

#include <QSignalBlocker>

namespace {
constexpr int KeyRole = Qt::UserRole;
constexpr quint32 SystemColourBit = 0x80000000;

void appendKeys(const QTreeWidgetItem* item, QStringList& keys)
{
    keys.append(QtTreeView::keyOf(item));
    for (int child = 0; child < item->childCount(); ++child)
        appendKeys(item->child(child), keys);
}
} // namespace

QtTreeView::QtTreeView(QWidget* parent)
    : m_tree(parent)
{
    // A label is edited only when the control asks (a group's rename, a new group): neither a
    // key nor a click opens the editor.
    m_tree.setEditTriggers(QAbstractItemView::NoEditTriggers);
}

QIcon QtTreeView::iconOf(qint32 image)
{
    const ImageList::Picture* picture = m_images ? m_images->picture(image) : nullptr;
    if (!picture)
        return {};
    auto cached = m_icons.constFind(picture->path);
    if (cached == m_icons.constEnd())
        cached = m_icons.insert(picture->path, QIcon(picture->path));
    return *cached;
}

QString QtTreeView::keyOf(const QTreeWidgetItem* item)
{
    return item ? item->data(0, KeyRole).toString() : QString();
}

QColor QtTreeView::toColor(quint32 colour, const QPalette& palette)
{
    if (!(colour & SystemColourBit))
        return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
    switch (colour & 0xFF) {
    case 0x05:
        return palette.color(QPalette::Base);
    case 0x0F:
        return palette.color(QPalette::Button);
    case 0x11:
        return palette.color(QPalette::Disabled, QPalette::Text);
    case 0x12:
        return palette.color(QPalette::ButtonText);
    default:
        return palette.color(QPalette::Text);
    }
}

void QtTreeView::clear()
{
    m_tree.clear();
    m_items.clear();
}

bool QtTreeView::addItem(const QString& parentKey, const QString& key, const QString& text,
                         qint32 image)
{
    if (key.isEmpty() || m_items.contains(key))
        return false;
    QTreeWidgetItem* parent = parentKey.isEmpty() ? nullptr : m_items.value(parentKey);
    if (!parentKey.isEmpty() && !parent)
        return false;
    auto* added = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(&m_tree);
    showText(*added, text);
    added->setData(0, KeyRole, key);
    added->setIcon(0, iconOf(image));
    added->setFlags(added->flags() | Qt::ItemIsEditable | Qt::ItemIsDragEnabled |
                    Qt::ItemIsDropEnabled);
    m_items.insert(key, added);
    return true;
}

void QtTreeView::forget(QTreeWidgetItem* item)
{
    for (int child = 0; child < item->childCount(); ++child)
        forget(item->child(child));
    m_items.remove(keyOf(item));
}

void QtTreeView::removeItem(const QString& key)
{
    QTreeWidgetItem* found = m_items.value(key);
    if (!found)
        return;
    forget(found);
    delete found;
}

QStringList QtTreeView::keys() const
{
    QStringList all;
    for (int top = 0; top < m_tree.topLevelItemCount(); ++top)
        appendKeys(m_tree.topLevelItem(top), all);
    return all;
}

QString QtTreeView::parentKey(const QString& key) const
{
    const QTreeWidgetItem* found = m_items.value(key);
    return found ? keyOf(found->parent()) : QString();
}

QString QtTreeView::itemText(const QString& key) const
{
    const QTreeWidgetItem* found = m_items.value(key);
    return found ? found->text(0) : QString();
}

void QtTreeView::setItemText(const QString& key, const QString& text)
{
    if (QTreeWidgetItem* found = m_items.value(key))
        showText(*found, text);
}

// A narrow tree cuts a long alert off; the tooltip gives the whole of it.
void QtTreeView::showText(QTreeWidgetItem& item, const QString& text)
{
    item.setText(0, text);
    item.setToolTip(0, text);
}

void QtTreeView::setItemColours(const QString& key, quint32 background, quint32 text)
{
    QTreeWidgetItem* found = m_items.value(key);
    if (!found)
        return;
    found->setBackground(0, toColor(background, m_tree.palette()));
    found->setForeground(0, toColor(text, m_tree.palette()));
}

QString QtTreeView::selectedKey() const
{
    return keyOf(m_tree.currentItem());
}

void QtTreeView::selectItem(const QString& key)
{
    // The control shows the page itself when it selects; the widget's click is for the user's.
    const QSignalBlocker quiet(m_tree);
    if (QTreeWidgetItem* found = m_items.value(key))
        m_tree.setCurrentItem(found);
}

void QtTreeView::expandItem(const QString& key)
{
    if (QTreeWidgetItem* found = m_items.value(key))
        found->setExpanded(true);
}

QString QtTreeView::hitTest(float x, float y) const
{
    const QPoint pixels(toPixels(x), toPixels(y));
    return keyOf(m_tree.itemAt(pixels));
}

void QtTreeView::startLabelEdit(const QString& key)
{
    if (QTreeWidgetItem* found = m_items.value(key))
        m_tree.editItem(found, 0);
}

void QtTreeView::setDropHighlight(const QString& key)
{
    if (key == m_dropHighlight)
        return;
    if (QTreeWidgetItem* previous = m_items.value(m_dropHighlight))
        previous->setData(0, Qt::FontRole, QVariant());
    m_dropHighlight = key;
    if (QTreeWidgetItem* found = m_items.value(key)) {
        QFont bold = m_tree.font();
        bold.setBold(true);
        bold.setUnderline(true);
        found->setData(0, Qt::FontRole, bold);
    }
}

void QtTreeView::setVisible(bool visible)
{
    // Hidden while it is filled: one repaint at the end instead of one an item.
    m_tree.setUpdatesEnabled(visible);
}

void QtTreeView::refresh()
{
    m_tree.viewport()->update();
}

void QtTreeView::resetMousePointer()
{
    m_tree.unsetCursor();
}
