#include "pages/frmCommandTest.h"

#include "pages/CommandTestConsole.h"
#include "pages/NamedControl.h"
#include "pages/PrinterPage.h"
#include "pages/ctlCommands.h"
#include "services/ErrorBox.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr qint32 MsgTitle = 76;
constexpr qint32 MsgClose = 18;
const QString Context = QStringLiteral("frmCommandTest - ");

// A hook may let go of the hooks while it runs (the close button ends the session that
// holds this window): it runs from a copy.
void run(std::function<void()> hook)
{
    if (hook)
        hook();
}
} // namespace

frmCommandTest::frmCommandTest(QWidget* parent)
    : QDialog(parent)
    , ctlCommands1(NamedControl<ctlCommands>("ctlCommands1"))
    , cmdClose(NamedControl<QPushButton>("cmdClose"))
{
    setObjectName(QStringLiteral("frmCommandTest"));
    Caption(*this, MsgTitle, QStringLiteral("command test"));
    Caption(*cmdClose, MsgClose, QStringLiteral("close"));
    // Enter in the data field is a new line, not the close button.
    cmdClose->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto* form = new QVBoxLayout(this);
    form->addWidget(ctlCommands1, 1);
    form->addLayout(buttons);
    resize(720, 480);

    connect(cmdClose, &QPushButton::clicked, this, &frmCommandTest::cmdClose_Click);
    connect(this, &QDialog::finished, this, &frmCommandTest::Form_Unload);
}

void frmCommandTest::Setup(ICommandConsole::Hooks hooks)
{
    m_hooks = std::move(hooks);
    ctlCommands1->Setup(this);
}

void frmCommandTest::SendCommand()
{
    RunTrapped(Context + QStringLiteral("SendCommand"), [this] { run(m_hooks.send); });
}

// The handler ends its session, which closes the window; a window without one just closes.
void frmCommandTest::cmdClose_Click()
{
    RunTrapped(Context + QStringLiteral("cmdClose_Click"), [this] {
        if (m_hooks.end)
            run(m_hooks.end);
        else
            reject();
    });
}

// Whichever way the window closes, a test command still pending is dropped, so that
// polling goes on.
void frmCommandTest::Form_Unload()
{
    IgnoringFailure([this] { run(m_hooks.closed); });
}

void InstallCommandConsole()
{
    ICommandConsole::installFactory([] { return std::make_unique<CommandTestConsole>(); });
}
