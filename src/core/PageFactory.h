#pragma once

#include "core/IPage.h"

#include <QString>
#include <functional>
#include <memory>

// Pages are created by class name ("KorvexVigil.ctlDominoCUI"), as a node's handler names
// them. The programs with a window register their page classes at start-up.
class PageFactory
{
public:
    using Creator = std::function<std::unique_ptr<IPage>()>;

    // A later registration of the same name replaces the earlier one; names compare
    // without regard to case.
    static void registerClass(const QString& className, Creator creator);
    static void unregisterClass(const QString& className);
    static bool isRegistered(const QString& className);
    // None for a class nobody registered.
    static std::unique_ptr<IPage> create(const QString& className);
};
