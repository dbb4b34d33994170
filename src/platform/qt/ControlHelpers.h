#pragma once

#include <QString>

class ImageList;
class QComboBox;
class QWidget;

// A control's tag marks it as changed by the user ("1"), so that a refresh leaves it alone.
bool IsTagSet(const QWidget& control);
void SetTag(QWidget& control, bool flag);

// Combo entries that carry a number beside their text.
void AddComboItem(QComboBox& combo, const QString& text, qint32 data);
// Selects the first entry carrying `data`; without one the selection stays.
void SelectComboByData(QComboBox& combo, qint32 data);
// The number of the selected entry; raises when nothing is selected.
qint32 GetComboData(const QComboBox& combo);

// The index of the picture under `key` in the owner's list, 0 when there is none.
qint32 GetImageIndex(const ImageList& owner, const QString& key);
// The index of the icon file `name` at `size`, loaded from the icons folder on first need;
// 0 when the file can't be had.
qint32 LoadIconImage(ImageList& owner, const QString& name, qint32 size);
