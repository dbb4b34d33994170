#include "pages/ctlDominoAUI.h"

#include "pages/NamedControl.h"
#include "pages/ctlDominoAPage1.h"
#include "pages/ctlDominoAPage2.h"
#include "pages/ctlDominoAPage3.h"
#include "pages/ctlDominoAPage4.h"
#include "pages/ctlGeneralPage.h"

#include "services/ErrorBox.h"

#include <QPushButton>

ctlDominoAUI::ctlDominoAUI(QWidget* parent)
    : DominoFrame(parent)
    , m_generalPage(NamedControl<ctlGeneralPage>("ctlGeneralPage_Page"))
    , m_propertiesPage(NamedControl<ctlDominoAPage1>("ctlDominoAPage1_Page"))
{
    setObjectName(QStringLiteral("ctlDominoAUI"));
    auto* engineer = NamedControl<ctlDominoAPage2>("ctlDominoAPage2_Page");
    auto* alarms = NamedControl<ctlDominoAPage3>("ctlDominoAPage3_Page");
    auto* printSetup = NamedControl<ctlDominoAPage4>("ctlDominoAPage4_Page");
    addPages({{QStringLiteral("ctlGeneralPage"), 261, QStringLiteral("general")},
              {QStringLiteral("ctlDominoAPage1"), 262, QStringLiteral("properties")},
              {QStringLiteral("ctlDominoAPage2"), 263, QStringLiteral("engineer")},
              {QStringLiteral("ctlDominoAPage3"), 264, QStringLiteral("alarms")},
              {QStringLiteral("ctlDominoAPage4"), 265, QStringLiteral("print set-up")}},
             {{QStringLiteral("ctlGeneralPage"), m_generalPage},
              {QStringLiteral("ctlDominoAPage1"), m_propertiesPage},
              {QStringLiteral("ctlDominoAPage2"), engineer},
              {QStringLiteral("ctlDominoAPage3"), alarms},
              {QStringLiteral("ctlDominoAPage4"), printSetup}},
             {m_generalPage, m_propertiesPage, engineer, alarms, printSetup},
             {m_propertiesPage, engineer, alarms, printSetup});
    connect(m_cmdApply, &QPushButton::clicked, this, &ctlDominoAUI::cmdApply_Click);
    connect(m_cmdCancel, &QPushButton::clicked, this, &ctlDominoAUI::cmdCancel_Click);
}

void ctlDominoAUI::refreshGeneralPage(ComponentHandler& handler)
{
    m_generalPage->Setup(handler.m_sName, handler.Port(), handler.HandlerFreindlyName(),
                         handler.PortBusy(), handler.Disabled());
}

void ctlDominoAUI::CheckApply()
{
    const bool modified = m_propertiesPage->IsPageModified();
    m_cmdApply->setEnabled(modified);
    m_cmdCancel->setEnabled(modified);
}

void ctlDominoAUI::cmdApply_Click()
{
    RunTrapped(context("cmdApply_Click"), [this] {
        m_propertiesPage->ApplyModified();
        CheckApply();
    });
}

void ctlDominoAUI::cmdCancel_Click()
{
    RunTrapped(context("cmdCancel_Click"), [this] {
        m_propertiesPage->ClearModified();
        CheckApply();
    });
}
