#pragma once

#include <QApplication>

// Widget tests draw without a screen; one application serves the whole run.
inline void EnsureWidgetApplication()
{
    static int argc = 1;
    static char name[] = "ui_tests";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!QApplication::instance())
        new QApplication(argc, argv);
}
