#pragma once

#include <QString>

class StateCounts;

// The window's title led by the worst trouble of the site, so that it shows in the task bar
// too: "2 faults — Korvex Vigil"; the name alone while every enabled printer is well.
class GlanceTitle
{
public:
    static QString of(const StateCounts& counts, const QString& name);
};
