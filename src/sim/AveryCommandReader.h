#pragma once

#include <QByteArray>
#include <QList>

enum class AveryCommand { Status, Start, Stop, Clear };

// Finds the commands in the bytes as they come: "#!A1#!", two characters, "#!P1", and nothing
// behind them, 1 being the printer's address, the only one a host uses. A command may come
// split across fragments, and a fragment may hold several.
// - Bytes that can't begin a command are noise and go; so does the beginning of a command
//   whose shape breaks off, or that is for another address, and the search goes on from the
//   byte behind its first.
// - A command of two characters the printer doesn't know is dropped whole, unanswered.
// Between reads it holds at most the beginning of one command.
class AveryCommandReader
{
public:
    QList<AveryCommand> read(const QByteArray& bytes);
    qsizetype buffered() const { return m_buffer.size(); }

private:
    QByteArray m_buffer;
};
