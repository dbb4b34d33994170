#pragma once

#include "core/IForms.h"

// The options dialog and the help viewer as windows over the control's.
class QtForms : public IForms
{
public:
    void ShowOptions() override;
    void ShowHelp(const QString& sPath) override;
};
