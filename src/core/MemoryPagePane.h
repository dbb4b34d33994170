#pragma once

#include "core/IPagePane.h"

#include <QHash>
#include <QStringList>
#include <memory>

// The page pane of a program without a window: pages are made through the page factory
// where their class is registered and are otherwise blank, and the pane keeps what a window
// would show, so that a headless run and a test can read it.
class MemoryPagePane : public IPagePane
{
public:
    static constexpr qint32 DesignSplit = 3000;

    IPage* createPage(const QString& className, const QString& name) override;
    void removePage(const QString& name) override;
    void setContainerBackColour(quint32 colour) override { m_containerBackColour = colour; }
    void setPageParentVisible(bool visible) override { m_bPageParentVisible = visible; }
    void resetScrollBars() override { ++m_scrollBarResets; }
    void setScrollBarsVisible(bool visible) override { m_bScrollBarsVisible = visible; }
    void layout() override { ++m_layouts; }
    qint32 treeWidth() const override { return m_treeWidth; }
    qint32 splitterLeft() const override { return DesignSplit; }
    void moveSplitter(qint32 position) override { m_treeWidth = position; }

    // The names of the pages now in the pane, and the class each was made of.
    QStringList pageNames() const { return m_pages.keys(); }
    QString pageClass(const QString& name) const;
    IPage* page(const QString& name) const;
    quint32 containerBackColour() const { return m_containerBackColour; }
    bool isPageParentVisible() const { return m_bPageParentVisible; }
    bool areScrollBarsVisible() const { return m_bScrollBarsVisible; }
    int layouts() const { return m_layouts; }
    int scrollBarResets() const { return m_scrollBarResets; }

private:
    struct ShownPage
    {
        QString className;
        std::shared_ptr<IPage> page;
    };

    QHash<QString, ShownPage> m_pages;
    quint32 m_containerBackColour = 0;
    bool m_bPageParentVisible = false;
    bool m_bScrollBarsVisible = true;
    qint32 m_treeWidth = DesignSplit;
    int m_layouts = 0;
    int m_scrollBarResets = 0;
};
