#pragma once

#include <QCoreApplication>
#include <QList>
#include <optional>

// The kinds of printer a user picks from, one a handler class. Which printer numbers a family
// has is the handler table's business: this only asks it.
class PrinterFamily
{
    Q_DECLARE_TR_FUNCTIONS(PrinterFamily)

public:
    enum Kind { DominoCSeries, DominoASeries, Avery, LocalLabelPrinter };

    static QList<Kind> all();
    static QString displayName(Kind kind);
    // The lowest number whose handler is the family's.
    static qint16 firstNumber(Kind kind);
    // None for a number that no printer handler serves (0 is a group's).
    static std::optional<Kind> of(qint32 printerNumber);
};
