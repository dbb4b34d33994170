#include "EpollStatusPoller.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {
std::string failure(const std::string& address, const char* what, int error)
{
    return address + ": " + what + ": " + std::strerror(error);
}

int millisecondsUntil(std::chrono::steady_clock::time_point end)
{
    return int(std::max<long long>(
        0, std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now())
               .count()));
}
} // namespace

EpollStatusPoller::EpollStatusPoller(std::string question, size_t replySize)
    : m_question(std::move(question))
    , m_replySize(replySize)
    , m_epoll(epoll_create1(EPOLL_CLOEXEC))
{}

EpollStatusPoller::~EpollStatusPoller()
{
    for (Printer& printer : m_printers)
        close(printer);
    if (m_epoll >= 0)
        ::close(m_epoll);
}

bool EpollStatusPoller::connect(const std::vector<std::string>& addresses, int timeoutMs,
                                std::string& error)
{
    if (m_epoll < 0) {
        error = "no epoll set could be made";
        return false;
    }
    m_printers.resize(addresses.size());
    m_events.resize(std::max<size_t>(1, addresses.size()));
    for (unsigned index = 0; index < addresses.size(); ++index) {
        m_printers[index].address = addresses[index];
        if (!open(m_printers[index], index, error))
            return false;
    }
    return awaitConnections(timeoutMs, error);
}

bool EpollStatusPoller::open(Printer& printer, unsigned index, std::string& error)
{
    const size_t colon = printer.address.rfind(':');
    sockaddr_in peer{};
    peer.sin_family = AF_INET;
    const int port = colon == std::string::npos ? 0 : std::atoi(&printer.address[colon + 1]);
    if (port <= 0 || port > 65535 ||
        inet_pton(AF_INET, printer.address.substr(0, colon).c_str(), &peer.sin_addr) != 1) {
        error = printer.address + ": not an IPv4 address and port";
        return false;
    }
    peer.sin_port = htons(uint16_t(port));
    printer.socket = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (printer.socket < 0) {
        error = failure(printer.address, "no socket", errno);
        return false;
    }
    // As the monitor's sockets: a short question goes at once.
    const int on = 1;
    setsockopt(printer.socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    if (::connect(printer.socket, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) != 0 &&
        errno != EINPROGRESS) {
        error = failure(printer.address, "cannot connect", errno);
        return false;
    }
    epoll_event event{};
    event.events = EPOLLIN | EPOLLOUT;
    event.data.u32 = index;
    if (epoll_ctl(m_epoll, EPOLL_CTL_ADD, printer.socket, &event) != 0) {
        error = failure(printer.address, "cannot be watched", errno);
        return false;
    }
    return true;
}

bool EpollStatusPoller::awaitConnections(int timeoutMs, std::string& error)
{
    const Clock::time_point end = Clock::now() + std::chrono::milliseconds(timeoutMs);
    size_t connecting = m_printers.size();
    while (connecting > 0) {
        const int ready =
            epoll_wait(m_epoll, m_events.data(), int(m_events.size()), millisecondsUntil(end));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0) {
            error = ready == 0 ? std::to_string(connecting) +
                                     " printers did not take the connection in time"
                               : failure("epoll", "cannot wait", errno);
            return false;
        }
        for (int i = 0; i < ready; ++i) {
            Printer& printer = m_printers[m_events[i].data.u32];
            if (printer.connected)
                continue;
            int problem = 0;
            socklen_t size = sizeof problem;
            getsockopt(printer.socket, SOL_SOCKET, SO_ERROR, &problem, &size);
            if (problem != 0) {
                error = failure(printer.address, "cannot connect", problem);
                return false;
            }
            epoll_event event{};
            event.events = EPOLLIN;
            event.data.u32 = m_events[i].data.u32;
            epoll_ctl(m_epoll, EPOLL_CTL_MOD, printer.socket, &event);
            printer.connected = true;
            --connecting;
        }
    }
    return true;
}

ExchangeFigures EpollStatusPoller::run(int rounds, int periodMs)
{
    ExchangeFigures figures;
    const double cpuBefore = ProcessCpuSeconds();
    Clock::time_point roundStart = Clock::now();
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_until(roundStart);
        roundStart += std::chrono::milliseconds(periodMs);
        runRound(roundStart, figures);
    }
    figures.cpuSeconds = ProcessCpuSeconds() - cpuBefore;
    return figures;
}

void EpollStatusPoller::runRound(Clock::time_point end, ExchangeFigures& figures)
{
    size_t waiting = 0;
    for (Printer& printer : m_printers) {
        printer.received = 0;
        printer.askedAt = Clock::now();
        printer.waiting =
            printer.socket >= 0 && write(printer.socket, m_question.data(), m_question.size()) ==
                                       ssize_t(m_question.size());
        waiting += printer.waiting ? 1 : 0;
    }
    while (waiting > 0) {
        const int ready =
            epoll_wait(m_epoll, m_events.data(), int(m_events.size()), millisecondsUntil(end));
        if (ready == 0 || (ready < 0 && errno != EINTR))
            return;
        for (int i = 0; i < ready; ++i) {
            Printer& printer = m_printers[m_events[i].data.u32];
            const bool wasWaiting = printer.waiting;
            const Read read = readReply(printer);
            if (read == Read::Partial || !wasWaiting)
                continue;
            --waiting;
            printer.waiting = false;
            if (read == Read::Lost)
                continue;
            ++figures.exchanges;
            const std::chrono::duration<double, std::milli> took = Clock::now() - printer.askedAt;
            figures.worstReplyMs = std::max(figures.worstReplyMs, took.count());
        }
    }
}

EpollStatusPoller::Read EpollStatusPoller::readReply(Printer& printer)
{
    char bytes[512];
    const ssize_t count = read(printer.socket, bytes, sizeof bytes);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return Read::Partial;
    if (count <= 0) {
        close(printer);
        return Read::Lost;
    }
    const bool wasShort = printer.received < m_replySize;
    printer.received += size_t(count);
    return wasShort && printer.received >= m_replySize ? Read::Whole : Read::Partial;
}

void EpollStatusPoller::close(Printer& printer)
{
    if (printer.socket < 0)
        return;
    // Closing takes it out of the epoll set.
    ::close(printer.socket);
    printer.socket = -1;
}
