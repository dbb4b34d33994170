#pragma once

#include <QString>

class VigilError;

// The program's title, before the brand words are applied.
inline const QString ProgramTitle = QStringLiteral("Korvex Vigil");

// The warning box that every error trap uses.
void ShowError(const QString& text, const QString& context);
QString GetErrorTitle(const QString& context);

// What an error trap shows: the description, " - " and the number, titled by the
// context ("AddInControl - Save").
void ShowTrappedError(const VigilError& error, const QString& context);
