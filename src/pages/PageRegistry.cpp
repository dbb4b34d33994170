#include "pages/PageRegistry.h"

#include "core/PageFactory.h"
#include "dashboard/GroupUI.h"
#include "drivers/ICommandConsole.h"
#include "pages/ctlAveryUI.h"
#include "pages/ctlDominoAUI.h"
#include "pages/ctlDominoCUI.h"
#include "pages/ctlLBXPrinterUI.h"
#include "pages/frmCommandTest.h"
#include "printing/ui/FileViewControl.h"

namespace {
const QString Module = QStringLiteral("KorvexVigil.");

template <typename Page> std::unique_ptr<IPage> make()
{
    return std::make_unique<Page>();
}

// Every page class of the window with the way to make it.
const std::pair<const char*, PageFactory::Creator> PageClasses[] = {
    {"ctlDominoCUI", &make<ctlDominoCUI>},
    {"ctlDominoAUI", &make<ctlDominoAUI>},
    {"ctlAveryUI", &make<ctlAveryUI>},
    {"ctlLBXPrinterUI", &make<ctlLBXPrinterUI>},
    {"GroupUI", &make<GroupUI>},
    {"FileViewControl", &make<FileViewControl>},
};
} // namespace

void RegisterPages()
{
    for (const auto& [pageClass, creator] : PageClasses)
        PageFactory::registerClass(Module + QLatin1String(pageClass), creator);
    InstallCommandConsole();
}

void UnregisterPages()
{
    for (const auto& entry : PageClasses)
        PageFactory::unregisterClass(Module + QLatin1String(entry.first));
    ICommandConsole::installFactory(nullptr);
}
