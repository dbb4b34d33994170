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
    m_onMouseMove(TreeWidget::buttonsOf(event->buttons()), toTwips(event->position().x()));
}

void SplitterBar::mouseReleaseEvent(QMouseEvent* event)
{
    m_onMouseMove(TreeWidget::buttonsOf(event->buttons()), toTwips(event->position().x()));
}
