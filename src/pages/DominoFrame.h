#pragma once

#include "pages/PrinterFrame.h"

class PrinterPage;
class QPushButton;

// The frame of a Domino coder: its tabs, the reason the coder doesn't answer on the strip,
// and apply and cancel buttons under the tab strip, made disabled.
class DominoFrame : public PrinterFrame
{
    Q_OBJECT

protected:
    // A tab's page by name: the tag is searched for each name in turn, so a longer name
    // comes before a name that begins it ("ctlDominoCPage3_1" before "ctlDominoCPage3").
    struct PageName
    {
        QString name;
        QWidget* page;
    };

    explicit DominoFrame(QWidget* parent);

    // The tabs, their pages in tab order, the order of the tag search, and the pages that
    // take the handler at Setup, in the order they take it.
    void addPages(const QList<Tab>& tabs, const QList<PageName>& searchOrder,
                  const QList<QWidget*>& pages, const QList<PrinterPage*>& setupOrder);
    void setupPages(const QString& sName, ComponentHandler& handler) override;
    QWidget* pageForTag(const QString& tag) override;
    QString timeoutMessage(ComponentHandler& handler) const override;
    void placeAroundTabs() override;

    QPushButton* m_cmdApply;
    QPushButton* m_cmdCancel;

private:
    QSize buttonSize() const;

    QList<PageName> m_searchOrder;
    QList<PrinterPage*> m_setupOrder;
};
