#include "pages/ctlAveryUI.h"

#include "pages/NamedControl.h"
#include "pages/ctlAveryPage1.h"

ctlAveryUI::ctlAveryUI(QWidget* parent)
    : ctlAveryUI(NamedControl<ctlAveryPage1>("ctlAveryPage1_Page"), parent)
{}

ctlAveryUI::ctlAveryUI(ctlAveryPage1* averyPage, QWidget* parent)
    : WebSettingsFrame(averyPage, {QStringLiteral("ctlAveryPage1"), 112, QStringLiteral("avery")},
                       QStringLiteral("settings"), QSize(7000, 5000), parent)
    , m_averyPage(averyPage)
{
    setObjectName(QStringLiteral("ctlAveryUI"));
}

void ctlAveryUI::setupPages(const QString& sName, ComponentHandler& handler)
{
    m_averyPage->Setup(sName, &handler);
}
