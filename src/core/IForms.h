#pragma once

#include <QString>
#include <memory>

// The windows that the commands open beside the control: the options dialog and the help.
// The desktop program installs its own; without a window each is one line on standard
// error.
class IForms
{
public:
    virtual ~IForms() = default;

    // The options dialog; on OK it applies the poll interval through the control.
    virtual void ShowOptions() = 0;
    // The help file at that path, in the help viewer.
    virtual void ShowHelp(const QString& sPath) = 0;

    static IForms& process();
    static void install(std::shared_ptr<IForms> forms);
};
