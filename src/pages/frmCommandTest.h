#pragma once

#include "drivers/ICommandConsole.h"

#include <QDialog>

class QPushButton;
class ctlCommands;

// The command test console's window: the console control and a close button. The handler
// that opened it is reached through its hooks, so that the window can outlive it.
class frmCommandTest : public QDialog
{
    Q_OBJECT

public:
    explicit frmCommandTest(QWidget* parent = nullptr);

    // Empty hooks let go of the handler.
    void Setup(ICommandConsole::Hooks hooks);
    ctlCommands& Cmd() { return *ctlCommands1; }
    void SendCommand();

private:
    void cmdClose_Click();
    void Form_Unload();

    ctlCommands* ctlCommands1;
    QPushButton* cmdClose;
    ICommandConsole::Hooks m_hooks;
};

// Makes this window the program's command test console.
void InstallCommandConsole();
