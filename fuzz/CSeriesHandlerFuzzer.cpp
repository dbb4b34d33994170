// A C-series coder's replies, cut where the input says, as answers to the handler's stages:
// the poll round, the actions and the time-outs, with the stitcher between the pieces.

#include "FuzzConsole.h"
#include "FuzzPrinter.h"
#include "drivers/clsDominoHandlerC.h"

#include <utility>

namespace {
enum Event : quint8 {
    // The direction (lowest bit clear) or the orientation, to the rest of the argument.
    Layout = FuzzPrinter<clsDominoHandlerC>::FirstOwnEvent,
    // By the argument: open the console, fire the data as its command, or close it.
    Console,
    // A message name as long as the argument says: eight and more go without a Cr.
    SelectMessage,
    // The clock, the count or the shifts, by the argument.
    Setting,
    // Disabled and the error log switched by the argument's two lowest bits.
    Switches,
};

enum ConsoleAction : quint8 { Open, Fire, Close };

// What the step leaves to be delivered as the printer's reply: a command fired on the console
// is the step's data.
FuzzSteps::Step act(clsDominoHandlerC& coder, FuzzSteps::Step step)
{
    switch (step.event) {
    case Layout:
        if (step.argument & 1)
            coder.SetOrientation(step.argument >> 1);
        else
            coder.SetDirection(step.argument >> 1);
        break;
    case Console:
        if (step.argument % 3 == Open) {
            coder.InvokeCommandTesting();
        } else if (step.argument % 3 == Close) {
            coder.EndCommandTesting();
        } else if (FuzzConsole* console = FuzzConsole::current()) {
            console->command = std::exchange(step.data, {});
            coder.FireCommandTest();
        }
        break;
    case SelectMessage:
        coder.SelectMessage(QString(step.argument % 12, QLatin1Char('M')));
        break;
    case Setting:
        if (step.argument % 3 == 0) {
            coder.SyncTime(FuzzEnvironment::instance().clock().now());
        } else if (step.argument % 3 == 1) {
            coder.SetCounts(step.argument);
        } else {
            clsShift shifts;
            for (qint32 slot = 0; slot < clsShift::Slots; ++slot) {
                shifts.SetID(QString::number(slot + 1), slot);
                shifts.SetHour(step.argument, slot);
                shifts.SetMinute(step.argument * 2, slot);
            }
            coder.SetShifts(shifts);
        }
        break;
    case Switches:
        coder.setDisabled(step.argument & 1);
        coder.setBCheckErrorLog(step.argument & 2);
        if (step.argument & 4)
            coder.IgnoreCurrentErrorLog();
        break;
    }
    return step;
}

// Everything a page shows of the coder.
void readValues(clsDominoHandlerC& coder)
{
    coder.DateTime();
    coder.PritnerVersion();
    coder.TimeoutMessage();
    QStringList alerts;
    coder.PopulateAlertListBox(alerts);
    for (qint32 index = 0; index <= DominoCValues::LogSlots + 1; ++index) {
        coder.GetHead(index);
        coder.GetErrorLog(index);
        coder.GetFileList(index);
        coder.GetDominoFileList(index);
        coder.GetLogoList(index);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzPrinter<clsDominoHandlerC> printer(2100, [](clsComponent& node) {
        node.AddStoredSetting(clsDominoHandlerC::CheckErrorLogSetting, QStringLiteral("True"));
    });
    clsDominoHandlerC& coder = printer.handler();
    FuzzSteps steps(data, size);
    while (const auto step = steps.next()) {
        printer.deliver(act(coder, *step));
        printer.readState();
    }
    readValues(coder);
    return 0;
}
