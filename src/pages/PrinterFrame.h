#pragma once

#include "core/IPage.h"

#include <QPointer>
#include <QSize>
#include <QWidget>
#include <functional>
#include <optional>

class ComponentHandler;
class PrinterStatusStrip;
class QTabWidget;
class SettingsWebLink;
class ctlGeneralPage;

// A printer's properties frame: the status strip on top, and a tab strip with the general
// page and, for the kinds that have a web page, a settings tab that shows it. It follows
// its handler's status changes. The kind tells which printers it serves and what it shows.
class PrinterFrame : public QWidget, public IPage
{
    Q_OBJECT

public:
    struct Kind
    {
        // The page the handler names (its GetControlName); a handler naming another is refused.
        QString controlName;
        qint32 generalCaptionId = 0;
        // Empty: no settings tab.
        QString settingsCaption;
        // In twips. None: the frame keeps its size, whatever the pane asks.
        std::optional<QSize> minimumSize;
        // The reason the printer doesn't answer, for the kinds that tell one.
        std::function<QString(ComponentHandler&)> timeoutMessage;
    };

    explicit PrinterFrame(Kind kind, QWidget* parent = nullptr);

    // A handler of another kind, or none, is refused with a type mismatch.
    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    std::optional<bool> DoResize(qint16 nWidth, qint16 nHeight) override;
    void m_Handler_StatusChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QString context(const char* routine) const;
    void TabStrip1_Click(int index);

    Kind m_kind;
    QPointer<ComponentHandler> m_Handler;
    PrinterStatusStrip* m_statusStrip;
    QTabWidget* m_TabStrip1;
    ctlGeneralPage* m_generalPage;
    SettingsWebLink* m_ctlSettingsWebBrowser = nullptr;
    // What the frame keeps around the tab strip, in pixels; -1 until Setup has measured it.
    qint32 m_rightMargin = -1;
    qint32 m_bottomMargin = -1;
};
