#include "core/StateCycle.h"

#include "core/StateCounts.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"

clsComponent* StateCycle::next(clsComponents& root, ErrorState state, const QString& currentId)
{
    const QList<clsComponent*> printers = root.Printers();
    qsizetype current = -1;
    for (qsizetype at = 0; at < printers.size(); ++at) {
        if (printers[at]->m_sID.compare(currentId, Qt::CaseInsensitive) == 0) {
            current = at;
            break;
        }
    }
    for (qsizetype step = 1; step <= printers.size(); ++step) {
        clsComponent* candidate = printers[(current + step) % printers.size()];
        if (StateCounts::countedAs(candidate->GetErrorState()) == state)
            return candidate;
    }
    return nullptr;
}
