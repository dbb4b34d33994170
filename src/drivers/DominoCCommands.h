#pragma once

#include <QByteArray>
#include <QDateTime>

class clsShift;

// The commands of a Domino C-series coder: one command byte, then its arguments, with no
// framing, address or checksum. Replies end with Terminator, or as each command says.
namespace DominoC {
constexpr char CmdStatus = char(0x0E);
constexpr char CmdSetup = char(0x80);
constexpr char CmdErrorLog = char(0x1D);
constexpr char CmdLogoList = char(0x18);
constexpr char CmdCurrentFile = char(0x10);
constexpr char CmdPrintCount = char(0x15);
constexpr char CmdFileList = char(0x19);
constexpr char CmdSetShifts = char(0x13);
constexpr char CmdSetDirection = char(0x04);
constexpr char CmdSetOrientation = char(0x0F);
constexpr char CmdSetClock = char(0x14);
constexpr char CmdSetCounts = char(0x11);
constexpr char CmdSelectMessage = char(0x09);

constexpr char Terminator = char(0xFE);
constexpr char Nak = char(0x15);
constexpr char Soh = char(0x01);
constexpr char Ack = char(0x06);
constexpr char Cr = char(0x0D);
constexpr char Lf = char(0x0A);

// A name this long or longer goes out without a Cr behind it.
constexpr int LongMessageName = 8;

QByteArray SetShifts(const clsShift& shifts);
QByteArray SetDirection(qint32 direction);
QByteArray SetOrientation(qint32 orientation);
// Weekday (1 Monday to 7 Sunday), month, day, four-digit year, 24-hour hour and minute: 13
// digits.
QByteArray SetClock(const QDateTime& when);
QByteArray SetCounts(qint32 count);
QByteArray SelectMessage(const QByteArray& name);
} // namespace DominoC
