#include "dashboard/GroupUI.h"

#include "core/AddInControl.h"
#include "core/DragData.h"
#include "core/Globals.h"
#include "core/GroupHandler.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "dashboard/BackgroundPicture.h"
#include "dashboard/DragDelay.h"
#include "dashboard/ShortcutKeys.h"
#include "dashboard/ctlShortcut.h"
#include "pages/HandlerMismatch.h"
#include "platform/qt/Twips.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"
#include "services/TextUtilities.h"

#include <QCoreApplication>
#include <QDrag>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

namespace {
constexpr int Margin = 8;
constexpr int LeftButton = 1;
constexpr int RightButton = 2;
constexpr qint32 LargeIcon = 3;

} // namespace

GroupUI::GroupUI(QWidget* parent)
    : QWidget(parent)
    , m_lblName(new QLabel(QStringLiteral("group name"), this))
    , m_dragDelay(new DragDelay(this))
    , m_dlgCommon(new QFileDialog(this))
    , m_mnuGroupCtx(new QMenu(this))
    , m_mnuBtn(new QMenu(this))
{
    setObjectName(QStringLiteral("GroupUI"));
    setAcceptDrops(true);
    setAutoFillBackground(true);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, colours.color(QPalette::Base));
    setPalette(colours);
    resize(toPixels(EmptySurface.width()), toPixels(EmptySurface.height()));

    m_lblName->setObjectName(QStringLiteral("lblName"));
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(12);
    font.setBold(true);
    m_lblName->setFont(font);
    m_lblName->move(Margin, Margin);
    m_lblName->adjustSize();

    m_dlgCommon->setObjectName(QStringLiteral("dlgCommon"));
    m_dlgCommon->setWindowTitle(QStringLiteral("Open Background"));
    m_dlgCommon->setNameFilters({QStringLiteral("Pictures (*.bmp *.jpg *.jpeg *.gif *.png)"),
                                 QStringLiteral("All files (*)")});
    m_dlgCommon->setFileMode(QFileDialog::ExistingFile);
    m_dlgCommon->setOption(QFileDialog::DontUseNativeDialog);

    connect(m_dragDelay, &DragDelay::begin, this, [this] {
        if (!m_oDraggedComponent)
            return;
        if (ctlShortcut* element = FindShortcut(m_oDraggedComponent->m_sID))
            beginShortcutDrag(*element);
    });
    connect(m_dragDelay, &DragDelay::cancel, this, &GroupUI::dropDraggedComponent);
    buildMenus();
    // Element 0 is there from the start, hidden and free.
    freeElement()->hide();
}

GroupUI::~GroupUI() = default;

void GroupUI::buildMenus()
{
    m_mnuGroupCtx->setObjectName(QStringLiteral("mnuGroupCtx"));
    m_mnuGroupCtx->setTitle(GetMessage(410, QStringLiteral("background")));
    const auto item = [this](QMenu* menu, const char* name, qint32 id, const char* caption,
                             void (GroupUI::*click)()) {
        QAction* action = menu->addAction(GetMessage(id, QLatin1String(caption)));
        action->setObjectName(QLatin1String(name));
        connect(action, &QAction::triggered, this, click);
        return action;
    };
    item(m_mnuGroupCtx, "mnuGroupCtx_Open", 411, "&open background...",
         &GroupUI::mnuGroupCtx_Open_Click);
    item(m_mnuGroupCtx, "mnuGroupCtx_Clear", 412, "&clear", &GroupUI::mnuGroupCtx_Clear_Click);

    m_mnuBtn->setObjectName(QStringLiteral("mnuBtn"));
    m_mnuBtn->setTitle(GetMessage(413, QStringLiteral("button")));
    m_mnuBtn_Disable =
        item(m_mnuBtn, "mnuBtn_Disable", 414, "&disabled", &GroupUI::mnuBtn_Disable_Click);
    m_mnuBtn_Disable->setCheckable(true);
    item(m_mnuBtn, "mnuBtn_Replace", 418, "r&eplace", &GroupUI::mnuBtn_Replace_Click);
    item(m_mnuBtn, "mnuBtn_Remove", 417, "re&move", &GroupUI::mnuBtn_Remove_Click);
    item(m_mnuBtn, "mnuBtn_PrinterProperties", 416, "&printer properties",
         &GroupUI::mnuBtn_PrinterProperties_Click);
    // Kept on the menu, hidden: the alarms are on the printer's own page.
    QAction* listAlarms = m_mnuBtn->addAction(GetMessage(415, QStringLiteral("&list alarms")));
    listAlarms->setObjectName(QStringLiteral("mnuBtn_ListAlarms"));
    listAlarms->setVisible(false);
    item(m_mnuBtn, "mnuBtn_StatusProperties", 419, "&status properties",
         &GroupUI::mnuBtn_StatusProperties_Click);
}

