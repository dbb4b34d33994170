#pragma once

#include "core/ComponentHandler.h"

#include <functional>
#include <memory>

// The handler classes in the order a node tries them. Only the printer number decides: the
// first class that claims it serves the node, and the local label printer, last, claims
// every number.
namespace HandlerTable {
using Factory = std::function<std::unique_ptr<ComponentHandler>()>;

std::unique_ptr<ComponentHandler> createFor(qint32 printerNumber);
// Whether some class claims the number, asked of throw-away instances.
bool IsPrinterSupported(qint32 printerNumber);

// Puts a further class into the table ahead of every class of a higher rank; the built-in
// classes stand at ranks 1 to 5. Used by the simulators' and the tests' own kinds.
void registerClass(int rank, const QString& name, Factory factory);
void unregisterClass(const QString& name);
} // namespace HandlerTable
