#include "platform/qt/PrinterFamily.h"

#include "core/HandlerTable.h"
#include "drivers/clsAveryHandler.h"
#include "drivers/clsDominoHandlerA.h"
#include "drivers/clsDominoHandlerC.h"
#include "drivers/clsLBXPrinterHandler.h"

#include <QHash>
#include <limits>

namespace {
// Asked once: the table doesn't change while the program runs.
QHash<PrinterFamily::Kind, qint16> firstNumbers()
{
    QHash<PrinterFamily::Kind, qint16> numbers;
    const qsizetype wanted = PrinterFamily::all().size();
    for (qint32 number = 1; number <= std::numeric_limits<qint16>::max() && numbers.size() < wanted;
         ++number) {
        const std::optional<PrinterFamily::Kind> family = PrinterFamily::of(number);
        if (family && !numbers.contains(*family))
            numbers.insert(*family, qint16(number));
    }
    return numbers;
}
} // namespace

QList<PrinterFamily::Kind> PrinterFamily::all()
{
    return {DominoCSeries, DominoASeries, Avery, LocalLabelPrinter};
}

QString PrinterFamily::displayName(Kind kind)
{
    switch (kind) {
    case DominoCSeries:
        return tr("Domino C-series");
    case DominoASeries:
        return tr("Domino A-series");
    case Avery:
        return tr("Avery");
    case LocalLabelPrinter:
        return tr("Local label printer");
    }
    return {};
}

qint16 PrinterFamily::firstNumber(Kind kind)
{
    static const QHash<Kind, qint16> numbers = firstNumbers();
    return numbers.value(kind);
}

std::optional<PrinterFamily::Kind> PrinterFamily::of(qint32 printerNumber)
{
    const std::unique_ptr<ComponentHandler> handler = HandlerTable::createFor(printerNumber);
    if (dynamic_cast<clsDominoHandlerC*>(handler.get()))
        return DominoCSeries;
    if (dynamic_cast<clsDominoHandlerA*>(handler.get()))
        return DominoASeries;
    if (dynamic_cast<clsAveryHandler*>(handler.get()))
        return Avery;
    if (dynamic_cast<clsLBXPrinterHandler*>(handler.get()))
        return LocalLabelPrinter;
    return std::nullopt;
}