void GroupUI::Setup(const QString&, ComponentHandler* oHandler)
{
    auto* handler = qobject_cast<GroupHandler*>(oHandler);
    if (!handler)
        throw HandlerMismatch(QStringLiteral("GroupUI"), oHandler);
    if (m_Handler)
        m_Handler->disconnect(this);
    m_Handler = handler;
    connect(handler, &ComponentHandler::StatusChanged, this, &GroupUI::m_Handler_StatusChanged);
    m_Handler_StatusChanged();
    if (clsComponent* dashboard = dashboardNode())
        dashboard->GetStoredSetting(BackgroundSetting, m_sBackground);
    ApplyBackground(false);
    RestoreLayout();
    m_dragDelay->NoteMouse(nullptr, 0, 0, {}, true);
}

void GroupUI::m_Handler_StatusChanged()
{
    if (!m_Handler)
        return;
    m_lblName->setText(m_Handler->m_sName);
    m_lblName->adjustSize();
}

clsComponent* GroupUI::dashboardNode() const
{
    return m_Handler ? m_Handler->node() : nullptr;
}

clsComponent* GroupUI::printerNode(const QString& sID) const
{
    auto* node =
        m_Handler ? dynamic_cast<clsComponent*>(m_Handler->RequestComponent(sID)) : nullptr;
    return node && !node->m_bIsGLVComponent ? node : nullptr;
}

ctlShortcut* GroupUI::FindShortcut(const QString& sID) const
{
    for (ctlShortcut* element : m_shctPrinters)
        if (element->tag() == sID)
            return element;
    return nullptr;
}

ctlShortcut* GroupUI::clickedShortcut() const
{
    return qobject_cast<ctlShortcut*>(m_dragDelay->lastMouse().control);
}

ctlShortcut* GroupUI::freeElement()
{
    if (!m_shctPrinters.isEmpty() && m_shctPrinters.last()->tag().isEmpty())
        return m_shctPrinters.last();
    auto* element = new ctlShortcut(this);
    m_shctPrinters.append(element);
    connect(element, &ctlShortcut::MouseDown, this,
            [this, element](int button, int shift, QPointF point) {
                shctPrinters_MouseDown(element, button, shift, point);
            });
    connect(element, &ctlShortcut::MouseMove, this,
            [this, element](int button, int shift, QPointF point) {
                m_dragDelay->NoteMouse(element, button, shift, point, false);
            });
    connect(element, &ctlShortcut::MouseUp, this,
            [this, element](int button, int shift, QPointF point) {
                shctPrinters_MouseUp(element, button, shift, point);
            });
    connect(element, &ctlShortcut::KeyDown, this,
            [this, element](int keyCode, int) { shctPrinters_KeyDown(element, keyCode); });
    connect(element, &ctlShortcut::DblClick, this,
            [this, element] { shctPrinters_DblClick(element); });
    connect(element, &ctlShortcut::ComponentGone, this,
            [this, element] { printerDeleted(element->tag()); });
    return element;
}

