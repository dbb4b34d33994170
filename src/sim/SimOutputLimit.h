#pragma once

#include <QByteArray>
#include <QList>

// What a printer says in answer to one lot of input, as far as its output buffer holds it: a
// flood of requests can't make it say without end.
class SimOutputLimit
{
public:
    static constexpr qsizetype kCapacity = 64 * 1024;

    // Once a reply has overflowed the buffer, so does everything behind it. An empty reply is
    // no reply.
    void add(const QByteArray& reply);
    const QList<QByteArray>& replies() const { return m_replies; }

private:
    QList<QByteArray> m_replies;
    qsizetype m_size = 0;
};
