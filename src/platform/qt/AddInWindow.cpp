#include "platform/qt/AddInWindow.h"

#include <QPointer>
#include <QWidget>

namespace {
QPointer<QWidget>& addInWindow()
{
    static QPointer<QWidget> window;
    return window;
}
} // namespace

QWidget* AddInWindow()
{
    return addInWindow();
}

void SetAddInWindow(QWidget* window)
{
    addInWindow() = window;
}
