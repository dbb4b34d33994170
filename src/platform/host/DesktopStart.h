#pragma once

#include <memory>

class MainWindow;

// How the desktop program comes up, shared by the program and the tools that show it: the
// site's store or the demo's, the windows behind the core's ports, the pages, the print
// application, and the host window, shown at once and started when the wires are up.
std::unique_ptr<MainWindow> OpenDesktop(bool demo, bool freshDemo);
// What must go before the application object does.
void CloseDesktop();
