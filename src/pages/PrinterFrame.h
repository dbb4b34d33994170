#pragma once

#include "core/IPage.h"

#include <QPointer>
#include <QSize>
#include <QWidget>

class ComponentHandler;
class PrinterStatusStrip;
class QStackedWidget;
class QTabBar;

// A printer's properties frame: the status strip on top, and a tab strip over the pages,
// all made with the frame and shown and hidden by the tabs. The frame checks the handler it
// is given, hands it to its pages, and keeps the strip current at every status change; each
// page follows the handler by itself. The kinds differ in their pages, in the rule that
// turns a tab's tag into a page, and in what else the frame keeps.
class PrinterFrame : public QWidget, public IPage
{
    Q_OBJECT

public:
    // A handler of another kind than the frame shows, or none, is refused with a type mismatch.
    void Setup(const QString& sName, ComponentHandler* oHandler) final;
    void m_Handler_StatusChanged();

protected:
    struct Tab
    {
        // Also the tab's tag.
        QString key;
        // 0: the caption stays as it is.
        qint32 captionId;
        QString caption;
    };

    // `tabStripName` is the strip's object name; the frame's own is its class name, by
    // which pages find it.
    PrinterFrame(const QString& tabStripName, bool bShowsTimeout, QWidget* parent);

    // Called once by the subclass's constructor, with every page of the frame.
    void addTabs(const QList<Tab>& tabs, const QList<QWidget*>& pages);
    // The frame's size as made: at least `designTwips`, room for the largest page, and
    // `roomBelowTabs` pixels under the tab strip for what the frame keeps there.
    void layOut(QSize designTwips, int roomBelowTabs = 0);

    virtual void setupPages(const QString& sName, ComponentHandler& handler) = 0;
    virtual void refreshGeneralPage(ComponentHandler& handler) = 0;
    // The page the tab with this tag shows; none changes nothing.
    virtual QWidget* pageForTag(const QString& tag) = 0;
    // The reason the printer doesn't answer, for the frames that tell one.
    virtual QString timeoutMessage(ComponentHandler&) const { return {}; }
    // The last step of a status change.
    virtual void statusChanged() {}
    // Places what the frame keeps beside the tab strip, after the strip has moved.
    virtual void placeAroundTabs() {}

    QString context(const char* routine) const;
    QWidget* tabSheet() const { return m_tabSheet; }
    QWidget* currentPage() const { return m_currentPage; }
    void resizeEvent(QResizeEvent* event) override;

    QPointer<ComponentHandler> m_Handler;

private:
    void tabClicked(int index);
    void showPage(QWidget* page);

    PrinterStatusStrip* m_statusStrip;
    QWidget* m_tabSheet;
    QTabBar* m_tabBar;
    QStackedWidget* m_pageArea;
    QList<Tab> m_tabs;
    QWidget* m_currentPage = nullptr;
    // What the frame keeps right of and below the tab strip, in pixels; -1 until Setup has
    // measured it, and until then a resize moves nothing.
    qint32 m_rightMargin = -1;
    qint32 m_bottomMargin = -1;
};
