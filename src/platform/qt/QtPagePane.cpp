#include "platform/qt/QtPagePane.h"

#include "core/PageFactory.h"
#include "platform/qt/QtTreeView.h"
#include "platform/qt/Twips.h"
#include "services/ErrorBox.h"

#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QStyle>

namespace {
QRect pixelRect(const WorkspaceLayout::Rect& rect)
{
    return QRect(toPixels(rect.left), toPixels(rect.top), toPixels(rect.width),
                 toPixels(rect.height));
}

const QString Context = QStringLiteral("AddInControl - ");
} // namespace

QtPagePane::QtPagePane(QWidget& tree, QWidget* parent)
    : QWidget(parent)
    , m_tree(tree)
    , m_fSplitter([this](int button, float x) { fSplitter_MouseMove(button, x); }, this)
    , m_frameCustomControlParent(this)
    , m_frameControlContainer(&m_frameCustomControlParent)
    , m_hsbHoriz(Qt::Horizontal, &m_frameCustomControlParent)
    , m_vsbVert(Qt::Vertical, &m_frameCustomControlParent)
    , m_layout(designFor(*this), DesignSplit)
{
    m_tree.setParent(this);
    m_frameControlContainer.setAutoFillBackground(true);
    m_hsbHoriz.hide();
    m_vsbVert.hide();
    // The page follows the thumb while it is dragged, not only when it is let go.
    connect(&m_hsbHoriz, &QScrollBar::valueChanged, this, [this] { hsbHoriz_Change(); });
    connect(&m_vsbVert, &QScrollBar::valueChanged, this, [this] { vsbVert_Change(); });
}

// The page goes before the frame that holds its widget; the tree belongs to its view.
QtPagePane::~QtPagePane()
{
    m_page.reset();
    m_tree.setParent(nullptr);
}

WorkspaceLayout::Design QtPagePane::designFor(const QWidget& widget)
{
    WorkspaceLayout::Design design;
    // Each pane keeps room for a line of text at least.
    design.minPaneWidth =
        toTwips(widget.fontMetrics().horizontalAdvance(QStringLiteral("ABDCEFGHIJKLMN")));
    design.splitterWidth = toTwips(4);
    const int bar = widget.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    design.hScrollHeight = toTwips(bar);
    design.vScrollWidth = toTwips(bar);
    return design;
}

IPage* QtPagePane::createPage(const QString& className, const QString& name)
{
    std::unique_ptr<IPage> page = PageFactory::create(className);
    auto* widget = dynamic_cast<QWidget*>(page.get());
    if (!widget)
        return nullptr;
    m_page.reset();
    m_page = std::move(page);
    m_pageName = name;
    m_pageWidget = widget;
    widget->setParent(&m_frameControlContainer);
    widget->installEventFilter(this);
    // A page nobody has sized comes at the size its layout asks for.
    if (!widget->testAttribute(Qt::WA_Resized))
        widget->resize(widget->sizeHint());
    widget->move(0, 0);
    widget->show();
    return m_page.get();
}

void QtPagePane::removePage(const QString& name)
{
    if (name != m_pageName || !m_page)
        return;
    m_page.reset();
    m_pageName.clear();
}

void QtPagePane::setContainerBackColour(quint32 colour)
{
    QPalette palette = m_frameControlContainer.palette();
    palette.setColor(QPalette::Window, QtTreeView::toColor(colour, palette));
    m_frameControlContainer.setPalette(palette);
}

void QtPagePane::setPageParentVisible(bool visible)
{
    m_frameCustomControlParent.setVisible(visible);
}

void QtPagePane::resetScrollBars()
{
    m_layout.setScrollValues(0, 0);
    const QSignalBlocker quietH(m_hsbHoriz);
    const QSignalBlocker quietV(m_vsbVert);
    m_hsbHoriz.setValue(0);
    m_vsbVert.setValue(0);
    placePage();
}

void QtPagePane::setScrollBarsVisible(bool visible)
{
    m_bScrollBarsVisible = visible;
    m_hsbHoriz.setVisible(visible && m_layout.hsbHoriz().visible);
    m_vsbVert.setVisible(visible && m_layout.vsbVert().visible);
}

