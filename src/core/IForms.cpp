#include "core/IForms.h"

#include "core/HeadlessForms.h"
#include "services/ProcessWide.h"

using InstalledForms = ProcessWide<IForms, HeadlessForms>;

IForms& IForms::process()
{
    return InstalledForms::get();
}

void IForms::install(std::shared_ptr<IForms> forms)
{
    InstalledForms::install(std::move(forms));
}
