#pragma once

#include <memory>

// The one implementation of a port that this process uses: the headless one until a program
// installs another, and again once it installs none.
template <typename Port, typename Headless> class ProcessWide
{
public:
    static Port& get() { return *slot(); }
    static void install(std::shared_ptr<Port> port)
    {
        slot() = port ? std::move(port) : std::make_shared<Headless>();
    }

private:
    static std::shared_ptr<Port>& slot()
    {
        static std::shared_ptr<Port> installed = std::make_shared<Headless>();
        return installed;
    }
};
