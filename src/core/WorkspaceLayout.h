#pragma once

#include <QtGlobal>

// Where the tree, the splitter, the page pane, its frame and its scroll bars stand, worked out
// in twips as the control lays them out. The widget applies the result and converts units at
// its edge; this class holds no widget.
class WorkspaceLayout
{
public:
    // The largest value a scroll bar takes.
    static constexpr qint32 ScrollRangeLimit = 32767;

    struct Rect
    {
        float left = 0;
        float top = 0;
        float width = 0;
        float height = 0;

        bool operator==(const Rect&) const = default;
    };

    struct ScrollBar
    {
        bool visible = false;
        qint32 maximum = 0;
        qint16 largeChange = 0;
        qint32 value = 0;
        Rect rect;
    };

    // Fixed by the control's design and font.
    struct Design
    {
        float minPaneWidth = 0;
        float splitterWidth = 60;
        float hScrollHeight = 255;
        float vScrollWidth = 255;
    };

    explicit WorkspaceLayout(const Design& design, float treeWidth);

    // A size as a page takes it: whole twips in 16 bits. A pane wider than that, on a large
    // screen, counts as the widest a page can be told of rather than wrapping round.
    static qint16 toShortTwips(float twips);

    // The control's inner size changed: tree, splitter and page pane follow.
    void UserControl_Resize(float width, float height);
    // The tree pane takes that edge, within both panes' smallest widths.
    void MoveSplitter(float position);
    // A drag of the splitter with the left button (1) down moves the panes at once.
    void fSplitter_MouseMove(int button, float x);
    // The page pane's inner size changed, or a page came or went: the frame and the bars
    // follow. `page` is the page's size, or none.
    void frameCustomControlParent_Resize(const Rect* page, bool fileViewShowing);
    // Where the page stands for the bars' values.
    float pageLeft() const { return -float(m_hsbHoriz.value) * float(m_lHScrollStep); }
    float pageTop() const { return -float(m_vsbVert.value) * float(m_lVScrollStep); }
    void setScrollValues(qint32 horizontal, qint32 vertical);

    const Rect& tree() const { return m_tree; }
    const Rect& splitter() const { return m_splitter; }
    const Rect& pageParent() const { return m_pageParent; }
    const Rect& frame() const { return m_frame; }
    const ScrollBar& hsbHoriz() const { return m_hsbHoriz; }
    const ScrollBar& vsbVert() const { return m_vsbVert; }
    qint32 hScrollStep() const { return m_lHScrollStep; }
    qint32 vScrollStep() const { return m_lVScrollStep; }
    bool splitterMoving() const { return m_bSplitterMoving; }

private:
    // Whether a page of that extent needs a bar over a frame of that extent; with compute,
    // the bar's step, maximum and large change are set too.
    bool needsScroll(float frameExtent, float pageExtent, float frameWidth, bool compute,
                     qint32& step, ScrollBar& bar) const;

    Design m_design;
    float m_width = 0;
    float m_height = 0;
    Rect m_tree;
    Rect m_splitter;
    Rect m_pageParent;
    Rect m_frame;
    ScrollBar m_hsbHoriz;
    ScrollBar m_vsbVert;
    qint32 m_lHScrollStep = 1;
    qint32 m_lVScrollStep = 1;
    bool m_bSplitterMoving = false;
};
