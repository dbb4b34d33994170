#include "platform/qt/SplitterBar.h"

#include "platform/qt/TreeWidget.h"

#include <QMouseEvent>

SplitterBar::SplitterBar(MouseMove onMouseMove, QWidget* parent)
    : QWidget(parent)
    , m_onMouseMove(std::move(onMouseMove))
{
    setCursor(Qt::SplitHCursor);
}

void SplitterBar::mouseMoveEvent(QMouseEvent* event)
{
    m_onMouseMove(TreeWidget::buttonsOf(event->buttons()),
                  float(event->position().x() * TreeWidget::TwipsPerPixel));
}

void SplitterBar::mouseReleaseEvent(QMouseEvent* event)
{
    m_onMouseMove(TreeWidget::buttonsOf(event->buttons()),
                  float(event->position().x() * TreeWidget::TwipsPerPixel));
}
