#pragma once

#include "core/IPage.h"

#include <QString>

// The right-hand pane of the control, the splitter beside it and the two scroll bars: where
// the page of the selected node is shown. Sizes are in twips.
class IPagePane
{
public:
    virtual ~IPagePane() = default;

    // Creates a page of that class under that name, owned by the pane, puts it at the top
    // left of the frame and shows it. None when no page of that class can be made.
    virtual IPage* createPage(const QString& className, const QString& name) = 0;
    // The page of that name goes; nothing happens when there is none.
    virtual void removePage(const QString& name) = 0;
    // The back colour of the frame that holds the page, in the palette's colour form.
    virtual void setContainerBackColour(quint32 colour) = 0;
    // Shows or hides the pane that holds the frame.
    virtual void setPageParentVisible(bool visible) = 0;
    // Both scroll bars back to 0.
    virtual void resetScrollBars() = 0;
    // Shows or hides both scroll bars at once; the layout shows a bar again when the page
    // needs it.
    virtual void setScrollBarsVisible(bool visible) = 0;
    // Lays out the panes, the frame and the scroll bars for the present page and size.
    virtual void layout() = 0;

    // The tree pane's width, and the splitter's left edge as it was designed.
    virtual qint32 treeWidth() const = 0;
    virtual qint32 splitterLeft() const = 0;
    // Gives the tree pane that width, within the smallest widths of both panes.
    virtual void moveSplitter(qint32 position) = 0;
};
