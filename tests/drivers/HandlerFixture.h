#pragma once

#include "core/ErrorColours.h"
#include "core/PresentTime.h"
#include "core/clsComponent.h"
#include "printing/clsLBXHandler.h"
#include "support/FakeApplication.h"
#include "support/FakeClock.h"
#include "support/ServicesFixture.h"

#include <functional>

// A printer node on a fake application, with the clock at 06:30 on 22 November 2026.
class HandlerFixture : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        m_clock->setNow(QDateTime(QDate(2026, 11, 22), QTime(6, 30)));
        InstallClock(m_clock);
        InstallApplicationFactory([this] { return m_application; });
    }

    void TearDown() override
    {
        m_node.reset();
        ReleaseGlobalLBX();
        InstallApplicationFactory(nullptr);
        InstallClock(nullptr);
        ServicesFixture::TearDown();
    }

    // A node on a queue of its own; `prepare` sees it before it makes its handler.
    template <typename Handler>
    Handler& node(const QString& name, qint16 number,
                  const std::function<void(clsComponent&)>& prepare = {})
    {
        m_queue = &m_application->queues.add(name, number);
        m_node = std::make_shared<clsComponent>();
        m_node->m_sID = QStringLiteral("ID1");
        m_node->m_sName = name;
        m_node->m_lRemoteObjectPrinterNumber = number;
        if (prepare)
            prepare(*m_node);
        auto* made = qobject_cast<Handler*>(m_node->GetComponent());
        EXPECT_NE(made, nullptr);
        return *made;
    }

    // What went out since the last look.
    QList<QByteArray> sent() { return std::exchange(m_queue->sent, {}); }
    void later(int seconds) { m_clock->setNow(m_clock->now().addSecs(seconds)); }

    std::shared_ptr<FakeClock> m_clock = std::make_shared<FakeClock>();
    std::shared_ptr<FakeApplication> m_application = std::make_shared<FakeApplication>();
    FakeQueue* m_queue = nullptr;
    std::shared_ptr<clsComponent> m_node;
};
