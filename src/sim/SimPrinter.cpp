#include "sim/SimPrinter.h"

#include "sim/SimRegistry.h"

std::unique_ptr<SimPrinter> SimPrinter::create(const QString& kind, const SimKnobs& knobs,
                                               QString& error)
{
    error.clear();
    std::unique_ptr<SimEngine> engine = SimRegistry::create(kind, knobs, error);
    if (!engine)
        return nullptr;
    std::unique_ptr<SimPrinter> printer(new SimPrinter(kind, std::move(engine)));
    printer->readWireKnobs(knobs, error);
    if (error.isEmpty() && !knobs.unreadNames().isEmpty())
        error = QStringLiteral("a simulated %1 printer has no knob %2")
                    .arg(kind, knobs.unreadNames().join(QStringLiteral(", ")));
    if (!error.isEmpty())
        return nullptr;
    return printer;
}

std::unique_ptr<SimPrinter> SimPrinter::fromAddress(const QString& address, QString& error)
{
    const qsizetype mark = address.indexOf(QLatin1Char('?'));
    const QString kind = address.left(mark);
    const std::optional<SimKnobs> knobs =
        SimKnobs::fromQuery(mark < 0 ? QString() : address.mid(mark + 1), error);
    return knobs ? create(kind, *knobs, error) : nullptr;
}

SimPrinter::SimPrinter(QString kind, std::unique_ptr<SimEngine> engine)
    : m_kind(std::move(kind))
    , m_engine(std::move(engine))
{
    m_clock.start();
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &SimPrinter::deliverDue);
}

void SimPrinter::readWireKnobs(const SimKnobs& knobs, QString& error)
{
    m_delay = knobs.number(QStringLiteral("delay"), m_delay, 0, 600000, error);
    m_fragment = knobs.number(QStringLiteral("fragment"), m_fragment, 0, 1 << 20, error);
    m_gap = knobs.number(QStringLiteral("gap"), m_gap, 0, 60000, error);
    m_bSilent = knobs.flag(QStringLiteral("silent"), m_bSilent, error);
    m_garbageEvery = knobs.number(QStringLiteral("garbage"), m_garbageEvery, 0, 1 << 30, error);
    m_noise.seed(quint32(knobs.number(QStringLiteral("seed"), 1, 0, 0xFFFFFFFFLL, error)));
}

void SimPrinter::input(const QByteArray& bytes)
{
    for (const QByteArray& reply : m_engine->receive(bytes, QDateTime::currentDateTime()))
        if (!m_bSilent && !reply.isEmpty())
            schedule(reply);
    for (const QString& line : m_engine->takeNotices())
        emit notice(line);
}

void SimPrinter::schedule(const QByteArray& reply)
{
    QByteArray bytes = reply;
    if (m_garbageEvery > 0 && ++m_replies % m_garbageEvery == 0)
        for (char& byte : bytes)
            byte = char(m_noise.bounded(256));
    // A reply never overtakes the one before it.
    qint64 due = m_clock.elapsed() + m_delay;
    if (!m_pieces.isEmpty())
        due = std::max(due, m_pieces.last().due + m_gap);
    const qsizetype size = m_fragment > 0 ? qsizetype(m_fragment) : bytes.size();
    for (qsizetype at = 0; at < bytes.size(); at += size, due += m_gap) {
        m_pieces.append({due, bytes.mid(at, size)});
        m_pendingBytes += m_pieces.last().bytes.size();
    }
    arm();
}

void SimPrinter::dropPendingOutput()
{
    m_timer.stop();
    m_pieces.clear();
    m_pendingBytes = 0;
}

void SimPrinter::deliverDue()
{
    const qint64 now = m_clock.elapsed();
    while (!m_pieces.isEmpty() && m_pieces.first().due <= now) {
        const Piece piece = m_pieces.takeFirst();
        m_pendingBytes -= piece.bytes.size();
        emit output(piece.bytes);
    }
    arm();
}

void SimPrinter::arm()
{
    if (m_pieces.isEmpty() || m_timer.isActive())
        return;
    m_timer.start(int(std::max<qint64>(0, m_pieces.first().due - m_clock.elapsed())));
}
