// What an operator does from a printer's pages reaches a simulated printer in this process,
// and what the printer does then comes back to the page.

#include "drivers/clsAveryHandler.h"
#include "drivers/clsDominoHandlerA.h"
#include "sim/ASeriesEngine.h"
#include "sim/AveryEngine.h"
#include "sim/CSeriesEngine.h"
#include "support/EnginePump.h"
#include "ui/PageFixture.h"

#include <QLineEdit>
#include <QPushButton>

namespace {
class PageActionsTest : public PageFixture
{
protected:
    using Create = std::unique_ptr<SimEngine> (*)(const SimKnobs&, QString&);

    // A printer of the tree whose queue a simulated printer answers, with its frame shown.
    struct Simulated
    {
        QWidget& frame;
        ComponentHandler& handler;
        SimEngine& engine;
        EnginePump& pump;
    };

    Simulated simulated(const QString& name, qint16 number, Create create, const QString& knobs)
    {
        clsComponent& node = printer(name, number);
        QString error;
        const std::optional<SimKnobs> parsed = SimKnobs::fromQuery(knobs, error);
        std::unique_ptr<SimEngine> engine = parsed ? create(*parsed, error) : nullptr;
        if (!engine)
            throw std::runtime_error(error.toStdString());
        SimEngine& simulator = *engine;
        m_pumps.push_back(
            std::make_unique<EnginePump>(*m_application->queues.find(name), std::move(engine)));
        Simulated printer{pageOf(node), *node.GetComponent(), simulator, *m_pumps.back()};
        poll(printer);
        return printer;
    }

    // A tick of the poll timer, and every exchange it leads to.
    void poll(const Simulated& printer)
    {
        printer.handler.Process();
        exchange(printer);
    }
    void exchange(const Simulated& printer)
    {
        m_clock->setNow(m_clock->now().addSecs(1));
        printer.pump.run(m_clock->now());
    }
    static void click(const Simulated& printer, const char* button)
    {
        ChildOf<QPushButton>(printer.frame, button).click();
    }

    std::vector<std::unique_ptr<EnginePump>> m_pumps;
};

TEST_F(PageActionsTest, ACoderResetsItsCountFromItsPage)
{
    const Simulated coder = simulated("Filler", 2100, &CSeriesEngine::create, "count=1520");
    const auto& state = dynamic_cast<CSeriesEngine&>(coder.engine).state();
    EXPECT_EQ(ChildOf<QLineEdit>(coder.frame, "txtCount").text(), QStringLiteral("1520"));

    click(coder, "cmdReset");
    exchange(coder);
    EXPECT_EQ(state.printCount, 0);
    EXPECT_EQ(ChildOf<QLineEdit>(coder.frame, "txtCount").text(), QStringLiteral("0"));
}

TEST_F(PageActionsTest, AnASeriesClockIsSetByApply)
{
    const Simulated capper = simulated("Capper", 2010, &ASeriesEngine::create, "count=8400");
    auto& handler = dynamic_cast<clsDominoHandlerA&>(capper.handler);
    ASSERT_TRUE(handler.DateTime().isValid());
    auto& time = ChildOf<QLineEdit>(capper.frame, "txtTime");
    auto& apply = ChildOf<QPushButton>(capper.frame, "cmdApply");
    auto& cancel = ChildOf<QPushButton>(capper.frame, "cmdCancel");
    EXPECT_FALSE(apply.isEnabled());

    // Cancel drops the typed time: the next status shows the printer's own again.
    time.setText(QStringLiteral("23:45:00"));
    EXPECT_TRUE(cancel.isEnabled());
    cancel.click();
    EXPECT_FALSE(apply.isEnabled() || cancel.isEnabled());
    poll(capper);
    EXPECT_NE(time.text(), QStringLiteral("23:45:00"));

    time.setText(QStringLiteral("23:45:00"));
    EXPECT_TRUE(apply.isEnabled());
    poll(capper);
    EXPECT_EQ(time.text(), QStringLiteral("23:45:00"));
    apply.click();
    EXPECT_FALSE(apply.isEnabled());
    exchange(capper);
    poll(capper);
    EXPECT_EQ(handler.DateTime().time().hour(), 23);
    EXPECT_EQ(handler.DateTime().time().minute(), 45);
}

TEST_F(PageActionsTest, AnAveryPrinterStartsStopsAndClearsFromItsPage)
{
    const Simulated labeller = simulated("Labeller", 780, &AveryEngine::create, "labels=250");
    auto& handler = dynamic_cast<clsAveryHandler&>(labeller.handler);
    const auto labels = [&] {
        return ChildOf<QLabel>(labeller.frame, "lblLabelsToPrintData").text();
    };
    EXPECT_EQ(labels(), QStringLiteral("250"));

    click(labeller, "cmdStart");
    exchange(labeller);
    m_clock->setNow(m_clock->now().addSecs(30));
    poll(labeller);
    EXPECT_LT(handler.LabelsToPrint, 250);
    EXPECT_EQ(labels(), QString::number(handler.LabelsToPrint));

    click(labeller, "cmdStop");
    exchange(labeller);
    poll(labeller);
    const qint32 stopped = handler.LabelsToPrint;
    m_clock->setNow(m_clock->now().addSecs(30));
    poll(labeller);
    EXPECT_EQ(handler.LabelsToPrint, stopped);

    click(labeller, "cmdClear");
    exchange(labeller);
    poll(labeller);
    EXPECT_EQ(labels(), QStringLiteral("0"));
}
} // namespace
