#include "platform/qt/TreeWidget.h"

#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

namespace {
DragData dragDataOf(const QMimeData* mime)
{
    DragData data;
    if (!mime)
        return data;
    // A file manager's files, as full paths; anything that isn't a local file has none, so
    // that it is refused.
    if (mime->hasUrls()) {
        QStringList files;
        for (const QUrl& url : mime->urls())
            files.append(url.toLocalFile());
        data.files = files;
    }
    if (mime->hasText())
        data.text = mime->text();
    return data;
}

Qt::DropAction actionOf(int effect)
{
    switch (effect) {
    case DropEffectCopy:
        return Qt::CopyAction;
    case DropEffectMove:
        return Qt::MoveAction;
    default:
        return Qt::IgnoreAction;
    }
}
} // namespace

TreeWidget::TreeWidget(QWidget* parent)
    : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setColumnCount(1);
    // Every row is one line of text: the view can then place an item without measuring all
    // those above it, which a recolour of thousands of printers a cycle needs.
    setUniformRowHeights(true);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setDragDropMode(QAbstractItemView::DragDrop);
    // A press that selects an item is its node click; the click that follows it is not
    // another, or a group would build its page twice.
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* current) {
        if (!current)
            return;
        m_pressSelected = true;
        call(m_hooks.nodeClick, current->data(0, Qt::UserRole).toString());
    });
    // A click on the item already selected is a click too: a group builds its page anew.
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        if (item == currentItem() && !m_pressSelected)
            call(m_hooks.nodeClick, item->data(0, Qt::UserRole).toString());
    });
}

int TreeWidget::buttonsOf(Qt::MouseButtons buttons)
{
    return (buttons & Qt::LeftButton ? 1 : 0) | (buttons & Qt::RightButton ? 2 : 0) |
           (buttons & Qt::MiddleButton ? 4 : 0);
}

int TreeWidget::shiftOf(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

int TreeWidget::keyCodeOf(int qtKey)
{
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24)
        return 112 + (qtKey - Qt::Key_F1);
    if ((qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) || (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z))
        return qtKey;
    switch (qtKey) {
    case Qt::Key_Delete:
        return 46;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Escape:
        return 27;
    default:
        return 0;
    }
}

void TreeWidget::mousePressEvent(QMouseEvent* event)
{
    call(m_hooks.mouseDown, buttonsOf(event->button()), shiftOf(event->modifiers()),
         toTwips(event->position().x()), toTwips(event->position().y()));
    // The right button only opens a menu: the selection, which the menus act on, stays.
    if (event->button() == Qt::RightButton)
        return;
    m_pressSelected = false;
    QTreeWidget::mousePressEvent(event);
}

void TreeWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::RightButton)
        QTreeWidget::mouseReleaseEvent(event);
    call(m_hooks.mouseUp, buttonsOf(event->button()), shiftOf(event->modifiers()),
         toTwips(event->position().x()), toTwips(event->position().y()));
}

void TreeWidget::mouseMoveEvent(QMouseEvent* event)
{
    call(m_hooks.mouseMove, buttonsOf(event->buttons()), shiftOf(event->modifiers()),
         toTwips(event->position().x()), toTwips(event->position().y()));
    QTreeWidget::mouseMoveEvent(event);
}

void TreeWidget::keyPressEvent(QKeyEvent* event)
{
    if (const int code = keyCodeOf(event->key()))
        call(m_hooks.keyDown, code, shiftOf(event->modifiers()));
    QTreeWidget::keyPressEvent(event);
}

void TreeWidget::startDrag(Qt::DropActions)
{
    DragData data;
    call(m_hooks.startDrag, data);
    if (data.text) {
        auto* mime = new QMimeData;
        mime->setText(*data.text);
        auto* drag = new QDrag(this);
        drag->setMimeData(mime);
        drag->exec(Qt::MoveAction | Qt::CopyAction);
    }
    call(m_hooks.completeDrag);
}

void TreeWidget::dragAt(QDropEvent* event, int state)
{
    int effect = DropEffectNone;
    // Item views get their events in the viewport's coordinates.
    const QPointF point = event->position();
    call(m_hooks.dragOver, dragDataOf(event->mimeData()), effect, toTwips(point.x()),
         toTwips(point.y()), state);
    const Qt::DropAction action = actionOf(effect);
    if (action == Qt::IgnoreAction) {
        event->ignore();
        return;
    }
    event->setDropAction(action);
    event->accept();
}

void TreeWidget::dragEnterEvent(QDragEnterEvent* event)
{
    dragAt(event, DragEnter);
    // The enter must be taken, or no move events follow to say where a drop may go.
    event->accept();
}

void TreeWidget::dragMoveEvent(QDragMoveEvent* event)
{
    dragAt(event, DragOver);
}

void TreeWidget::dragLeaveEvent(QDragLeaveEvent* event)
{
    int effect = DropEffectNone;
    call(m_hooks.dragOver, DragData{}, effect, -1.0f, -1.0f, DragLeave);
    event->accept();
}

void TreeWidget::dropEvent(QDropEvent* event)
{
    const QPointF point = event->position();
    call(m_hooks.drop, dragDataOf(event->mimeData()), toTwips(point.x()), toTwips(point.y()));
    // The model is the control's business: nothing is moved by the widget itself.
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
}
