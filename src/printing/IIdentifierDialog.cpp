#include "printing/IIdentifierDialog.h"

#include "services/InstalledFactory.h"

std::unique_ptr<IIdentifierDialog> IIdentifierDialog::create()
{
    return InstalledFactory<IIdentifierDialog>::make();
}

void IIdentifierDialog::install(Factory factory)
{
    InstalledFactory<IIdentifierDialog>::install(std::move(factory));
}
