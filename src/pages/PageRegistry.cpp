#include "pages/PageRegistry.h"

#include "core/PageFactory.h"
#include "dashboard/GroupUI.h"
#include "drivers/clsDominoHandlerA.h"
#include "drivers/clsDominoHandlerC.h"
#include "pages/ctlLBXPrinterUI.h"

namespace {
constexpr qint32 MsgCSeriesGeneralTab = 121;
constexpr qint32 MsgASeriesGeneralTab = 261;
constexpr qint32 MsgAveryFirstTab = 112;
const QString Module = QStringLiteral("KorvexVigil.");

template <typename Handler> QString timeoutMessageOf(ComponentHandler& handler)
{
    const auto* typed = qobject_cast<Handler*>(&handler);
    return typed ? typed->TimeoutMessage() : QString();
}

// Until the coders and the Avery printers get frames of their own, they show their general
// page in the frame the local printer has.
const PrinterFrame::Kind InterimKinds[] = {
    {.controlName = QStringLiteral("ctlDominoCUI"),
     .generalCaptionId = MsgCSeriesGeneralTab,
     .settingsCaption = {},
     .minimumSize = std::nullopt,
     .timeoutMessage = &timeoutMessageOf<clsDominoHandlerC>},
    {.controlName = QStringLiteral("ctlDominoAUI"),
     .generalCaptionId = MsgASeriesGeneralTab,
     .settingsCaption = {},
     .minimumSize = std::nullopt,
     .timeoutMessage = &timeoutMessageOf<clsDominoHandlerA>},
    {.controlName = QStringLiteral("ctlAveryUI"),
     .generalCaptionId = MsgAveryFirstTab,
     .settingsCaption = QStringLiteral("settings"),
     .minimumSize = QSize(7000, 5000),
     .timeoutMessage = {}},
};

template <typename Page> std::unique_ptr<IPage> make()
{
    return std::make_unique<Page>();
}

// Every page class of the window with the way to make it.
QList<std::pair<QString, PageFactory::Creator>> pageClasses()
{
    QList<std::pair<QString, PageFactory::Creator>> classes{
        {Module + QStringLiteral("ctlLBXPrinterUI"), &make<ctlLBXPrinterUI>},
        {Module + QStringLiteral("GroupUI"), &make<GroupUI>},
    };
    for (const PrinterFrame::Kind& kind : InterimKinds) {
        const auto makeFrame = [kind]() -> std::unique_ptr<IPage> {
            return std::make_unique<PrinterFrame>(kind);
        };
        classes.append({Module + kind.controlName, makeFrame});
    }
    return classes;
}
} // namespace

void RegisterPages()
{
    for (auto& [pageClass, creator] : pageClasses())
        PageFactory::registerClass(pageClass, std::move(creator));
}

void UnregisterPages()
{
    for (const auto& entry : pageClasses())
        PageFactory::unregisterClass(entry.first);
}
