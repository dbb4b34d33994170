#pragma once

#include "core/ErrorState.h"

#include <functional>
#include <optional>

class clsComponent;

// Every printer node's changes of state in one place, for whoever keeps a record of them
// without holding on to each node: nodes come and go while the tree lives.
class NodeStatusFeed
{
public:
    // Told that the node has moved from one state into another, or came up in a state when
    // there is no old one; the node is valid only during the call.
    using Listener =
        std::function<void(clsComponent& node, std::optional<ErrorState> old, ErrorState state)>;

    // The one listener of the process; an empty one stops the telling.
    static void listen(Listener listener);
    static void tell(clsComponent& node, std::optional<ErrorState> old, ErrorState state);
};
