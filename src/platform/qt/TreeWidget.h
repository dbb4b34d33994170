#pragma once

#include "core/DragData.h"
#include "platform/qt/Twips.h"

#include <QTreeWidget>
#include <functional>

// What the tree widget tells its owner, in the control's terms: buttons and shift keys as
// the platform numbers them, points in twips.
struct TreeHooks
{
    std::function<void(int button, int shift, float x, float y)> mouseDown;
    std::function<void(int button, int shift, float x, float y)> mouseUp;
    std::function<void(int button, int shift, float x, float y)> mouseMove;
    std::function<void(int keyCode, int shift)> keyDown;
    std::function<void(const QString& key)> nodeClick;
    std::function<void(DragData& data)> startDrag;
    std::function<void(const DragData& data, int& effect, float x, float y, int state)> dragOver;
    std::function<void(const DragData& data, float x, float y)> drop;
    std::function<void()> completeDrag;
};

// The tree on screen, handing its mouse, keyboard and drag events to the hooks. Only the
// hooks decide what a drop does; the widget moves nothing by itself.
class TreeWidget : public QTreeWidget
{
    Q_OBJECT

public:
    explicit TreeWidget(QWidget* parent = nullptr);

    void setHooks(TreeHooks hooks) { m_hooks = std::move(hooks); }
    const TreeHooks& hooks() const { return m_hooks; }

    // The platform's numbers: buttons 1 left, 2 right, 4 middle; shift 1, ctrl 2, alt 4.
    static int buttonsOf(Qt::MouseButtons buttons);
    static int shiftOf(Qt::KeyboardModifiers modifiers);
    // The platform's key code of a key: letters and digits as their character, F1 is 112.
    static int keyCodeOf(int qtKey);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void dragAt(QDropEvent* event, int state);
    template <typename Hook, typename... Args> void call(const Hook& hook, Args&&... args) const
    {
        if (hook)
            hook(std::forward<Args>(args)...);
    }

    TreeHooks m_hooks;
    // An item has been selected since the last press of the mouse: that press has had its
    // node click.
    bool m_pressSelected = false;
};
