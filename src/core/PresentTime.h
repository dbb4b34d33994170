#pragma once

#include <QDateTime>
#include <memory>

class IClock;

// The present local time, from the clock the program installed: the system's, or a test's.
QDateTime PresentTime();
void InstallClock(std::shared_ptr<IClock> clock);
