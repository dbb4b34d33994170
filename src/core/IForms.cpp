#include "core/IForms.h"

#include "core/HeadlessForms.h"

namespace {
std::shared_ptr<IForms>& installed()
{
    static std::shared_ptr<IForms> forms = std::make_shared<HeadlessForms>();
    return forms;
}
} // namespace

IForms& IForms::process()
{
    return *installed();
}

void IForms::install(std::shared_ptr<IForms> forms)
{
    installed() = forms ? std::move(forms) : std::make_shared<HeadlessForms>();
}
