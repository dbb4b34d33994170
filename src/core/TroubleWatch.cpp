#include "core/TroubleWatch.h"

#include "core/PresentTime.h"
#include "core/StateCounts.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "services/NoticeOptions.h"

TroubleWatch::TroubleWatch(std::function<clsComponents*()> root, INoticeDelivery& delivery)
    : m_root(std::move(root))
    , m_delivery(delivery)
{}

void TroubleWatch::timeoutsChecked()
{
    clsComponents* root = m_root();
    const NoticeOptions options = NoticeOptions::load();
    m_notices.setSettings({options.enabled, options.delaySeconds});
    const QDateTime now = PresentTime();
    if (root) {
        for (clsComponent* each : root->Printers())
            m_notices.seen(each->m_sID, StateCounts::countedAs(each->GetErrorState()), now);
    }
    for (const QString& id : m_notices.walkEnded(now)) {
        clsComponent* found = printer(id);
        if (!found)
            continue;
        const clsComponents* group = root->FindParent(id);
        m_delivery.deliver({found->m_sID, found->m_sName, group ? group->m_sName : QString(),
                            StateCounts::countedAs(found->GetErrorState()),
                            found->GetHighestAlert(), options.soundFile});
    }
}

bool TroubleWatch::acknowledge(const QString& printerId)
{
    clsComponent* found = printer(printerId);
    return found && m_notices.acknowledge(printerId, StateCounts::countedAs(found->GetErrorState()),
                                          PresentTime());
}

bool TroubleWatch::canAcknowledge(const QString& printerId) const
{
    clsComponent* found = printer(printerId);
    return found && TroubleNotices::isTrouble(StateCounts::countedAs(found->GetErrorState())) &&
           !m_notices.acknowledged(printerId);
}

clsComponent* TroubleWatch::printer(const QString& printerId) const
{
    clsComponents* root = m_root();
    return root && !printerId.isEmpty() ? dynamic_cast<clsComponent*>(root->Find(printerId))
                                        : nullptr;
}
