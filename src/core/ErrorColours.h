#pragma once

#include "core/ErrorState.h"

#include <QtGlobal>

// Colours are 32-bit: 0x800000nn stands for a colour of the desktop's palette, anything
// else for red + green * 256 + blue * 65536.
constexpr quint32 WindowBackground = 0x80000005;
constexpr quint32 ButtonFace = 0x8000000F;
constexpr quint32 GreyText = 0x80000011;
constexpr quint32 ButtonText = 0x80000012;

constexpr quint32 Rgb(quint32 red, quint32 green, quint32 blue)
{
    return red | (green << 8) | (blue << 16);
}

// Palette 0 serves the tree and everything else, palette 1 the dashboards.
constexpr qint32 TreePalette = 0;
constexpr qint32 DashboardPalette = 1;

// The background, or with bContrastColour the text colour, of a state. A state outside
// 0 to 5 gives 0.
quint32 LookUpColour(qint32 state, qint32 eViewType, bool bContrastColour);
