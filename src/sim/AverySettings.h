#pragma once

#include "sim/AveryLayout.h"
#include "sim/SimKnobs.h"

#include <QByteArray>
#include <optional>

// What a simulated Avery label printer is set up with, from its knobs. Every knob may be left
// out: without any it is an idle printer of the short frame, with no error and no labels.
struct AverySettings
{
    static constexpr qint64 kLargestNumber = 999'999'999;

    AveryLayout layout = AveryLayout::shortForm();
    // No wider than the layout's field.
    QByteArray code;
    bool bFlagged = false;
    int format = 0;
    // Wider than their fields, they are sent as the largest the fields hold.
    qint64 labels = 0;
    qint64 freeBytes = 0;
    QByteArray version;
    bool bPrinting = false;
    // Frames a reader must refuse: a marker letter wrong, letters in the labels to print.
    bool bBadMarker = false;
    bool bNonDigit = false;

    // None with `error` naming the first bad knob.
    static std::optional<AverySettings> read(const SimKnobs& knobs, QString& error);
};
