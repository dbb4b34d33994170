#pragma once

#include "core/ErrorColours.h"
#include "core/PageFactory.h"
#include "core/PresentTime.h"
#include "core/TreeFixture.h"
#include "drivers/clsDominoHandlerC.h"
#include "pages/PageRegistry.h"
#include "pages/PrinterFrame.h"
#include "pages/SettingsWebLink.h"
#include "platform/qt/QtTreeView.h"
#include "printing/clsLBXHandler.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "ui/WidgetApplication.h"

#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QStackedWidget>
#include <QTabBar>
#include <QTest>

// A tree of printers behind fake queues, with the window's pages registered: a node's page is
// made as the pane makes it, set up by its node and shown. A C-series coder's queue is answered
// with replies written out by hand. The clock stands at 06:30 on 22 November 2026.
class PageFixture : public TreeFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        TreeFixture::SetUp();
        writeCatalogue(261, {{9, "no answer to stage %1 sent at %2"},
                             {102, "Name"},
                             {103, "Port"},
                             {104, "Type"},
                             {112, "General"},
                             {121, "C general"},
                             {261, "A general"}});
        QImage icon(32, 32, QImage::Format_ARGB32);
        icon.fill(Qt::darkCyan);
        QBuffer iconFile;
        iconFile.open(QIODevice::WriteOnly);
        icon.save(&iconFile, "ICO");
        writeFile(QStringLiteral("Icons/LocalLabelPrinter.ico"), iconFile.data());
        m_clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(6, 30)));
        InstallClock(m_clock);
        InstallApplicationFactory([this] { return m_application; });
        RegisterPages();
    }

    void TearDown() override
    {
        m_shown.clear();
        UnregisterPages();
        g_oComponents.reset();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        InstallClock(nullptr);
        TreeFixture::TearDown();
    }

    // A printer of the tree behind a queue, with its icons added as the tree view adds them.
    clsComponent& printer(const QString& name, qint16 number, const QString& port = {})
    {
        m_application->queues.add(name, number, port);
        auto node = std::make_shared<clsComponent>();
        node->m_sID = QStringLiteral("ID%1").arg(g_oComponents->Count() + 1);
        node->m_sName = name;
        node->m_lRemoteObjectPrinterNumber = number;
        g_oComponents->AddComponent(node->m_sID, node);
        node->AddImages(*m_control->imlList(0), *m_control->imlList(3));
        return *node;
    }

    // A C-series coder of the tree on a queue of its own.
    clsDominoHandlerC& coder(const QString& name)
    {
        return *qobject_cast<clsDominoHandlerC*>(
            printer(name, 2100, QStringLiteral("10.0.4.21:9100")).GetComponent());
    }

    FakeQueue& queueOf(const ComponentHandler& handler) const
    {
        return *m_application->queues.find(handler.m_sName);
    }

    // What went out on the printer's queue since the last look.
    QList<QByteArray> sent(const ComponentHandler& handler) const
    {
        return std::exchange(queueOf(handler).sent, {});
    }

    // A coder's status report of these fields, in the coder's own form.
    static QByteArray statusReport(std::initializer_list<const char*> fields)
    {
        QByteArray reply;
        for (const char* field : fields)
            reply += QByteArray(field) + '\r';
        return reply + '\xFE';
    }

    // A coder's poll round as far as the set-up list: the report, then the list. The rest of
    // the round goes unanswered, and the next round starts afresh.
    void answerRound(clsDominoHandlerC& handler, const QByteArray& status, const QByteArray& setup)
    {
        handler.ResetCurrentCommand();
        handler.Process();
        queueOf(handler).inject(status);
        queueOf(handler).inject(setup);
        sent(handler);
    }

    // The page the pane makes for the node, set up by the node and shown.
    QWidget& pageOf(clsComponent& node)
    {
        std::unique_ptr<IPage> page = PageFactory::create(node.GetControlName());
        if (!page)
            throw std::runtime_error("no page " + node.GetControlName().toStdString());
        node.InitialiseControl(*page);
        auto& widget = dynamic_cast<QWidget&>(*page);
        widget.show();
        m_shown.push_back(std::move(page));
        return widget;
    }
    PrinterFrame& frameOf(clsComponent& node) { return dynamic_cast<PrinterFrame&>(pageOf(node)); }

    static QString text(const QWidget& page, const char* label)
    {
        return ChildOf<QLabel>(page, label).text();
    }
    static QStringList texts(const QWidget& page, std::initializer_list<const char*> labels)
    {
        QStringList found;
        for (const char* label : labels)
            found.append(text(page, label));
        return found;
    }

    // The status colour behind the page's general tab, and the colour the state should give.
    static QColor statusColour(const QWidget& page)
    {
        return ChildOf<QWidget>(page, "imgGeneralBackground").palette().color(QPalette::Window);
    }
    static QColor dashboardColour(qint32 state, const QWidget& page)
    {
        return QtTreeView::toColor(LookUpColour(state, DashboardPalette, false), page.palette());
    }

    static QTabBar& tabs(const QWidget& frame) { return ChildOf<QTabBar>(frame, nullptr); }
    static QWidget* shownPage(const QWidget& frame)
    {
        return ChildOf<QStackedWidget>(frame, nullptr).currentWidget();
    }
    static QWidget& tabSheet(const QWidget& frame) { return *tabs(frame).parentWidget(); }
    static void clickTab(const QWidget& frame, int index)
    {
        QTabBar& bar = tabs(frame);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(index).center());
    }
    static SettingsWebLink& settingsView(const QWidget& page)
    {
        return ChildOf<SettingsWebLink>(page, "ctlSettingsWebBrowser");
    }

    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>();
    std::vector<std::unique_ptr<IPage>> m_shown;
};
