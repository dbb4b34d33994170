#pragma once

#include <QList>
#include <QObject>
#include <csignal>

class QSocketNotifier;

// Turns Unix signals into a Qt signal, delivered by the event loop: a handler may do next to
// nothing safely, so it only writes the signal's number to a pipe the loop watches.
// One watcher at a time, since a handler has nowhere else to find it.
class SignalWatcher : public QObject
{
    Q_OBJECT

public:
    explicit SignalWatcher(QObject* parent = nullptr);
    // Gives the signals back to their default handling.
    ~SignalWatcher() override;

    // False with `error` set if the system refuses the pipe or a handler.
    bool watch(const QList<int>& signalNumbers, QString& error);

signals:
    void caught(int signalNumber);

private:
    static void onSignal(int signalNumber);
    void drainPipe();

    static volatile std::sig_atomic_t s_writeEnd;
    int m_readEnd = -1;
    QSocketNotifier* m_notifier = nullptr;
    QList<int> m_watched;
};
