#pragma once

#include "CommandLine.h"

class TreeNode;

// vigilctl send: the window's send without a window, for scripted changeovers. Files are
// assigned to printers and groups by the tree's own rules, then everything assigned at or
// below one node is sent, the labels' values answered from the command line.
class SendCommand
{
public:
    explicit SendCommand(const Console& console);
    int run(const QStringList& words);

    static QString usage();

private:
    // Assigns FILE of one "NODE=FILE"; false, after saying why, when the node doesn't take it.
    bool assign(const QString& assignment);
    // "FILE to NAME" for each file assigned at or below the node, in tree order.
    static void describeAssignments(TreeNode& node, QStringList& lines);

    const Console& m_console;
};
