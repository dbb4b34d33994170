#pragma once

#include <functional>

// Qt's event loop for tests that need real sockets or timers: the application object is made
// once, and a test turns the loop until what it waits for holds, or a deadline passes.
void EnsureApplication();
// True as soon as the condition holds; false when `deadlineMs` passed first.
bool WaitUntil(const std::function<bool()>& condition, int deadlineMs = 5000);
