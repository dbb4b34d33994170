#pragma once

#include <functional>
#include <memory>

// The maker of a window that the logic opens through a port: the desktop program installs
// one at start-up; without one there is none to make.
template <typename Port> class InstalledFactory
{
public:
    using Factory = std::function<std::unique_ptr<Port>()>;

    static void install(Factory factory) { slot() = std::move(factory); }
    static std::unique_ptr<Port> make() { return slot() ? slot()() : nullptr; }

private:
    static Factory& slot()
    {
        static Factory factory;
        return factory;
    }
};
