#include "core/WorkspaceLayout.h"

#include <QtMath>
#include <algorithm>
#include <limits>

namespace {
float atLeastZero(float value)
{
    return std::max(0.0f, value);
}
} // namespace

WorkspaceLayout::WorkspaceLayout(const Design& design, float treeWidth)
    : m_design(design)
{
    m_tree.width = treeWidth;
    m_splitter.left = treeWidth;
    m_splitter.width = design.splitterWidth;
}

qint16 WorkspaceLayout::toShortTwips(float twips)
{
    return qint16(std::clamp<qint64>(qRound64(twips), 0, std::numeric_limits<qint16>::max()));
}

void WorkspaceLayout::UserControl_Resize(float width, float height)
{
    m_width = width;
    m_height = height;
    m_splitter.top = 0;
    m_splitter.height = height;
    m_tree.top = 0;
    m_tree.left = 0;
    m_tree.height = atLeastZero(height - m_tree.top);
    m_pageParent.top = 0;
    m_pageParent.left = atLeastZero(m_tree.width + m_tree.left + m_splitter.width);
    m_pageParent.height = atLeastZero(height - m_pageParent.top);
    // The pane stops one splitter's width short of the right edge.
    m_pageParent.width = atLeastZero(width - (m_pageParent.left + m_splitter.width));
}

void WorkspaceLayout::MoveSplitter(float position)
{
    const float wanted = std::max(position - m_tree.left, m_design.minPaneWidth);
    const float room = m_width - (m_splitter.width + m_design.minPaneWidth);
    m_tree.width = std::min(wanted, room);
    m_splitter.left = m_tree.left + m_tree.width;
    UserControl_Resize(m_width, m_height);
}

void WorkspaceLayout::fSplitter_MouseMove(int button, float x)
{
    m_bSplitterMoving = button == 1;
    if (m_bSplitterMoving)
        MoveSplitter(m_splitter.left + x);
}

bool WorkspaceLayout::needsScroll(float frameExtent, float pageExtent, float frameWidth,
                                  bool compute, qint32& step, ScrollBar& bar) const
{
    step = 1;
    if (pageExtent <= frameExtent)
        return false;
    if (!compute)
        return true;
    qint32 s = 1;
    qint64 m = qRound64((pageExtent - frameExtent) / float(s));
    while (m >= 32768) {
        ++s;
        m = qRound64((pageExtent - frameExtent) / float(s));
    }
    if (frameExtent < float(s)) {
        step = qRound(frameExtent);
        bar.maximum = ScrollRangeLimit;
    } else {
        step = s;
        bar.maximum = qint32(m);
    }
    // A tenth of the frame's width in both bars.
    bar.largeChange = qint16(qRound((frameExtent - frameWidth / 10) / float(std::max(step, 1))));
    return true;
}

void WorkspaceLayout::frameCustomControlParent_Resize(const Rect* page, bool fileViewShowing)
{
    const float width = float(toShortTwips(m_pageParent.width));
    const float height = float(toShortTwips(m_pageParent.height));
    m_frame = {0, 0, atLeastZero(width), atLeastZero(height)};
    qint32 ignoredStep = 1;
    if (!fileViewShowing) {
        if (page && needsScroll(m_frame.width, page->width, m_frame.width, false, ignoredStep,
                                m_hsbHoriz)) {
            m_frame.height = atLeastZero(height - m_design.hScrollHeight);
            m_hsbHoriz.visible = true;
        } else {
            m_hsbHoriz.visible = false;
            m_hsbHoriz.value = 0;
        }
        if (page && needsScroll(m_frame.height, page->height, m_frame.width, false, ignoredStep,
                                m_vsbVert)) {
            m_frame.width = atLeastZero(width - m_design.vScrollWidth);
            m_vsbVert.visible = true;
        } else {
            m_vsbVert.visible = false;
            m_vsbVert.value = 0;
        }
    }
    // The ranges, on the frame as it now stands.
    m_lVScrollStep = 1;
    m_lHScrollStep = 1;
    if (page) {
        needsScroll(m_frame.height, page->height, m_frame.width, true, m_lVScrollStep, m_vsbVert);
        needsScroll(m_frame.width, page->width, m_frame.width, true, m_lHScrollStep, m_hsbHoriz);
    }
    m_vsbVert.rect = {atLeastZero(m_frame.width + m_frame.left), 0, m_design.vScrollWidth,
                      m_hsbHoriz.visible ? atLeastZero(height - m_design.hScrollHeight)
                                         : atLeastZero(height)};
    m_hsbHoriz.rect = {0, atLeastZero(m_frame.height + m_frame.top),
                       m_vsbVert.visible ? atLeastZero(width - m_design.vScrollWidth)
                                         : atLeastZero(width),
                       m_design.hScrollHeight};
}

void WorkspaceLayout::setScrollValues(qint32 horizontal, qint32 vertical)
{
    m_hsbHoriz.value = horizontal;
    m_vsbVert.value = vertical;
}
