#pragma once

#include "platform/qt/Twips.h"

#include <QString>

class QWidget;

// Where a window stands between runs, and where it first comes up. Places are kept in twips,
// the forms' one scale mode, at 15 twips a pixel; the screen is the available area of the
// form's screen.
constexpr qint16 TwipsScaleMode = 1;

// Keeps the form's place in the machine hive under rootKey + "Forms\", only while the form
// lies wholly inside the screen: a form dragged partly off keeps its last good place.
void SaveFormPosition(QWidget& form, const QString& name, const QString& rootKey);
// Puts the form back at its kept place; a place that is missing or unreadable centres it.
void RestoreFormPosition(QWidget& form, const QString& name, const QString& rootKey);
// Centres a form that has no owner window on the screen.
void CentreForm(QWidget& form);
// Shows the form in its normal state, first centred over the control's window if asked.
void ShowForm(QWidget& form, bool overOwner);
// Centres the form over the window (the screen without one), kept inside the screen.
void CentreOverWindow(QWidget* window, QWidget& form);
