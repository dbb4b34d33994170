#include "sim/AveryCommandReader.h"

#include <optional>

namespace {
// The two characters at kCodeAt may be anything.
const QByteArray kShape = QByteArrayLiteral("#!A1#!??#!P1");
constexpr qsizetype kCodeAt = 6;
constexpr qsizetype kCodeSize = 2;

// How many of the bytes from `at` on follow the shape, up to its whole length.
qsizetype fitAt(const QByteArray& bytes, qsizetype at)
{
    qsizetype fit = 0;
    while (fit < kShape.size() && at + fit < bytes.size() &&
           ((fit >= kCodeAt && fit < kCodeAt + kCodeSize) || bytes.at(at + fit) == kShape.at(fit)))
        ++fit;
    return fit;
}

std::optional<AveryCommand> commandOf(const QByteArray& code)
{
    if (code == "X0")
        return AveryCommand::Status;
    if (code == "SR")
        return AveryCommand::Start;
    if (code == "SP")
        return AveryCommand::Stop;
    if (code == "CA")
        return AveryCommand::Clear;
    return std::nullopt;
}
} // namespace

QList<AveryCommand> AveryCommandReader::read(const QByteArray& bytes)
{
    m_buffer += bytes;
    QList<AveryCommand> commands;
    qsizetype at = 0;
    while (at < m_buffer.size()) {
        const qsizetype fit = fitAt(m_buffer, at);
        if (fit == kShape.size()) {
            if (const std::optional<AveryCommand> command =
                    commandOf(m_buffer.mid(at + kCodeAt, kCodeSize)))
                commands.append(*command);
            at += fit;
        } else if (at + fit == m_buffer.size()) {
            // All of it so far fits: the rest is still to come.
            break;
        } else {
            ++at;
        }
    }
    m_buffer.remove(0, at);
    return commands;
}
