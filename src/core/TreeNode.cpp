#include "core/TreeNode.h"

#include "services/TextUtilities.h"

bool TreeNode::isGroup() const
{
    return IsGroupId(m_sID);
}
