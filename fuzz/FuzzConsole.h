#pragma once

#include "support/ScriptedConsole.h"

// The command console of the handler targets: the scripted one of the tests, which a target
// reaches while its handler holds it open, to choose the command the next test fires.
class FuzzConsole : public ScriptedConsole
{
public:
    FuzzConsole() { s_current = this; }
    ~FuzzConsole() override
    {
        if (s_current == this)
            s_current = nullptr;
    }
    FuzzConsole(const FuzzConsole&) = delete;
    FuzzConsole& operator=(const FuzzConsole&) = delete;

    // None while no handler has a console open.
    static FuzzConsole* current() { return s_current; }

private:
    inline static FuzzConsole* s_current = nullptr;
};
