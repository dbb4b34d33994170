#include "core/Globals.h"

AddInControl* g_oAddIn = nullptr;
std::shared_ptr<clsComponents> g_oComponents;
bool g_bExiting = false;
QString g_sNoPrinter;

bool TreeWorkAllowed()
{
    return g_oAddIn != nullptr && !g_bExiting;
}
