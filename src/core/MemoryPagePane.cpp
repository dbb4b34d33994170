#include "core/MemoryPagePane.h"

#include "core/PageFactory.h"

namespace {
// A page with nothing to draw on: the node's name and handler are all it would show.
class BlankPage : public IPage
{
public:
    void Setup(const QString&, ComponentHandler*) override {}
};
} // namespace

IPage* MemoryPagePane::createPage(const QString& className, const QString& name)
{
    std::shared_ptr<IPage> page = PageFactory::create(className);
    if (!page)
        page = std::make_shared<BlankPage>();
    m_pages.insert(name, {className, page});
    return page.get();
}

void MemoryPagePane::removePage(const QString& name)
{
    m_pages.remove(name);
}

QString MemoryPagePane::pageClass(const QString& name) const
{
    return m_pages.value(name).className;
}

IPage* MemoryPagePane::page(const QString& name) const
{
    return m_pages.value(name).page.get();
}
