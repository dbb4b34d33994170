// An Avery printer's status frames, short or long by the model the input's first byte
// picks, in pieces as the input cuts them, with ticks, commands and time-outs between them.

#include "FuzzPrinter.h"
#include "drivers/clsAveryHandler.h"

#include <array>

namespace {
// One printer number for each model letter: D, A, E, H (the long frame) and G.
constexpr std::array<qint16, 5> Models = {123, 126, 129, 151, 157};

enum Event : quint8 {
    // Start, stop or clear, by the argument.
    Command = FuzzPrinter<clsAveryHandler>::FirstOwnEvent,
    // Disabled and port busy, by the argument's two lowest bits.
    Switches,
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzSteps steps(data, size);
    FuzzPrinter<clsAveryHandler> printer(Models[steps.takeByte() % Models.size()]);
    clsAveryHandler& avery = printer.handler();
    while (const auto step = steps.next()) {
        if (step->event == Command) {
            if (step->argument % 3 == 0)
                avery.StartPrinting();
            else if (step->argument % 3 == 1)
                avery.StopPrinting();
            else
                avery.ClearPrinter();
        } else if (step->event == Switches) {
            avery.setDisabled(step->argument & 1);
            avery.setPortBusy(step->argument & 2);
        }
        printer.deliver(*step);
        printer.readState();
        avery.ErrorMessage();
        avery.TimeoutMessage();
    }
    return 0;
}
