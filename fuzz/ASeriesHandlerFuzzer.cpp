// An A-series printer's replies as answers to the handler's stages: whole frames or any
// bytes at all, with the poll round, the clock and the time-outs between them.

#include "FuzzConsole.h"
#include "FuzzPrinter.h"
#include "drivers/clsASeriesMessage.h"
#include "drivers/clsDominoHandlerA.h"

#include <utility>

namespace {
enum Event : quint8 {
    // The data becomes a good frame: its first byte the id, the rest the frame's data, the
    // argument the command type. Checksums are no wall the fuzzer need climb each time.
    Framed = FuzzPrinter<clsDominoHandlerA>::FirstOwnEvent,
    SetClock,
    Reset,
    Disabled,
    // By the argument: open the console, fire a frame command made of the data (its first
    // byte the id), with its data or without, or close the console.
    Console,
};
enum ConsoleAction : quint8 { Open, Fire, FireWithData, Close };

// What the step leaves to be delivered as the printer's reply: a command fired on the console
// is the step's data.
FuzzSteps::Step console(clsDominoHandlerA& coder, FuzzSteps::Step step)
{
    const auto action = ConsoleAction(step.argument & 3);
    if (action == Open) {
        coder.InvokeCommandTesting();
    } else if (action == Close) {
        coder.EndCommandTesting();
    } else if (FuzzConsole* console = FuzzConsole::current()) {
        const QByteArray command = std::exchange(step.data, {});
        console->frameCommand =
            ICommandConsole::FrameCommand{quint8(command.isEmpty() ? 0 : command.at(0)), 1,
                                          command.mid(1), action == FireWithData};
        coder.FireCommandTest();
    }
    return step;
}

FuzzSteps::Step framed(FuzzSteps::Step step)
{
    if (step.data.isEmpty())
        return step;
    clsASeriesMessage message;
    step.data = message.BuildCommandWithData(quint8(step.data.at(0)), step.argument % 7,
                                             step.data.mid(1), step.data.size() == 1);
    return step;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzPrinter<clsDominoHandlerA> printer(2010);
    clsDominoHandlerA& coder = printer.handler();
    FuzzSteps steps(data, size);
    while (const auto step = steps.next()) {
        switch (step->event) {
        case SetClock:
            coder.SyncTime(FuzzEnvironment::instance().clock().now().addSecs(step->argument));
            break;
        case Reset:
            coder.ResetCurrentCommand();
            break;
        case Disabled:
            coder.setDisabled(step->argument & 1);
            break;
        }
        printer.deliver(step->event == Framed    ? framed(*step)
                        : step->event == Console ? console(coder, *step)
                                                 : *step);
        printer.readState();
    }
    QStringList alerts;
    coder.PopulateAlertListBox(alerts);
    coder.TimeoutMessage();
    return 0;
}
