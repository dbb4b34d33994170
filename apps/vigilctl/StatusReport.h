#pragma once

#include <QJsonObject>
#include <QString>

class TreeNode;

// What vigilctl status prints of a tree: a line a node, indented by depth, or one JSON
// object a node with its children; and the exit code that monitoring plugins expect.
class StatusReport
{
public:
    enum Verdict { AllGood = 0, Warning = 1, Critical = 2, CheckFailed = 3 };

    static QString text(TreeNode& root);
    static QJsonObject json(TreeNode& root);
    // From the worst state of the enabled printers below the root: good (or no printer at
    // all) 0, a warning 1, a fault, a busy port or no answer 2.
    static Verdict verdict(TreeNode& root);
    // The same for one state.
    static Verdict verdictOf(qint32 state);
};
