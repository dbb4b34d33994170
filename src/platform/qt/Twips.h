#pragma once

#include <QtMath>

// The control counts sizes and points in twips; the screen in pixels, 15 twips each at 96 dpi.
constexpr int TwipsPerPixel = 15;

inline int toPixels(double twips)
{
    return qRound(twips / TwipsPerPixel);
}

inline float toTwips(double pixels)
{
    return float(pixels * TwipsPerPixel);
}
