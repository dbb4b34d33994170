#include "core/NodeStatusFeed.h"

namespace {
NodeStatusFeed::Listener& processListener()
{
    static NodeStatusFeed::Listener listener;
    return listener;
}
} // namespace

void NodeStatusFeed::listen(Listener listener)
{
    processListener() = std::move(listener);
}

void NodeStatusFeed::tell(clsComponent& node, std::optional<ErrorState> old, ErrorState state)
{
    if (const Listener& listener = processListener())
        listener(node, old, state);
}
