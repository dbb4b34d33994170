#include "core/PageFactory.h"

#include <QHash>

namespace {
QHash<QString, PageFactory::Creator>& creators()
{
    static QHash<QString, PageFactory::Creator> table;
    return table;
}
} // namespace

void PageFactory::registerClass(const QString& className, Creator creator)
{
    creators().insert(className.toUpper(), std::move(creator));
}

void PageFactory::unregisterClass(const QString& className)
{
    creators().remove(className.toUpper());
}

bool PageFactory::isRegistered(const QString& className)
{
    return creators().contains(className.toUpper());
}

std::unique_ptr<IPage> PageFactory::create(const QString& className)
{
    const auto creator = creators().constFind(className.toUpper());
    return creator == creators().constEnd() ? nullptr : (*creator)();
}
