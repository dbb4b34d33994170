#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

// The wire to one printer. Opening and sending never wait: the outcome of an open comes
// as stateChanged, received bytes as received() in fragments as they arrive. Bytes sent
// while the wire is down are dropped; the handler's time-out sees the loss.
class Transport : public QObject
{
    Q_OBJECT

public:
    enum class State { Closed, Connecting, Connected, Unusable };
    Q_ENUM(State)

    using QObject::QObject;

    virtual void open() = 0;
    virtual void send(const QByteArray& bytes) = 0;
    // Bytes handed to send() that haven't reached the system yet: a program that ends before
    // they do loses them.
    virtual qint64 bytesToWrite() const { return 0; }

    State state() const { return m_state; }
    // Why the wire is down, or empty while it is up.
    const QString& problem() const { return m_problem; }

signals:
    void received(const QByteArray& bytes);
    void stateChanged(Transport::State state);

protected:
    void setState(State state, const QString& problem = {});

private:
    State m_state = State::Closed;
    QString m_problem;
};
