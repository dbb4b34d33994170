#pragma once

#include "core/ComponentHandler.h"
#include "pages/HandlerMismatch.h"
#include "services/ErrorBox.h"

#include <QPointer>
#include <QWidget>

class clsComponent;

// The printer's node in the tree; none once it is gone. Printers are named after their
// queues, one node each.
clsComponent* PrinterNode(const ComponentHandler& handler);

// Sets the text of a label, a button, a check box or a frame to the catalogue's message,
// or to `fallback` when the catalogue has none.
void Caption(QWidget& control, qint32 messageId, const QString& fallback);

// A tab of a printer's properties frame. A page follows its handler's status changes by
// itself, whatever the frame and the other pages do, and is made and placed by its frame.
class PrinterPage : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    // Ties the page to its handler; `sName` is the node's name, which few pages read.
    virtual void Setup(const QString& sName, ComponentHandler* oHandler) = 0;
    virtual void m_Handler_StatusChanged() = 0;

protected:
    // "<page class> - <routine>", the context of the page's error traps.
    QString context(const char* routine) const;
    // Tells the frame the page stands on that what it may apply has changed. The frame is
    // the first parent of the class the handler names; without one nothing is asked.
    void askOwnerToCheckApply(const ComponentHandler& handler) const;
};

// A page that shows one kind of handler.
template <typename Handler> class HandlerPage : public PrinterPage
{
public:
    using PrinterPage::PrinterPage;

protected:
    enum class Follow { StatusChanges, Nothing };

    // Takes the handler and, unless told otherwise, refreshes at each of its status changes;
    // a handler of another kind, or none, is refused.
    Handler& bind(ComponentHandler* oHandler, Follow follow = Follow::StatusChanges)
    {
        auto* typed = qobject_cast<Handler*>(oHandler);
        if (!typed)
            throw HandlerMismatch(QLatin1String(metaObject()->className()), oHandler);
        if (m_Handler)
            m_Handler->disconnect(this);
        m_Handler = typed;
        if (follow == Follow::StatusChanges)
            connect(typed, &ComponentHandler::StatusChanged, this, [this] {
                RunTrapped(context("m_Handler_StatusChanged"), [this] { m_Handler_StatusChanged(); });
            });
        return *typed;
    }

    QPointer<Handler> m_Handler;
};
