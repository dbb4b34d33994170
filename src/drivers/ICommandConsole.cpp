#include "drivers/ICommandConsole.h"

namespace {
ICommandConsole::Factory& installed()
{
    static ICommandConsole::Factory factory;
    return factory;
}
} // namespace

void ICommandConsole::installFactory(Factory factory)
{
    installed() = std::move(factory);
}

std::unique_ptr<ICommandConsole> ICommandConsole::create()
{
    return installed() ? installed()() : nullptr;
}
