#include "platform/qt/QtForms.h"

#include "platform/qt/AddInWindow.h"
#include "platform/qt/HelpWindow.h"
#include "platform/qt/frmOptions.h"

void QtForms::ShowOptions()
{
    frmOptions::CreateAndShow(AddInWindow());
}

void QtForms::ShowHelp(const QString& sPath)
{
    HelpWindow::showFile(sPath);
}
