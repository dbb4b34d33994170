#pragma once

class QWidget;

// The window that holds the control: the owner that dialogs centre over and stand in front
// of. The main window sets it; it reads as none once that window is gone.
QWidget* AddInWindow();
void SetAddInWindow(QWidget* window);
