#pragma once

// C-series pages against real coder handlers in a tree, over fake queues that a test answers
// with replies written out by hand.

#include "core/PresentTime.h"
#include "core/TreeFixture.h"
#include "drivers/clsDominoHandlerC.h"
#include "printing/clsLBXHandler.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "ui/WidgetApplication.h"

#include <QMap>

class CSeriesPageFixture : public TreeFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }

    void SetUp() override
    {
        TreeFixture::SetUp();
        m_clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(6, 30)));
        InstallClock(m_clock);
        InstallApplicationFactory([this] { return m_application; });
    }

    void TearDown() override
    {
        g_oComponents.reset();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        InstallClock(nullptr);
        TreeFixture::TearDown();
    }

    // An English catalogue that has only `messages`.
    void writeMessages(const QMap<int, QByteArray>& messages) const
    {
        QByteArray catalogue;
        for (int line = 1; line <= 260; ++line)
            catalogue += messages.value(line) + '\n';
        writeMessageFile(QStringLiteral("en"), catalogue);
    }

    // A coder of the tree on a queue of its own.
    clsDominoHandlerC& coder(const QString& name)
    {
        FakeQueue& queue = m_application->queues.add(name, 2100, QStringLiteral("10.0.4.21:9100"));
        queue.friendlyName = name + QStringLiteral(" (C6000)");
        auto node = std::make_shared<clsComponent>();
        node->m_sID = QStringLiteral("ID%1").arg(g_oComponents->Count() + 1);
        node->m_sName = name;
        node->m_lRemoteObjectPrinterNumber = 2100;
        g_oComponents->AddComponent(node->m_sID, node);
        return *qobject_cast<clsDominoHandlerC*>(node->GetComponent());
    }

    FakeQueue& queueOf(const clsDominoHandlerC& handler) const
    {
        return *m_application->queues.find(handler.m_sName);
    }

    // What went out on the coder's queue since the last look.
    QList<QByteArray> sent(const clsDominoHandlerC& handler) const
    {
        return std::exchange(queueOf(handler).sent, {});
    }

    // A status report of these fields, in the coder's own form.
    static QByteArray statusReport(std::initializer_list<const char*> fields)
    {
        QByteArray reply;
        for (const char* field : fields)
            reply += QByteArray(field) + '\r';
        return reply + '\xFE';
    }

    // A poll round as far as the set-up list: the report, then the list. The rest of the
    // round goes unanswered, and the next round starts afresh.
    void answerRound(clsDominoHandlerC& handler, const QByteArray& status, const QByteArray& setup)
    {
        handler.ResetCurrentCommand();
        handler.Process();
        queueOf(handler).inject(status);
        queueOf(handler).inject(setup);
        sent(handler);
    }

    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>();
};
