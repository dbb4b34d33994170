#pragma once

#include <QCoreApplication>

// The demo site: a line of simulated printers in a store of its own, beside the user's, so
// that trying the program never changes the real site.
class DemoSite
{
    Q_DECLARE_TR_FUNCTIONS(DemoSite)

public:
    inline static const QString FileName = QStringLiteral("demo.sqlite");

    // In the folder of the store the program would otherwise open.
    static QString storePath();
    // Makes the demo store this process's store; call it before anything opens the store.
    // `fresh` throws away what an earlier demo left. A store without a tree gets the demo's
    // printers, groups and options; one with a tree is left as the user left it.
    static void use(bool fresh);

private:
    static bool removeStore(const QString& path);
    static bool hasTree();
    static void seed();
};
