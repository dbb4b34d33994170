#pragma once

#include "core/ErrorColours.h"
#include "core/PageFactory.h"
#include "core/TreeFixture.h"
#include "printing/clsLBXHandler.h"
#include "services/SettingsAccess.h"
#include "support/FakeApplication.h"

// A page that records how the control set it up.
class RecordingPage : public IPage
{
public:
    RecordingPage() { ++made; }

    void Setup(const QString& sName, ComponentHandler* oHandler) override
    {
        name = sName;
        handler = oHandler;
    }

    static inline int made = 0;
    QString name;
    ComponentHandler* handler = nullptr;
};

// The control against an application whose queues the test sets, with the messages the
// tree's behaviour shows and a recording page for printers and dashboards alike.
class RunningControl : public TreeFixture
{
protected:
    inline static const QString PrinterPage = QStringLiteral("KorvexVigil.ctlScriptedUI");
    inline static const QString DashboardPage = QStringLiteral("KorvexVigil.GroupUI");

    void SetUp() override
    {
        TreeFixture::SetUp();
        g_oComponents.reset();
        writeCatalogue(430, {
                                {2, "The top group can't be deleted."},
                                {4, "Not every printer has a file."},
                                {5, "Not a file for this"},
                                {6, "These printers have a file: %1"},
                                {7, "These printers are in another group: %1"},
                                {8, "A group of that name is already there."},
                                {12, "this user"},
                                {21, "New Group"},
                                {22, "Delete %1?"},
                                {23, "All Printers"},
                                {34, "%1 is made for another printer type."},
                                {392, "%1 may not change the printers."},
                                {404, "<none>"},
                                {426, "Rename"},
                                {430, "Printer properties..."},
                            });
        m_application->administrator = true;
        InstallApplicationFactory([this] { return m_application; });
        for (const QString& page : {PrinterPage, DashboardPage})
            PageFactory::registerClass(page, [] { return std::make_unique<RecordingPage>(); });
    }

    void TearDown() override
    {
        m_control->UserControl_Hide();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        for (const QString& page : {PrinterPage, DashboardPage})
            PageFactory::unregisterClass(page);
        TreeFixture::TearDown();
    }

    // Starts the control with a queue per name, each served by the scripted handler.
    void start(const QStringList& queueNames = {})
    {
        for (const QString& name : queueNames)
            m_application->queues.add(name, ScriptedHandler::FirstNumber);
        m_control->UserControl_Initialize();
    }

    QString idOf(const QString& printerName) const
    {
        const clsComponent* printer = g_oComponents->FindPrinter(printerName);
        return printer ? printer->m_sID : QString();
    }

    ScriptedHandler& handlerNamed(const QString& printerName)
    {
        return handlerOf(*g_oComponents->FindPrinter(printerName));
    }

    // A group as the control shows it, with its item under its parent's.
    std::shared_ptr<clsComponents> shownGroup(const QString& id, const QString& name,
                                              const QString& parent = QStringLiteral("GPRoot"))
    {
        auto node = group(id, name, *dynamic_cast<clsComponents*>(g_oComponents->Find(parent)));
        m_view.addItem(parent, id, name, 0);
        return node;
    }

    void click(const QString& key)
    {
        m_view.selectItem(key);
        m_control->treePrinters_NodeClick(key);
    }

    RecordingPage* shownPage() const
    {
        return dynamic_cast<RecordingPage*>(m_control->currentControl());
    }

    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
};
