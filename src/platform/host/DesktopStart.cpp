#include "platform/host/DesktopStart.h"

#include "core/Globals.h"
#include "core/IForms.h"
#include "core/IProgressLog.h"
#include "core/IconFiles.h"
#include "pages/PageRegistry.h"
#include "platform/host/DemoSite.h"
#include "platform/host/MainWindow.h"
#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/LbxQueues.h"
#include "platform/qt/AddInWindow.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtForms.h"
#include "platform/qt/QtQueueDialogs.h"
#include "printing/IIdentifierDialog.h"
#include "printing/IPromptForm.h"
#include "printing/clsLBXHandler.h"
#include "printing/ui/frmDownloads.h"
#include "printing/ui/frmIdentifiers.h"
#include "printing/ui/frmPromptVars.h"
#include "services/ApplicationOptions.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QTimer>

namespace {
// How long start-up waits for the printers' wires before the first poll, whose questions
// would otherwise be lost on the way.
constexpr int WireWaitMs = 3000;
constexpr int WireCheckMs = 50;

void installWindows()
{
    IDialogs::install(std::make_shared<QtDialogs>());
    IForms::install(std::make_shared<QtForms>());
    IQueueDialogs::install(std::make_shared<QtQueueDialogs>());
    InstallProgressLog(std::make_shared<frmDownloads>());
    IPromptForm::install([] { return std::make_unique<frmPromptVars>(); });
    IIdentifierDialog::install([] { return std::make_unique<frmIdentifiers>(AddInWindow()); });
    RegisterPages();
}

// Starts the control once the wires are up, or the wait is over; the window is drawn
// meanwhile.
void startWhenWiresSettle(MainWindow& window)
{
    auto* check = new QTimer(&window);
    const QDeadlineTimer deadline(WireWaitMs);
    QObject::connect(check, &QTimer::timeout, &window, [&window, check, deadline] {
        auto* queues = qobject_cast<LbxQueues*>(&GetGlobalLBX().LBX_App().Queues());
        if (queues && !queues->wiresSettled() && !deadline.hasExpired())
            return;
        check->stop();
        check->deleteLater();
        window.start();
    });
    check->start(WireCheckMs);
}

// The session bus, where the session has one. Without its address the bus library would try
// to launch one, and wait for it.
QDBusConnection sessionBusIfAny()
{
    const QString runtimeBus = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") &&
        (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR") || !QFileInfo::exists(runtimeBus)))
        return QDBusConnection(QStringLiteral("no session bus"));
    return QDBusConnection::sessionBus();
}
} // namespace

std::unique_ptr<MainWindow> OpenDesktop(bool demo, bool freshDemo)
{
    if (demo)
        DemoSite::use(freshDemo);
    LoadOptions();
    LibraryStart();
    InstallApplicationFactory(&LbxApplication::attach);
    installWindows();

    QString title = ApplyBranding(QStringLiteral("Korvex Vigil"));
    if (demo)
        title += QStringLiteral(" \u2013 demo site");
    auto window = std::make_unique<MainWindow>(title, sessionBusIfAny());
    QApplication::setWindowIcon(QIcon(IconFile(QStringLiteral("Vigil.png"))));
    SetAddInWindow(window.get());
    window->show();
    startWhenWiresSettle(*window);
    return window;
}

void CloseDesktop()
{
    InstallProgressLog(nullptr);
}
