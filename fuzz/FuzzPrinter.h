#pragma once

#include "FuzzEnvironment.h"
#include "FuzzSteps.h"
#include "core/clsComponent.h"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>

// A printer node of one kind on a queue of its own, made for one input and gone with it,
// queue and all, so that no input inherits another's state. Steps of every handler target
// share their first events; a target gives the rest its own meaning.
template <typename Handler> class FuzzPrinter
{
public:
    enum SharedEvent : quint8 {
        JustData = 0,
        Tick = 1,
        // The argument's number of seconds pass, and the handler looks for a lost reply.
        TimePasses = 2,
        FirstOwnEvent = 3,
    };
    static constexpr qint16 TimeoutSeconds = 5;

    explicit FuzzPrinter(qint16 printerNumber,
                         const std::function<void(clsComponent&)>& prepare = {})
        : m_queue(FuzzEnvironment::instance().application().queues.add(Name, printerNumber))
        , m_node(std::make_shared<clsComponent>())
    {
        m_node->m_sID = QStringLiteral("ID1");
        m_node->m_sName = Name;
        m_node->m_lRemoteObjectPrinterNumber = printerNumber;
        if (prepare)
            prepare(*m_node);
        m_handler = qobject_cast<Handler*>(m_node->GetComponent());
        if (!m_handler) {
            std::fprintf(stderr, "fuzz: printer number %d makes no handler of this kind\n",
                         printerNumber);
            std::abort();
        }
    }

    ~FuzzPrinter()
    {
        m_node.reset();
        FuzzEnvironment::instance().application().queues.remove(Name);
    }

    FuzzPrinter(const FuzzPrinter&) = delete;
    FuzzPrinter& operator=(const FuzzPrinter&) = delete;

    Handler& handler() { return *m_handler; }

    // The shared part of a step: its event if it is a shared one, then its data as the next
    // piece from the printer. The queue forgets what was sent, so that a long input
    // doesn't pile it up.
    void deliver(const FuzzSteps::Step& step)
    {
        if (step.event == Tick) {
            m_handler->Process();
        } else if (step.event == TimePasses) {
            FakeClock& clock = FuzzEnvironment::instance().clock();
            clock.setNow(clock.now().addSecs(step.argument));
            m_handler->ProcessTimeout(TimeoutSeconds);
        }
        if (!step.data.isEmpty())
            m_queue.inject(step.data);
        m_queue.sent.clear();
        m_queue.replyWantedWrites.clear();
    }

    // What the tree and the pages read after each step.
    void readState()
    {
        m_node->GetErrorState();
        m_node->TreeText();
        m_node->GetHighestAlert();
    }

private:
    inline static const QString Name = QStringLiteral("Printer");

    FakeQueue& m_queue;
    std::shared_ptr<clsComponent> m_node;
    Handler* m_handler = nullptr;
};
