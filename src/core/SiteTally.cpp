#include "core/SiteTally.h"

#include "core/clsComponent.h"
#include "core/clsComponents.h"

#include <QSet>

SiteTally::SiteTally(std::function<clsComponents*()> root, QObject* parent)
    : QObject(parent)
    , m_root(std::move(root))
{
    m_walk.setSingleShot(true);
    m_walk.setInterval(0);
    connect(&m_walk, &QTimer::timeout, this, &SiteTally::recount);
}

void SiteTally::treeChanged()
{
    if (!m_walk.isActive())
        m_walk.start();
}

void SiteTally::recount()
{
    m_walk.stop();
    QSet<QObject*> present;
    if (clsComponents* root = m_root()) {
        for (clsComponent* printer : root->Printers()) {
            present.insert(printer);
            if (!m_known.contains(printer))
                follow(*printer);
        }
    }
    for (QObject* gone : m_known.keys()) {
        if (!present.contains(gone)) {
            disconnect(gone, nullptr, this, nullptr);
            forget(gone);
        }
    }
    emit countsChanged();
}

void SiteTally::follow(clsComponent& printer)
{
    const ErrorState state = StateCounts::countedAs(printer.GetErrorState());
    m_known.insert(&printer, state);
    m_counts.add(state);
    connect(&printer, &clsComponent::StatusChanged, this,
            [this, &printer] { printerChanged(printer); });
    connect(&printer, &QObject::destroyed, this, [this](QObject* gone) {
        forget(gone);
        emit countsChanged();
    });
}

void SiteTally::printerChanged(clsComponent& printer)
{
    const auto known = m_known.find(&printer);
    if (known == m_known.end())
        return;
    const ErrorState state = StateCounts::countedAs(printer.GetErrorState());
    if (state == *known)
        return;
    m_counts.take(*known);
    m_counts.add(state);
    *known = state;
    emit countsChanged();
}

void SiteTally::forget(QObject* printer)
{
    const auto known = m_known.find(printer);
    if (known == m_known.end())
        return;
    m_counts.take(*known);
    m_known.erase(known);
}
