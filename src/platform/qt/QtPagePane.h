#pragma once

#include "core/IPagePane.h"
#include "core/WorkspaceLayout.h"
#include "platform/qt/SplitterBar.h"

#include <QPointer>
#include <QScrollBar>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

// The control's surface: the tree on the left, the splitter, and on the right the frame that
// shows the selected node's page with a scroll bar each way when the page is larger than
// the room. Every place and size is worked out in twips by the workspace layout and turned
// into pixels here.
class QtPagePane : public QWidget, public IPagePane
{
    Q_OBJECT

public:
    // The design's width of the tree pane.
    static constexpr qint32 DesignSplit = 4800;

    struct Hooks
    {
        // The pane's inner size changed: a page that stretches takes it (twips).
        std::function<void(qint16 width, qint16 height)> resizeComponent;
        std::function<bool()> fileViewShowing;
    };

    QtPagePane(QWidget& tree, QWidget* parent = nullptr);
    ~QtPagePane() override;

    void setHooks(Hooks hooks) { m_hooks = std::move(hooks); }

    IPage* createPage(const QString& className, const QString& name) override;
    void removePage(const QString& name) override;
    void setContainerBackColour(quint32 colour) override;
    void setPageParentVisible(bool visible) override;
    void resetScrollBars() override;
    void setScrollBarsVisible(bool visible) override;
    void layout() override;
    qint32 treeWidth() const override;
    qint32 splitterLeft() const override { return DesignSplit; }
    void moveSplitter(qint32 position) override;

    const WorkspaceLayout& workspace() const { return m_layout; }
    QScrollBar& hsbHoriz() { return m_hsbHoriz; }
    QScrollBar& vsbVert() { return m_vsbVert; }
    QWidget* pageWidget() const { return m_pageWidget; }
    QWidget& frameControlContainer() { return m_frameControlContainer; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    // A page that changes its own size, as a dashboard that grows, gets its bars at once.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fSplitter_MouseMove(int button, float x);
    // Places the tree, the splitter and the pane; then the frame, the bars and the page.
    void applyControlLayout();
    void frameCustomControlParent_Resize();
    void hsbHoriz_Change();
    void vsbVert_Change();
    void placePage();
    static WorkspaceLayout::Design designFor(const QWidget& widget);

    Hooks m_hooks;
    QWidget& m_tree;
    SplitterBar m_fSplitter;
    QWidget m_frameCustomControlParent;
    QWidget m_frameControlContainer;
    QScrollBar m_hsbHoriz;
    QScrollBar m_vsbVert;
    WorkspaceLayout m_layout;
    // A split asked for before the control had a size waits for the first one.
    bool m_bSized = false;
    std::optional<qint32> m_pendingSplit;
    bool m_bScrollBarsVisible = true;
    bool m_bPlacingFrame = false;

    std::unique_ptr<IPage> m_page;
    QPointer<QWidget> m_pageWidget;
    QString m_pageName;
};
