#pragma once

#include <QString>

class TreeNode;

// A printer leaves the tree: in the group and every group below it, the identifiers that
// meant it stay, with no printer chosen.
void DeletePrinterGroupIdentifiers(TreeNode& oGroup, const QString& sPrinter);
