#pragma once

#include "core/IPage.h"

#include <QImage>
#include <QList>
#include <QPointer>
#include <QWidget>

class clsComponent;
class ctlShortcut;
class DragDelay;
class GroupHandler;
class QAction;
class QFileDialog;
class QLabel;
class QMenu;
class QMimeData;

// A group's dashboard: a free surface on which the user lays out a shortcut per printer over
// an optional background picture. Printers are dragged onto it from the tree; a shortcut is
// moved by dragging it after the drag delay, and removed by its menu or the Delete key. The
// layout and the background are the dashboard node's stored settings, saved with the tree.
class GroupUI : public QWidget, public IPage
{
    Q_OBJECT

public:
    // What a shortcut being moved carries; nothing outside the dashboard takes it.
    inline static const QString ShortcutMimeType =
        QStringLiteral("application/x-korvexvigil-shortcut");
    inline static const QString BackgroundSetting = QStringLiteral("Background");
    // An empty surface, in twips.
    static constexpr QSize EmptySurface{6600, 5280};
    // The farthest a shortcut may stand from the top left corner beyond the picture, in twips;
    // a stored place beyond it, or before the corner, is brought back into view.
    static constexpr int SurfaceLimit = 60000;

    explicit GroupUI(QWidget* parent = nullptr);
    ~GroupUI() override;

    // Anything but a group's handler is refused with a type mismatch.
    void Setup(const QString& sName, ComponentHandler* oHandler) override;
    // The surface fills the pane at least; it never shrinks below what it shows.
    std::optional<bool> DoResize(qint16 nWidth, qint16 nHeight) override;
    void m_Handler_StatusChanged();

    // The control array; element 0 exists from the start, hidden and free.
    const QList<ctlShortcut*>& shctPrinters() const { return m_shctPrinters; }
    // The shortcut standing for that printer, or none.
    ctlShortcut* FindShortcut(const QString& sID) const;
    const QString& backgroundPath() const { return m_sBackground; }
    // The surface's extent in twips: where its shortcuts and its picture reach.
    QSize extent() const { return m_extent; }

    // The named events of the surface and its shortcuts, public so that each can be driven.
    void mnuGroupCtx_Open_Click();
    void mnuGroupCtx_Clear_Click();
    void mnuBtn_Disable_Click();
    void mnuBtn_Replace_Click();
    void mnuBtn_Remove_Click();
    void mnuBtn_PrinterProperties_Click();
    void mnuBtn_StatusProperties_Click();
    void tmrDragDelay_Timer();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    // Moves the shortcut by the platform's drag and drop; the drop lands on this surface.
    virtual void beginShortcutDrag(ctlShortcut& element);

private:
    clsComponent* dashboardNode() const;
    clsComponent* printerNode(const QString& sID) const;
    // The shortcut that the last mouse event happened on.
    ctlShortcut* clickedShortcut() const;

    void PlaceShortcut(const QString& sID, double x, double y, bool centred, bool restoring);
    void RemoveShortcut(const QString& sID);
    void ApplyBackground(bool save);
    void RestoreLayout();
    void resizeSurface();
    ctlShortcut* freeElement();
    void unloadElement(ctlShortcut* element);
    // The shortcut's printer has left the tree: it goes, with its keys.
    void printerDeleted(const QString& sID);
    void saveDashboard();

    void shctPrinters_MouseDown(ctlShortcut* element, int button, int shift, QPointF point);
    void shctPrinters_MouseUp(ctlShortcut* element, int button, int shift, QPointF point);
    void shctPrinters_KeyDown(ctlShortcut* element, int keyCode);
    void shctPrinters_DblClick(ctlShortcut* element);
    void dropDraggedComponent() { m_oDraggedComponent.clear(); }
    // The id a drop of that data places, or empty when the surface refuses it.
    static QString droppedId(const QMimeData& data);
    void buildMenus();
    void replaceWith(const QString& sOldID, const QString& sNewID);

    QPointer<GroupHandler> m_Handler;
    QLabel* m_lblName;
    DragDelay* m_dragDelay;
    QFileDialog* m_dlgCommon;
    QMenu* m_mnuGroupCtx;
    QMenu* m_mnuBtn;
    QAction* m_mnuBtn_Disable;
    QList<ctlShortcut*> m_shctPrinters;
    QPointer<clsComponent> m_oDraggedComponent;
    QString m_sBackground;
    QImage m_picture;
    QSize m_extent = EmptySurface;
    QSize m_paneSize;
};
