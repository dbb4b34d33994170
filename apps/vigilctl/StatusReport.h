#pragma once

#include <QJsonObject>
#include <QString>

class TreeNode;

// What vigilctl status prints of a tree: a line a node, indented by depth, or one JSON
// object a node with its children.
class StatusReport
{
public:
    static QString text(TreeNode& root);
    static QJsonObject json(TreeNode& root);
};
