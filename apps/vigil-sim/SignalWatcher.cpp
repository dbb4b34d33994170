#include "SignalWatcher.h"

#include <QSocketNotifier>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

volatile std::sig_atomic_t SignalWatcher::s_writeEnd = -1;

SignalWatcher::SignalWatcher(QObject* parent)
    : QObject(parent)
{}

SignalWatcher::~SignalWatcher()
{
    for (int signalNumber : std::as_const(m_watched))
        std::signal(signalNumber, SIG_DFL);
    if (m_readEnd >= 0) {
        ::close(s_writeEnd);
        ::close(m_readEnd);
        s_writeEnd = -1;
    }
}

bool SignalWatcher::watch(const QList<int>& signalNumbers, QString& error)
{
    if (m_readEnd < 0) {
        int ends[2];
        // Non-blocking both ways: a handler must never wait, and a full pipe already holds
        // enough to wake the loop.
        if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
            error = QStringLiteral("cannot make a pipe for signals: %1")
                        .arg(QString::fromLocal8Bit(std::strerror(errno)));
            return false;
        }
        m_readEnd = ends[0];
        s_writeEnd = ends[1];
        m_notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &SignalWatcher::drainPipe);
    }
    for (int signalNumber : signalNumbers) {
        struct sigaction action = {};
        action.sa_handler = &SignalWatcher::onSignal;
        sigemptyset(&action.sa_mask);
        action.sa_flags = SA_RESTART;
        if (::sigaction(signalNumber, &action, nullptr) != 0) {
            error = QStringLiteral("cannot catch signal %1: %2")
                        .arg(signalNumber)
                        .arg(QString::fromLocal8Bit(std::strerror(errno)));
            return false;
        }
        m_watched.append(signalNumber);
    }
    return true;
}

void SignalWatcher::onSignal(int signalNumber)
{
    const int savedErrno = errno;
    const unsigned char byte = static_cast<unsigned char>(signalNumber);
    [[maybe_unused]] const ssize_t written = ::write(s_writeEnd, &byte, 1);
    errno = savedErrno;
}

void SignalWatcher::drainPipe()
{
    unsigned char byte = 0;
    while (::read(m_readEnd, &byte, 1) == 1)
        emit caught(byte);
}