void GroupUI::PlaceShortcut(const QString& sID, double x, double y, bool centred, bool restoring)
{
    clsComponent* node = printerNode(sID);
    clsComponent* dashboard = dashboardNode();
    if (!node || !dashboard)
        return;
    ctlShortcut* element = FindShortcut(sID);
    if (!element) {
        element = freeElement();
        element->setComponent(node);
    }
    element->hide();
    double left = centred ? x - toTwips(element->width()) / 2 : x;
    double top = centred ? y - toTwips(element->height()) / 2 : y;
    // A place before the top left corner or far beyond the picture is brought into view.
    const double rightmost =
        std::max(SurfaceLimit, m_picture.width() * TwipsPerPixel) - toTwips(element->width());
    const double lowest =
        std::max(SurfaceLimit, m_picture.height() * TwipsPerPixel) - toTwips(element->height());
    left = std::clamp(left, 0.0, rightmost);
    top = std::clamp(top, 0.0, lowest);
    element->move(toPixels(left), toPixels(top));
    element->setTag(sID);
    element->setPicture(node->GetIcon(LargeIcon));
    element->show();
    element->raise();
    update();
    node->RegisterGLV(dashboard->m_sID);
    const QRect placed = element->geometry();
    ShortcutKeys(*dashboard)
        .write(sID, QRect(placed.x() * TwipsPerPixel, placed.y() * TwipsPerPixel,
                          placed.width() * TwipsPerPixel, placed.height() * TwipsPerPixel));
    if (restoring)
        return;
    resizeSurface();
    m_Handler_StatusChanged();
    saveDashboard();
}

void GroupUI::RemoveShortcut(const QString& sID)
{
    ctlShortcut* element = FindShortcut(sID);
    clsComponent* dashboard = dashboardNode();
    if (!element || !dashboard)
        return;
    if (clsComponent* node = printerNode(sID))
        node->UnregisterGLV(dashboard->m_sID);
    ShortcutKeys(*dashboard).remove(sID);
    unloadElement(element);
    saveDashboard();
}

void GroupUI::unloadElement(ctlShortcut* element)
{
    element->hide();
    element->setComponent(nullptr);
    element->setTag(QString());
    if (element == m_shctPrinters.first())
        return;
    m_shctPrinters.removeOne(element);
    // The element may be in the middle of its own event.
    element->deleteLater();
}

void GroupUI::printerDeleted(const QString& sID)
{
    if (!g_bExiting && !sID.isEmpty())
        RemoveShortcut(sID);
}

void GroupUI::saveDashboard()
{
    if (clsComponent* dashboard = dashboardNode())
        dashboard->SaveAll();
}

void GroupUI::RestoreLayout()
{
    clsComponent* dashboard = dashboardNode();
    if (!dashboard)
        return;
    const ShortcutKeys keys(*dashboard);
    for (const QString& id : keys.ids()) {
        if (FindShortcut(id))
            continue;
        // A printer that has left the tree takes its keys with it.
        if (!printerNode(id)) {
            keys.remove(id);
            continue;
        }
        const QPoint place = keys.topLeft(id);
        PlaceShortcut(id, place.x(), place.y(), false, true);
    }
    m_Handler_StatusChanged();
    saveDashboard();
    resizeSurface();
}

void GroupUI::ApplyBackground(bool save)
{
    m_picture = BackgroundPicture::load(m_sBackground);
    update();
    clsComponent* dashboard = dashboardNode();
    if (save && dashboard) {
        dashboard->AddStoredSetting(BackgroundSetting, m_sBackground);
        saveDashboard();
    }
    resizeSurface();
}

void GroupUI::resizeSurface()
{
    int right = -1;
    int bottom = -1;
    for (const ctlShortcut* element : std::as_const(m_shctPrinters)) {
        if (element->isHidden())
            continue;
        right = std::max(right, (element->x() + element->width()) * TwipsPerPixel);
        bottom = std::max(bottom, (element->y() + element->height()) * TwipsPerPixel);
    }
    if (right < 0)
        right = EmptySurface.width();
    if (bottom < 0)
        bottom = EmptySurface.height();
    // With a picture the surface takes the picture's size; without one it only grows.
    const QSize base = m_picture.isNull() ? m_extent : m_picture.size() * TwipsPerPixel;
    m_extent = QSize(std::max(right, base.width()), std::max(bottom, base.height()));
    resize(std::max(toPixels(m_extent.width()), m_paneSize.width()),
           std::max(toPixels(m_extent.height()), m_paneSize.height()));
}

