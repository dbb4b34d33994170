#include "platform/qt/ControlWidget.h"

#include "platform/qt/LabelEditDelegate.h"

#include <QVBoxLayout>

ControlWidget::ControlWidget(QWidget* parent)
    : QWidget(parent)
    , m_pane(m_treePrinters.widget(), this)
    , m_menus(this)
    , m_control(ControlPorts{m_treePrinters, m_pane, m_menus, m_timer1, m_tmrTimeout})
{
    auto* surface = new QVBoxLayout(this);
    surface->setContentsMargins(0, 0, 0, 0);
    surface->addWidget(&m_pane);
    m_treePrinters.setImageList(m_control.imlList(0));
    m_pane.setHooks({
        [this](qint16 width, qint16 height) { m_control.ResizeComponent(width, height); },
        [this] { return m_control.IsFileViewShowing(); },
    });
    connectTree();
    connectMenus();
}

ControlWidget::~ControlWidget()
{
    hideControl();
}

void ControlWidget::connectTree()
{
    TreeWidget& tree = m_treePrinters.widget();
    tree.setHooks({
        [this](int b, int s, float x, float y) { m_control.treePrinters_MouseDown(b, s, x, y); },
        [this](int b, int s, float x, float y) { m_control.treePrinters_MouseUp(b, s, x, y); },
        [this](int b, int s, float x, float y) { m_control.treePrinters_MouseMove(b, s, x, y); },
        [this](int keyCode, int shift) { m_control.UserControl_KeyDown(keyCode, shift); },
        [this](const QString& key) { m_control.treePrinters_NodeClick(key); },
        [this](DragData& data) { m_control.treePrinters_OLEStartDrag(data); },
        [this](const DragData& data, int& effect, float x, float y, int state) {
            m_control.treePrinters_OLEDragOver(data, effect, x, y, state);
        },
        [this](const DragData& data, float x, float y) {
            m_control.treePrinters_OLEDragDrop(data, x, y);
        },
        [this] { m_control.treePrinters_OLECompleteDrag(); },
    });
    tree.setItemDelegate(new LabelEditDelegate(
        [this](bool& cancel) { m_control.treePrinters_BeforeLabelEdit(cancel); },
        [this](bool& cancel, const QString& newText) {
            m_control.treePrinters_AfterLabelEdit(cancel, newText);
        },
        &tree));
}

void ControlWidget::connectMenus()
{
    m_menus.setHooks({
        [this](int index) { m_control.mnuGroupItem_Click(index); },
        [this] { m_control.mnuTreeDisable_Click(); },
        [this] { m_control.mnuTreePrinterProperties_Click(); },
    });
}

void ControlWidget::initialise()
{
    m_control.UserControl_Initialize();
}

void ControlWidget::hideControl()
{
    m_control.UserControl_Hide();
}
