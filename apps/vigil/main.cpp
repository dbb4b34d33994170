// The desktop program: the host window with the control, on the site's own store, or on the
// demo site of simulated printers.

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
#include "printing/clsLBXHandler.h"
#include "printing/ui/frmDownloads.h"
#include "services/ApplicationOptions.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDeadlineTimer>
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
} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    application.setApplicationName(QStringLiteral("Korvex Vigil"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Watches and drives the coding and labelling printers of a line."));
    parser.addHelpOption();
    const QCommandLineOption demo(QStringLiteral("demo"),
                                  QStringLiteral("Open the demo site of simulated printers, in a "
                                                 "store of its own."));
    const QCommandLineOption fresh(QStringLiteral("fresh"),
                                   QStringLiteral("With --demo: start the demo site anew."));
    parser.addOptions({demo, fresh});
    parser.process(application);

    if (parser.isSet(demo))
        DemoSite::use(parser.isSet(fresh));
    LoadOptions();
    LibraryStart();
    InstallApplicationFactory(&LbxApplication::attach);
    installWindows();

    QString title = ApplyBranding(QStringLiteral("Korvex Vigil"));
    if (parser.isSet(demo))
        title += QStringLiteral(" \u2013 demo site");
    MainWindow window(title);
    application.setWindowIcon(QIcon(IconFile(QStringLiteral("Vigil.png"))));
    SetAddInWindow(&window);
    window.show();
    startWhenWiresSettle(window);
    const int result = application.exec();
    InstallProgressLog(nullptr);
    return result;
}
