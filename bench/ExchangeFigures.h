#pragma once

#include <sys/resource.h>

// What rounds of status exchanges cost: how many ended with the whole reply, the CPU this
// process spent over the rounds, and the longest a reply took to be whole after its question.
struct ExchangeFigures
{
    long long exchanges = 0;
    double cpuSeconds = 0;
    double worstReplyMs = 0;

    double cpuPerExchangeUs() const { return exchanges ? cpuSeconds * 1e6 / double(exchanges) : 0; }
};

// User and system time of every thread of this process so far.
inline double ProcessCpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}
