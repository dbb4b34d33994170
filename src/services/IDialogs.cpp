#include "services/IDialogs.h"

#include "services/HeadlessDialogs.h"

namespace {
std::shared_ptr<IDialogs>& installed()
{
    static std::shared_ptr<IDialogs> dialogs = std::make_shared<HeadlessDialogs>();
    return dialogs;
}
} // namespace

IDialogs& IDialogs::process()
{
    return *installed();
}

void IDialogs::install(std::shared_ptr<IDialogs> dialogs)
{
    installed() = dialogs ? std::move(dialogs) : std::make_shared<HeadlessDialogs>();
}
