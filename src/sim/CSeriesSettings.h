#pragma once

#include "sim/SimKnobs.h"

#include <QByteArray>
#include <QList>
#include <optional>

// What a simulated C-series coder is set up with, from its knobs. Every knob may be left out:
// without any it is a healthy coder with six heads, a few messages and an empty error log.
struct CSeriesSettings
{
    int inkStatus = 0;
    // Shown behind the ink state digit; usually one or two digits, but a reader splits off the
    // state digit whatever the length.
    int remaining = 99;
    int errors = 0;
    // The line from which the log holds its older entries; 0 or 1: no wrap.
    int wrap = 0;
    QList<QByteArray> files;
    QByteArray currentFile;
    QList<QByteArray> logos;
    int count = 0;
    int heads = 6;
    QByteArray version;
    QByteArray app;
    QByteArray fpga;
    // Command bytes whose replies are spoilt; -1 for none.
    int nakCode = -1;
    int sohCode = -1;
    int garbleCode = -1;
    // Seconds after power-on, -1 for never; an error lasting 0 seconds stays.
    qint64 inkLowAfter = -1;
    qint64 errorAfter = -1;
    qint64 errorFor = 0;
    bool bHighBit = true;
    bool bPacked = true;
    bool bMonthFirst = false;
    char dateSeparator = '/';

    // None with `error` naming the first bad knob.
    static std::optional<CSeriesSettings> read(const SimKnobs& knobs, QString& error);
};
