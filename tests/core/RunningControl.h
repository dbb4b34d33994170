#pragma once

#include "core/ErrorColours.h"
#include "core/PageFactory.h"
#include "core/TreeFixture.h"
#include "printing/clsLBXHandler.h"
#include "services/SettingsAccess.h"
#include "support/FakeApplication.h"

#include <QMap>

// A page that records how the control set it up and answers a resize as the test says.
class RecordingPage : public IPage
{
public:
    RecordingPage() { ++made; }

    void Setup(const QString& sName, ComponentHandler* oHandler) override
    {
        name = sName;
        handler = oHandler;
    }
    std::optional<bool> DoResize(qint16 nWidth, qint16 nHeight) override
    {
        resizedTo = {nWidth, nHeight};
        return resizeAnswer;
    }

    // How many pages have been made.
    static inline int made = 0;
    QString name;
    ComponentHandler* handler = nullptr;
    std::optional<bool> resizeAnswer;
    std::pair<qint16, qint16> resizedTo{0, 0};
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
        const QMap<int, QByteArray> messages{
            {2, "The top group can't be deleted."},
            {3, "The group still holds printers."},
            {8, "A group of that name is already there."},
            {12, "this user"},
            {21, "New Group"},
            {22, "Delete %1?"},
            {23, "All Printers"},
            {392, "%1 may not change the printers."},
            {404, "<none>"},
            {422, "Group"},
            {423, "Identifiers..."},
            {424, "New"},
            {425, "Delete"},
            {426, "Rename"},
            {427, "Printer"},
            {428, "Disable"},
            {430, "Printer properties..."},
        };
        QByteArray catalogue;
        for (int line = 1; line <= 430; ++line)
            catalogue += messages.value(line) + '\n';
        writeMessageFile(QStringLiteral("en"), catalogue);
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

    static QStringList storedChildren(const QString& key)
    {
        QStringList names;
        EnumSubKeys(HKEY_LOCAL_MACHINE, names, key);
        return names;
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
