#pragma once

#include "core/ErrorState.h"

#include <QString>

class clsComponent;
class clsComponents;

// Going through the printers of one state, one at a time, in the tree's order.
class StateCycle
{
public:
    // The first printer in that state after the one of id `currentId`, starting again at the
    // top after the last; the first one in that state when `currentId` is no printer of the
    // tree. None when no printer is in that state.
    static clsComponent* next(clsComponents& root, ErrorState state, const QString& currentId);
};
