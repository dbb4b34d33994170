#pragma once

#include <functional>

// For command-line tools and tests, which have nothing else to do meanwhile: turns the event
// loop until the condition holds, checking it every few milliseconds. False when the deadline
// passed first.
bool TurnEventLoopUntil(const std::function<bool()>& condition, int deadlineMs);
