#pragma once

#include "core/TroubleNotice.h"

// Where notices go: the desktop, or a test's recorder. Delivery never waits; one that can't be
// made is dropped.
class INoticeDelivery
{
public:
    virtual ~INoticeDelivery() = default;
    virtual void deliver(const TroubleNotice& notice) = 0;
};
