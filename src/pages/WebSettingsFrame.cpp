#include "pages/WebSettingsFrame.h"

#include "pages/NamedControl.h"
#include "core/ComponentHandler.h"
#include "pages/SettingsWebLink.h"
#include "platform/qt/Twips.h"

WebSettingsFrame::WebSettingsFrame(QWidget* page, const Tab& pageTab,
                                   const QString& settingsCaption, QSize minimumTwips,
                                   QWidget* parent)
    : PrinterFrame(QStringLiteral("TabStrip1"), false, parent)
    , m_page(page)
    , m_pageKey(pageTab.key)
    , m_ctlSettingsWebBrowser(NamedControl<SettingsWebLink>("ctlSettingsWebBrowser"))
    , m_minimumTwips(minimumTwips)
{
    addTabs({pageTab, {QStringLiteral("ctlSettingsPage"), 0, settingsCaption}},
            {page, m_ctlSettingsWebBrowser});
    layOut(minimumTwips);
}

std::optional<bool> WebSettingsFrame::DoResize(qint16 nWidth, qint16 nHeight)
{
    resize(toPixels(std::max<int>(nWidth, m_minimumTwips.width())),
           toPixels(std::max<int>(nHeight, m_minimumTwips.height())));
    return true;
}

QWidget* WebSettingsFrame::pageForTag(const QString& tag)
{
    if (tag.contains(m_pageKey))
        return m_page;
    if (m_ctlSettingsWebBrowser->isBlank() && m_Handler) {
        const QString host = m_Handler->Port().section(QLatin1Char(':'), 0, 0);
        m_ctlSettingsWebBrowser->navigate(QStringLiteral(R"(http:\\)") + host);
    }
    return m_ctlSettingsWebBrowser;
}
