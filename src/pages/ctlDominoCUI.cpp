#include "pages/ctlDominoCUI.h"

#include "pages/NamedControl.h"
#include "pages/ctlDominoCPage1.h"
#include "pages/ctlDominoCPage1_1.h"
#include "pages/ctlDominoCPage2.h"
#include "pages/ctlDominoCPage3.h"
#include "pages/ctlDominoCPage3_1.h"
#include "pages/ctlDominoCPage4.h"
#include "pages/ctlDominoCPage5.h"
#include "pages/ctlGeneralCSeriesPage.h"

ctlDominoCUI::ctlDominoCUI(QWidget* parent)
    : DominoFrame(parent)
    , m_generalPage(NamedControl<ctlGeneralCSeriesPage>("ctlGeneralCSeriesPage_Page"))
{
    setObjectName(QStringLiteral("ctlDominoCUI"));
    auto* setup = NamedControl<ctlDominoCPage1>("ctlDominoCPage1_Page");
    auto* interface = NamedControl<ctlDominoCPage1_1>("ctlDominoCPage1_1_Page");
    auto* alerts = NamedControl<ctlDominoCPage2>("ctlDominoCPage2_Page");
    auto* files = NamedControl<ctlDominoCPage3>("ctlDominoCPage3_Page");
    auto* logos = NamedControl<ctlDominoCPage3_1>("ctlDominoCPage3_1_Page");
    auto* dimensions = NamedControl<ctlDominoCPage4>("ctlDominoCPage4_Page");
    auto* secure = NamedControl<ctlDominoCPage5>("ctlDominoCPage5_Page");
    addPages({{QStringLiteral("ctlGeneralPage"), 121, QStringLiteral("general")},
              {QStringLiteral("ctlDominoCPage1"), 122, QStringLiteral("printer set-up")},
              {QStringLiteral("ctlDominoCPage1_1"), 123, QStringLiteral("interface set-up")},
              {QStringLiteral("ctlDominoCPage2"), 124, QStringLiteral("alerts")},
              {QStringLiteral("ctlDominoCPage3"), 125, QStringLiteral("files")},
              {QStringLiteral("ctlDominoCPage3_1"), 126, QStringLiteral("logos")},
              {QStringLiteral("ctlDominoCPage4"), 127, QStringLiteral("dimensions")},
              {QStringLiteral("ctlDominoCPage5"), 128, QStringLiteral("secure")}},
             {{QStringLiteral("ctlGeneralPage"), m_generalPage},
              {QStringLiteral("ctlDominoCPage1_1"), interface},
              {QStringLiteral("ctlDominoCPage1"), setup},
              {QStringLiteral("ctlDominoCPage2"), alerts},
              {QStringLiteral("ctlDominoCPage3_1"), logos},
              {QStringLiteral("ctlDominoCPage3"), files},
              {QStringLiteral("ctlDominoCPage4"), dimensions},
              {QStringLiteral("ctlDominoCPage5"), secure}},
             {m_generalPage, setup, interface, alerts, files, logos, dimensions, secure},
             {setup, interface, alerts, files, logos, dimensions, secure});
}

void ctlDominoCUI::refreshGeneralPage(ComponentHandler& handler)
{
    m_generalPage->Setup(handler.m_sName, &handler, handler.Port(), handler.HandlerFreindlyName(),
                         handler.PortBusy(), handler.Disabled());
}
