#include "core/HandlerTable.h"

#include "core/GroupHandler.h"
#include "drivers/clsAveryHandler.h"
#include "drivers/clsDominoHandlerA.h"
#include "drivers/clsDominoHandlerC.h"
#include "drivers/clsLBXPrinterHandler.h"

#include <QList>
#include <algorithm>

namespace {
struct HandlerClass
{
    int rank;
    QString name;
    HandlerTable::Factory factory;
};

template <typename Handler> HandlerTable::Factory make()
{
    return [] {
        return std::make_unique<Handler>();
    };
}

QList<HandlerClass>& classes()
{
    static QList<HandlerClass> table = {
        {1, QStringLiteral("GroupHandler"), make<GroupHandler>()},
        {2, QStringLiteral("clsDominoHandlerC"), make<clsDominoHandlerC>()},
        {3, QStringLiteral("clsDominoHandlerA"), make<clsDominoHandlerA>()},
        {4, QStringLiteral("clsAveryHandler"), make<clsAveryHandler>()},
        {5, QStringLiteral("clsLBXPrinterHandler"), make<clsLBXPrinterHandler>()},
    };
    return table;
}
} // namespace

std::unique_ptr<ComponentHandler> HandlerTable::createFor(qint32 printerNumber)
{
    for (const HandlerClass& handlerClass : std::as_const(classes())) {
        auto handler = handlerClass.factory();
        if (handler->IsPrinterTypeSupported(printerNumber))
            return handler;
    }
    return nullptr;
}

bool HandlerTable::IsPrinterSupported(qint32 printerNumber)
{
    return createFor(printerNumber) != nullptr;
}

void HandlerTable::registerClass(int rank, const QString& name, Factory factory)
{
    auto& table = classes();
    const auto at = std::find_if(table.begin(), table.end(),
                                 [rank](const HandlerClass& entry) { return entry.rank > rank; });
    table.insert(at, {rank, name, std::move(factory)});
}

void HandlerTable::unregisterClass(const QString& name)
{
    classes().removeIf([&name](const HandlerClass& entry) { return entry.name == name; });
}
