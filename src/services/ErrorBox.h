#pragma once

#include <QString>
#include <exception>

class VigilError;

// The program's title, before the brand words are applied.
inline const QString ProgramTitle = QStringLiteral("Korvex Vigil");

// The warning box that every error trap uses.
void ShowError(const QString& text, const QString& context);
QString GetErrorTitle(const QString& context);

// What an error trap shows: the description, " - " and the number, titled by the
// context ("AddInControl - Save"). A failure that isn't ours has the number 0.
void ShowTrappedError(const VigilError& error, const QString& context);
void ShowTrappedError(const std::exception& error, const QString& context);

// Runs a routine inside its error trap: a failure is shown with the routine's context and
// the routine ends normally. Answers whether the routine got through.
template <typename Routine> bool RunTrapped(const QString& context, Routine&& routine)
{
    try {
        routine();
        return true;
    } catch (const std::exception& error) {
        ShowTrappedError(error, context);
        return false;
    }
}

// Runs a step whose failure the caller ignores: the step is skipped and what follows runs.
template <typename Step> void IgnoringFailure(Step&& step)
{
    try {
        step();
    } catch (const std::exception&) {
    }
}