std::optional<bool> GroupUI::DoResize(qint16 nWidth, qint16 nHeight)
{
    m_paneSize = QSize(toPixels(nWidth), toPixels(nHeight));
    resizeSurface();
    return true;
}

void GroupUI::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (m_picture.isNull())
        return;
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), m_picture);
}

void GroupUI::mnuGroupCtx_Open_Click()
{
    if (!m_sBackground.isEmpty())
        m_dlgCommon->selectFile(m_sBackground);
    if (m_dlgCommon->exec() != QDialog::Accepted || m_dlgCommon->selectedFiles().isEmpty())
        return;
    m_sBackground = m_dlgCommon->selectedFiles().first();
    ApplyBackground(true);
}

void GroupUI::mnuGroupCtx_Clear_Click()
{
    m_sBackground.clear();
    ApplyBackground(true);
}

void GroupUI::mousePressEvent(QMouseEvent* event)
{
    m_dragDelay->NoteMouse(this, ButtonCode(event->button()), ShiftCode(event->modifiers()),
                           event->position(), false);
}

void GroupUI::mouseMoveEvent(QMouseEvent* event)
{
    m_dragDelay->NoteMouse(this, ButtonCode(event->buttons()), ShiftCode(event->modifiers()),
                           event->position(), false);
}

void GroupUI::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragDelay->NoteMouse(this, 0, ShiftCode(event->modifiers()), event->position(), false);
    if (ButtonCode(event->button()) == RightButton)
        m_mnuGroupCtx->popup(event->globalPosition().toPoint());
}

void GroupUI::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (ButtonCode(event->button()) == LeftButton)
        mnuGroupCtx_Open_Click();
}

QString GroupUI::droppedId(const QMimeData& data)
{
    if (!data.hasText() || !data.text().startsWith(ComponentDragText))
        return {};
    const QString id = data.text().mid(ComponentDragText.size()).trimmed();
    return IsPrinterId(id) ? id : QString();
}

void GroupUI::dragEnterEvent(QDragEnterEvent* event)
{
    dragMoveEvent(event);
}

void GroupUI::dragMoveEvent(QDragMoveEvent* event)
{
    const QMimeData& data = *event->mimeData();
    if (data.hasFormat(ShortcutMimeType)) {
        event->setDropAction(Qt::MoveAction);
        event->accept();
    } else if (!droppedId(data).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    } else {
        event->setDropAction(Qt::IgnoreAction);
        event->ignore();
    }
}

