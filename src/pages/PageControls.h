#pragma once

#include "pages/NamedControl.h"

#include <QString>
#include <optional>
#include <span>

class QComboBox;
class QLineEdit;

// What the printer pages share in the way they build and guard their controls.

// One entry of a list that is filled from the catalogue.
struct ComboEntry
{
    qint32 messageId;
    const char* fallback;
    qint32 data;
};

// Empties the combo and adds the entries in order, each text from the catalogue; none is
// selected until the page selects one.
void FillCombo(QComboBox& combo, std::span<const ComboEntry> entries);

// The combo shows its value at full contrast, as an enabled one does, but neither mouse nor
// keyboard can open or change it: the pages show the printer's settings, they don't set them.
void MakeReadOnly(QComboBox& combo);

// Whatever way the box gets the focus, its whole text is selected, ready to be typed over.
void SelectAllOnFocus(QLineEdit& box);

// The number a box holds, rounded to a whole one, if the text is a number within the bounds.
std::optional<qint32> WholeNumberWithin(const QString& text, qint32 lowest, qint32 highest);
