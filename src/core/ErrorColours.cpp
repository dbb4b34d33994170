#include "core/ErrorColours.h"

namespace {
struct ColourPair
{
    quint32 background;
    quint32 text;
};

constexpr ColourPair TreeColours[] = {
    {WindowBackground, ButtonText},       // no answer
    {WindowBackground, Rgb(0, 178, 0)},   // good
    {Rgb(255, 255, 0), ButtonText},       // warning
    {Rgb(255, 0, 0), Rgb(255, 255, 255)}, // fault
    {Rgb(255, 0, 0), Rgb(255, 255, 255)}, // port busy
    {WindowBackground, GreyText},         // disabled
};

constexpr ColourPair DashboardColours[] = {
    {ButtonFace, ButtonText}, {Rgb(0, 255, 0), 0}, {Rgb(255, 255, 0), 0},
    {Rgb(255, 0, 0), 0},      {Rgb(255, 0, 0), 0}, {ButtonFace, 0},
};
} // namespace

quint32 LookUpColour(qint32 state, qint32 eViewType, bool bContrastColour)
{
    if (state < StateNoAnswer || state > StateDisabled)
        return 0;
    const ColourPair& pair =
        eViewType == DashboardPalette ? DashboardColours[state] : TreeColours[state];
    return bContrastColour ? pair.text : pair.background;
}
