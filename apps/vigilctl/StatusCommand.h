#pragma once

#include "CommandLine.h"

#include <memory>

class TreeNode;

// vigilctl status: the monitor without a window, run on a copy of the store for a few poll
// cycles, and the tree it sees, or one group or printer of it, printed for a monitoring system
// and a person. It answers as a monitoring plugin does, so a bad command line is 3, UNKNOWN,
// "the check could not run".
class StatusCommand
{
public:
    explicit StatusCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    int check(int cycles, const QString& name, bool json);
    int unknown(const QString& problem) const;
    // The group or printer of that name, or of that id; none with the reason.
    static std::shared_ptr<TreeNode> named(const QString& name, QString& problem);

    const Console& m_console;
};
