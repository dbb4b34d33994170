#pragma once

#include "sim/SimEngine.h"
#include "sim/SimKnobs.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QRandomGenerator>
#include <QTimer>
#include <memory>

// A simulated printer on a wire: the engine of its kind behind what a wire does to replies.
// Replies come out as later events, never within input(). Its wire knobs:
//   delay=MS      before a reply begins (default 10)
//   fragment=N    a reply comes in pieces of N bytes (default 0: whole)
//   gap=MS        between the pieces (default 1)
//   silent=BOOL   nothing ever comes back
//   garbage=N     every Nth reply is replaced by as many bytes of noise (default 0: never)
//   seed=N        of the noise, so that a run can be repeated
class SimPrinter : public QObject
{
    Q_OBJECT

public:
    // None with `error` set for an unknown kind, a bad knob, or a knob nobody reads.
    static std::unique_ptr<SimPrinter> create(const QString& kind, const SimKnobs& knobs,
                                              QString& error);
    // "KIND" or "KIND?name=value&...".
    static std::unique_ptr<SimPrinter> fromAddress(const QString& address, QString& error);

    const QString& kind() const { return m_kind; }
    void input(const QByteArray& bytes);
    // Bytes still to come out.
    qsizetype pendingBytes() const { return m_pendingBytes; }
    // Forgets what is still to come out, as a printer does when its connection closes.
    void dropPendingOutput();

signals:
    void output(const QByteArray& bytes);
    // Within input(), unlike output: what the engine had to tell, such as a label printed.
    void notice(const QString& line);

private:
    struct Piece
    {
        qint64 due = 0;
        QByteArray bytes;
    };

    SimPrinter(QString kind, std::unique_ptr<SimEngine> engine);
    void readWireKnobs(const SimKnobs& knobs, QString& error);
    void schedule(const QByteArray& reply);
    void deliverDue();
    void arm();

    QString m_kind;
    std::unique_ptr<SimEngine> m_engine;
    qint64 m_delay = 10;
    qint64 m_fragment = 0;
    qint64 m_gap = 1;
    bool m_bSilent = false;
    qint64 m_garbageEvery = 0;
    qint64 m_replies = 0;
    QRandomGenerator m_noise;
    QList<Piece> m_pieces;
    qsizetype m_pendingBytes = 0;
    QElapsedTimer m_clock;
    QTimer m_timer;
};
