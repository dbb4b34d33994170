#pragma once

#include "ExchangeFigures.h"

#include <chrono>
#include <string>
#include <sys/epoll.h>
#include <vector>

// The status exchange with many printers at its barest: non-blocking sockets on one epoll set,
// read and write, and nothing else, no event loop of any library. What it costs is the floor
// that the monitor's own path is measured against.
class EpollStatusPoller
{
public:
    // Each round sends `question` to every printer and reads until `replySize` bytes are in.
    EpollStatusPoller(std::string question, size_t replySize);
    ~EpollStatusPoller();
    EpollStatusPoller(const EpollStatusPoller&) = delete;
    EpollStatusPoller& operator=(const EpollStatusPoller&) = delete;

    // Connects to every "IPv4-ADDRESS:PORT"; false with `error` set when one is malformed or
    // can't be reached within `timeoutMs`.
    bool connect(const std::vector<std::string>& addresses, int timeoutMs, std::string& error);
    // A round every `periodMs`, the first at once; a reply not whole when the next round is due
    // is lost. The CPU counted is that of the rounds alone.
    ExchangeFigures run(int rounds, int periodMs);

private:
    using Clock = std::chrono::steady_clock;
    enum class Read { Partial, Whole, Lost };
    struct Printer
    {
        std::string address;
        int socket = -1;
        bool connected = false;
        bool waiting = false;
        size_t received = 0;
        Clock::time_point askedAt;
    };

    bool open(Printer& printer, unsigned index, std::string& error);
    bool awaitConnections(int timeoutMs, std::string& error);
    // Sends the question to every printer and reads the replies until all are whole or `end`.
    void runRound(Clock::time_point end, ExchangeFigures& figures);
    Read readReply(Printer& printer);
    void close(Printer& printer);

    const std::string m_question;
    const size_t m_replySize;
    const int m_epoll;
    std::vector<Printer> m_printers;
    // What one wait reports, room for every printer.
    std::vector<epoll_event> m_events;
};
