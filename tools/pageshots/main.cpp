// vigil-pageshots OUT [SECONDS]: the desktop program on a fresh demo site, photographed page
// by page once its printers have run for SECONDS (default 20): every tab of every kind of
// printer's frame as <frame>-<tab key>.png, the command test console with a reply as
// console.png, the file view as fileview.png, the prompt form of the demo's formats as
// prompts.png, the identifiers dialog of the first group as identifiers.png, the dashboard of
// Line 1 as dashboard.png, and the window with the printer of the worst trouble picked from
// the status bar as statusbar.png, then with polling off as statusbar-polling-off.png (the
// window's title goes to the output). Exits 1 when a page can't be found or a picture can't
// be written.

#include "PageTour.h"
#include "platform/host/DesktopStart.h"
#include "platform/host/MainWindow.h"

#include <QApplication>
#include <QTimer>
#include <cstdio>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    application.setApplicationName(QStringLiteral("Korvex Vigil"));
    const QStringList arguments = application.arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: vigil-pageshots OUT [SECONDS]\n");
        return 2;
    }
    const QDir out(arguments[1]);
    const int settleSeconds = arguments.size() > 2 ? arguments[2].toInt() : 20;

    std::unique_ptr<MainWindow> window = OpenDesktop(true, true);
    window->resize(1100, 760);
    PageTour tour(*window, out);
    QTimer::singleShot(settleSeconds * 1000, &tour, &PageTour::start);
    const int result = application.exec();
    CloseDesktop();
    return result;
}
