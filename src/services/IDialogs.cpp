#include "services/IDialogs.h"

#include "services/HeadlessDialogs.h"
#include "services/ProcessWide.h"

using InstalledDialogs = ProcessWide<IDialogs, HeadlessDialogs>;

IDialogs& IDialogs::process()
{
    return InstalledDialogs::get();
}

void IDialogs::install(std::shared_ptr<IDialogs> dialogs)
{
    InstalledDialogs::install(std::move(dialogs));
}
