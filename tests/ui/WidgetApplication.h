#pragma once

#include <QApplication>
#include <gtest/gtest.h>
#include <stdexcept>

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

// The child of that name (of any name for nullptr); a missing one fails the test.
template <typename Widget> Widget& ChildOf(const QObject& parent, const char* name)
{
    auto* child = parent.findChild<Widget*>(QString::fromLatin1(name));
    if (!child)
        throw std::runtime_error(std::string("no child ") + (name ? name : "of its type"));
    return *child;
}