void GroupUI::dropEvent(QDropEvent* event)
{
    const QMimeData& data = *event->mimeData();
    const QPointF at = event->position();
    if (data.hasFormat(ShortcutMimeType)) {
        PlaceShortcut(QString::fromUtf8(data.data(ShortcutMimeType)), toTwips(at.x()),
                      toTwips(at.y()), true, false);
        dropDraggedComponent();
        event->setDropAction(Qt::MoveAction);
        event->accept();
        return;
    }
    const QString id = droppedId(data);
    if (id.isEmpty()) {
        event->ignore();
        return;
    }
    PlaceShortcut(id, toTwips(at.x()), toTwips(at.y()), true, false);
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void GroupUI::beginShortcutDrag(ctlShortcut& element)
{
    const QString id = element.tag();
    auto* data = new QMimeData;
    data->setData(ShortcutMimeType, id.toUtf8());
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    drag->setPixmap(element.grab());
    // The shortcut lands centred on the point of the drop, as its picture shows it.
    drag->setHotSpot(element.rect().center());
    const QPointer<GroupUI> alive(this);
    const Qt::DropAction result = drag->exec(Qt::MoveAction);
    if (!alive)
        return;
    // A drag that ended outside the surface leaves the shortcut where it was.
    if (result == Qt::IgnoreAction && m_oDraggedComponent)
        if (ctlShortcut* still = FindShortcut(id))
            PlaceShortcut(id, still->x() * TwipsPerPixel, still->y() * TwipsPerPixel, false, false);
    dropDraggedComponent();
}

void GroupUI::tmrDragDelay_Timer()
{
    m_dragDelay->tmrDragDelay_Timer();
}

void GroupUI::shctPrinters_MouseDown(ctlShortcut* element, int button, int shift, QPointF point)
{
    m_dragDelay->NoteMouse(element, button, shift, point, false);
    if (button != LeftButton)
        return;
    dropDraggedComponent();
    m_oDraggedComponent = printerNode(element->tag());
    m_dragDelay->NoteMouse(element, button, shift, point, true);
    m_dragDelay->start();
}

void GroupUI::shctPrinters_MouseUp(ctlShortcut* element, int button, int shift, QPointF point)
{
    // After a release no button is held, so a drag still waiting for its delay is dropped.
    m_dragDelay->NoteMouse(element, 0, shift, point, false);
    if (button != RightButton)
        return;
    if (clsComponent* node = printerNode(element->tag()))
        m_mnuBtn_Disable->setChecked(node->Disabled());
    m_mnuBtn->popup(element->mapToGlobal(point.toPoint()));
}

void GroupUI::shctPrinters_KeyDown(ctlShortcut* element, int keyCode)
{
    if (keyCode == Qt::Key_Delete)
        RemoveShortcut(element->tag());
}

void GroupUI::shctPrinters_DblClick(ctlShortcut* element)
{
    m_dragDelay->NoteMouse(element, 0, 0, {}, false);
    mnuBtn_StatusProperties_Click();
}

void GroupUI::mnuBtn_Disable_Click()
{
    const ctlShortcut* element = clickedShortcut();
    if (clsComponent* node = element ? printerNode(element->tag()) : nullptr)
        IgnoringFailure([node] { node->setDisabled(!node->Disabled()); });
}

void GroupUI::mnuBtn_Remove_Click()
{
    if (const ctlShortcut* element = clickedShortcut())
        RemoveShortcut(element->tag());
}

void GroupUI::mnuBtn_PrinterProperties_Click()
{
    const ctlShortcut* element = clickedShortcut();
    if (clsComponent* node = element ? printerNode(element->tag()) : nullptr)
        node->ShowProperties();
}

void GroupUI::mnuBtn_StatusProperties_Click()
{
    const ctlShortcut* element = clickedShortcut();
    if (!element || !printerNode(element->tag()))
        return;
    // Selecting the printer replaces this page, so it happens once this event is over.
    QTimer::singleShot(0, qApp, [id = element->tag()] {
        if (g_oAddIn && !g_bExiting)
            g_oAddIn->SelectTreeItem(id);
    });
}

// The shortcut goes over to another printer of the tree, in the same place.
void GroupUI::mnuBtn_Replace_Click()
{
    const ctlShortcut* element = clickedShortcut();
    if (!element || !printerNode(element->tag()) || !g_oComponents)
        return;
    const QList<clsComponent*> printers = g_oComponents->Printers();
    auto* choice = new QMenu(this);
    choice->setObjectName(QStringLiteral("mnuReplaceWith"));
    choice->setAttribute(Qt::WA_DeleteOnClose);
    for (const clsComponent* printer : std::as_const(printers)) {
        if (FindShortcut(printer->m_sID))
            continue;
        QAction* action = choice->addAction(printer->m_sName);
        connect(
            action, &QAction::triggered, this,
            [this, oldID = element->tag(), newID = printer->m_sID] { replaceWith(oldID, newID); });
    }
    if (choice->isEmpty()) {
        delete choice;
        return;
    }
    choice->popup(element->mapToGlobal(element->rect().center()));
}

void GroupUI::replaceWith(const QString& sOldID, const QString& sNewID)
{
    const ctlShortcut* element = FindShortcut(sOldID);
    if (!element || !printerNode(sNewID) || FindShortcut(sNewID))
        return;
    const QPoint place = element->pos() * TwipsPerPixel;
    RemoveShortcut(sOldID);
    PlaceShortcut(sNewID, place.x(), place.y(), false, false);
}