void QtPagePane::layout()
{
    applyControlLayout();
}

qint32 QtPagePane::treeWidth() const
{
    return qRound(m_layout.tree().width);
}

void QtPagePane::moveSplitter(qint32 position)
{
    if (!m_bSized) {
        m_pendingSplit = position;
        return;
    }
    m_layout.MoveSplitter(float(position));
    applyControlLayout();
}

void QtPagePane::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_bSized = true;
    m_layout.UserControl_Resize(toTwips(width()), toTwips(height()));
    if (m_pendingSplit)
        m_layout.MoveSplitter(float(*std::exchange(m_pendingSplit, std::nullopt)));
    applyControlLayout();
}

void QtPagePane::fSplitter_MouseMove(int button, float x)
{
    RunTrapped(Context + QStringLiteral("fSplitter_MouseMove"), [&] {
        m_layout.fSplitter_MouseMove(button, x);
        if (m_layout.splitterMoving())
            applyControlLayout();
    });
}

void QtPagePane::applyControlLayout()
{
    m_layout.UserControl_Resize(toTwips(width()), toTwips(height()));
    m_tree.setGeometry(pixelRect(m_layout.tree()));
    m_fSplitter.setGeometry(pixelRect(m_layout.splitter()));
    m_frameCustomControlParent.setGeometry(pixelRect(m_layout.pageParent()));
    frameCustomControlParent_Resize();
}

bool QtPagePane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == m_pageWidget && !m_bPlacingFrame)
        frameCustomControlParent_Resize();
    return QWidget::eventFilter(watched, event);
}

void QtPagePane::frameCustomControlParent_Resize()
{
    const QScopedValueRollback placing(m_bPlacingFrame, true);
    const WorkspaceLayout::Rect pane = m_layout.pageParent();
    if (m_hooks.resizeComponent)
        m_hooks.resizeComponent(WorkspaceLayout::toShortTwips(pane.width),
                                WorkspaceLayout::toShortTwips(pane.height));
    const bool fileView = m_hooks.fileViewShowing && m_hooks.fileViewShowing();
    std::optional<WorkspaceLayout::Rect> page;
    if (m_pageWidget)
        page = WorkspaceLayout::Rect{0, 0, toTwips(m_pageWidget->width()),
                                     toTwips(m_pageWidget->height())};
    m_layout.frameCustomControlParent_Resize(page ? &*page : nullptr, fileView);

    m_frameControlContainer.setGeometry(pixelRect(m_layout.frame()));
    const auto applyBar = [this](QScrollBar& bar, const WorkspaceLayout::ScrollBar& state) {
        const QSignalBlocker quiet(bar);
        bar.setGeometry(pixelRect(state.rect));
        bar.setRange(0, state.maximum);
        bar.setPageStep(std::max<int>(1, state.largeChange));
        bar.setValue(std::min(state.value, state.maximum));
        bar.setVisible(m_bScrollBarsVisible && state.visible);
    };
    applyBar(m_hsbHoriz, m_layout.hsbHoriz());
    applyBar(m_vsbVert, m_layout.vsbVert());
    // A range that shrank has pulled its bar back; the page follows the bars.
    m_layout.setScrollValues(m_hsbHoriz.value(), m_vsbVert.value());
    if (fileView && m_pageWidget)
        m_pageWidget->setGeometry(m_frameControlContainer.rect());
    else
        placePage();
}

void QtPagePane::hsbHoriz_Change()
{
    RunTrapped(Context + QStringLiteral("hsbHoriz_Change"), [this] {
        m_layout.setScrollValues(m_hsbHoriz.value(), m_layout.vsbVert().value);
        placePage();
    });
}

void QtPagePane::vsbVert_Change()
{
    RunTrapped(Context + QStringLiteral("vsbVert_Change"), [this] {
        m_layout.setScrollValues(m_layout.hsbHoriz().value, m_vsbVert.value());
        placePage();
    });
}

void QtPagePane::placePage()
{
    if (m_pageWidget)
        m_pageWidget->move(toPixels(m_layout.pageLeft()), toPixels(m_layout.pageTop()));
}
