#pragma once

class clsComponents;

// Opens the identifiers dialog on a copy of the group's identifiers and, unless the user
// cancels, gives the group what the dialog made. False when nothing changed hands: no window
// to show it in, or a cancel.
bool EditGroupIdentifiers(clsComponents& oGroup, clsComponents& oRoot);
