#pragma once

#include "core/INoticeDelivery.h"
#include "core/TroubleNotices.h"

#include <functional>

class clsComponent;
class clsComponents;

// Follows the site's printers at each time-out walk and hands the troubles worth a notice to
// the delivery, with the options kept in the store at that moment.
class TroubleWatch
{
public:
    // The root group may be none, or another one at the next walk.
    TroubleWatch(std::function<clsComponents*()> root, INoticeDelivery& delivery);

    // The time-out walk is over: every printer is seen, and the notices due are delivered.
    void timeoutsChecked();
    // Silences the printer until its state changes; false when there is no such printer or it
    // is not in trouble.
    bool acknowledge(const QString& printerId);
    // A printer in trouble that isn't acknowledged yet.
    bool canAcknowledge(const QString& printerId) const;

private:
    // The printer of that id, if there is one.
    clsComponent* printer(const QString& printerId) const;

    std::function<clsComponents*()> m_root;
    INoticeDelivery& m_delivery;
    TroubleNotices m_notices;
};
