#include "pages/ctlLBXPrinterUI.h"

#include "pages/NamedControl.h"
#include "core/ComponentHandler.h"
#include "pages/ctlGeneralPage.h"

ctlLBXPrinterUI::ctlLBXPrinterUI(QWidget* parent)
    : ctlLBXPrinterUI(NamedControl<ctlGeneralPage>("ctlGeneralPage_Page"), parent)
{}

ctlLBXPrinterUI::ctlLBXPrinterUI(ctlGeneralPage* generalPage, QWidget* parent)
    : WebSettingsFrame(generalPage, {QStringLiteral("ctlGeneralPage"), 112, QStringLiteral("general")},
                       QStringLiteral("Settings"), QSize(7000, 4500), parent)
    , m_generalPage(generalPage)
{
    setObjectName(QStringLiteral("ctlLBXPrinterUI"));
}

void ctlLBXPrinterUI::refreshGeneralPage(ComponentHandler& handler)
{
    m_generalPage->Setup(handler.m_sName, handler.Port(), handler.HandlerFreindlyName(),
                         handler.PortBusy(), handler.Disabled());
}
