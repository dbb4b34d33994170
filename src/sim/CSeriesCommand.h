#pragma once

#include <QtGlobal>

// The command bytes a C-series coder answers, and the single bytes it answers with.
namespace CSeriesCommand {
constexpr quint8 SetDirection = 4;
constexpr quint8 SelectMessage = 9;
constexpr quint8 Status = 14;
constexpr quint8 SetOrientation = 15;
constexpr quint8 CurrentFile = 16;
constexpr quint8 SetCounts = 17;
constexpr quint8 SetShifts = 19;
constexpr quint8 SetClock = 20;
constexpr quint8 PrintCount = 21;
constexpr quint8 LogoList = 24;
constexpr quint8 FileList = 25;
constexpr quint8 ErrorLog = 29;
constexpr quint8 Setup = 128;

constexpr char Soh = 1;
constexpr char Ack = 6;
constexpr char LineFeed = 10;
constexpr char Return = 13;
constexpr char Nak = 21;
constexpr char End = char(254);

constexpr bool isKnown(int code)
{
    switch (code) {
    case SetDirection:
    case SelectMessage:
    case Status:
    case SetOrientation:
    case CurrentFile:
    case SetCounts:
    case SetShifts:
    case SetClock:
    case PrintCount:
    case LogoList:
    case FileList:
    case ErrorLog:
    case Setup:
        return true;
    default:
        return false;
    }
}
} // namespace CSeriesCommand
