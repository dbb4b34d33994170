#pragma once

#include <QString>
#include <memory>

class AddInControl;
class clsComponents;

// The process-wide references that every part of the tree reads.

// The control, while it is shown; empty means no tree work may go on.
extern AddInControl* g_oAddIn;
// The root group.
extern std::shared_ptr<clsComponents> g_oComponents;
// True from the moment the control starts going down.
extern bool g_bExiting;
// The word for "no printer chosen", read once at library start.
extern QString g_sNoPrinter;

// Whether a walk of the tree may go on: the control is there and not going down.
bool TreeWorkAllowed();

// Runs once, before the first control: the word for "no printer chosen" from the messages,
// and nothing going down yet.
void LibraryStart();
