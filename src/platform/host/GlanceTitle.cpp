#include "platform/host/GlanceTitle.h"

#include "core/StateCounts.h"

QString GlanceTitle::of(const StateCounts& counts, const QString& name)
{
    const std::optional<ErrorState> worst = counts.worstTrouble();
    if (!worst)
        return name;
    return counts.told(*worst) + QStringLiteral(" \u2014 ") + name;
}
