#pragma once

#include <QWidget>
#include <functional>

// The bar between the tree and the page. It moves nothing itself: each mouse move, with the
// buttons held, goes to the owner in twips from the bar's left edge.
class SplitterBar : public QWidget
{
    Q_OBJECT

public:
    using MouseMove = std::function<void(int button, float x)>;

    explicit SplitterBar(MouseMove onMouseMove, QWidget* parent = nullptr);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    MouseMove m_onMouseMove;
};
