#pragma once

#include <functional>

// Turns the event loop until the condition holds, checking it every stepMs milliseconds: for
// command-line tools and tests, which have nothing else to do meanwhile, and for a routine
// that waits on a window while the rest of the program goes on. False when the deadline
// passed first; a negative deadline never passes.
bool TurnEventLoopUntil(const std::function<bool()>& condition, int deadlineMs, int stepMs = 10);
