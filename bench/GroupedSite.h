#pragma once

#include "core/Globals.h"
#include "core/clsComponents.h"

#include <memory>

// Moves the printers under the root into `groups` groups of about the same size, "Hall 0",
// "Hall 1", ..., as a large site is laid out.
inline void SpreadPrintersOverGroups(int groups)
{
    const auto printers = g_oComponents->Col().snapshot();
    for (int g = 0; g < groups; ++g) {
        auto group = std::make_shared<clsComponents>();
        group->m_sID = QStringLiteral("GP%1").arg(g, 12, 10, QLatin1Char('0'));
        group->m_sName = QStringLiteral("Hall %1").arg(g);
        g_oComponents->AddComponent(group->m_sID, group);
        for (qsizetype p = g * printers.size() / groups; p < (g + 1) * printers.size() / groups;
             ++p) {
            g_oComponents->Remove(printers[p]->m_sID);
            group->AddComponent(printers[p]->m_sID, printers[p]);
        }
    }
}
