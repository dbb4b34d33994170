// The desktop program: the host window with the control, on the site's own store, or on the
// demo site of simulated printers.

#include "platform/host/DesktopStart.h"
#include "platform/host/MainWindow.h"
#include "services/LocalTimeZone.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char* argv[])
{
    ReadLocalTimeZoneOnce();
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

    std::unique_ptr<MainWindow> window = OpenDesktop(parser.isSet(demo), parser.isSet(fresh));
    const int result = application.exec();
    CloseDesktop();
    return result;
}
