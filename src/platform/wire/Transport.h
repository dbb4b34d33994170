#pragma once

#include "platform/wire/WireError.h"

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
    // What went wrong last on the wire, None if nothing has.
    WireError error() const { return m_error; }

signals:
    void received(const QByteArray& bytes);
    void stateChanged(Transport::State state);
    // Something went wrong on the wire: it went down (stateChanged tells it too), or it
    // floods. `text` says it for a person.
    void errorOccurred(WireError error, const QString& text);

protected:
    void setState(State state, const QString& problem = {});
    void reportError(WireError error, const QString& text);

private:
    State m_state = State::Closed;
    QString m_problem;
    WireError m_error = WireError::None;
};
