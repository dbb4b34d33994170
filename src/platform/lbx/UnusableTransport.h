#pragma once

#include "platform/wire/Transport.h"

// The wire of a port name that names nothing usable: it never comes up, and says why.
class UnusableTransport : public Transport
{
    Q_OBJECT

public:
    explicit UnusableTransport(QString problem, QObject* parent = nullptr);

    void open() override { setState(State::Unusable, m_problem); }
    void send(const QByteArray&) override {}

private:
    QString m_problem;
};
