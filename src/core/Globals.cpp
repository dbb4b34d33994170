#include "core/Globals.h"

#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"

AddInControl* g_oAddIn = nullptr;
std::shared_ptr<clsComponents> g_oComponents;
bool g_bExiting = false;
QString g_sNoPrinter;

bool TreeWorkAllowed()
{
    return g_oAddIn != nullptr && !g_bExiting;
}

void LibraryStart()
{
    RunTrapped(QStringLiteral("basMain - As "), [] {
        g_sNoPrinter = GetMessage(404);
        g_bExiting = false;
    });
}
