// The response stitcher under each set-up a C-series reply may need, and every whole reply
// through the C-series parser of its kind. A step's event is the kind of reply its piece
// belongs to; the argument sets the stitcher up.

#include "FuzzSteps.h"
#include "drivers/DominoCCommands.h"
#include "drivers/DominoCReplies.h"
#include "drivers/clsResponseStitcher.h"
#include "services/VigilError.h"

namespace {
enum Kind : quint8 {
    StatusReport,
    SetupList,
    ErrorLog,
    LogoList,
    CurrentFile,
    PrintCount,
    FileList,
    // The piece is a stitcher's set-up in its portable form.
    Portable,
};

// The argument's bits.
constexpr quint8 EndMask = 3;
enum End : quint8 { PermanentEnd, CrEnds, AckEnds, TwoBytesAnyValue };
constexpr quint8 AcceptAnything = 4;
constexpr quint8 MonthFirst = 8;
constexpr quint8 AnnounceType = 16;

void setUp(clsResponseStitcher& stitcher, quint8 argument)
{
    using namespace DominoC;
    switch (argument & EndMask) {
    case PermanentEnd:
        stitcher.ClearTempTerminiatingSequences();
        stitcher.ClearTempErrors();
        break;
    case CrEnds:
        stitcher.SetTempTerminiatingSequences({QByteArray(1, Cr)});
        break;
    case AckEnds:
        stitcher.SetTempTerminiatingSequences({QByteArray(1, Ack)});
        break;
    case TwoBytesAnyValue:
        stitcher.SetTempErrorStrings({QByteArrayLiteral("nevergetthis")});
        stitcher.FixedLength(2);
        break;
    }
    stitcher.AcceptAnything(argument & AcceptAnything);
}

void parse(Kind kind, const QByteArray& reply, bool monthFirst)
{
    DominoCValues values;
    switch (kind) {
    case StatusReport:
        DominoCReplies::parseStatusReport(reply, values, monthFirst);
        break;
    case SetupList:
        DominoCReplies::parseSetupList(reply, values);
        break;
    case ErrorLog:
        DominoCReplies::parseErrorLog(reply, values, monthFirst);
        break;
    case LogoList:
    case FileList:
        for (const QString& name : DominoCReplies::parseNames(reply))
            DominoCReplies::cleanName(name.toLatin1());
        break;
    case CurrentFile:
        DominoCReplies::cleanName(reply);
        break;
    case PrintCount:
        DominoCReplies::parsePrintCount(reply, values.printCount);
        break;
    case Portable:
        break;
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    clsResponseStitcher stitcher;
    stitcher.SetErrorStrings({QByteArray(1, DominoC::Nak), QByteArray(1, DominoC::Soh)});
    stitcher.SetTerminiatingSequences({QByteArray(1, DominoC::Terminator)});
    FuzzSteps steps(data, size);
    while (const auto step = steps.next()) {
        const auto kind = Kind(step->event);
        if (kind == Portable) {
            stitcher.FromPortable(step->data);
            stitcher.MakePortable();
            continue;
        }
        setUp(stitcher, step->argument);
        if (step->argument & AnnounceType)
            stitcher.SetNextResponseType(kind);
        const auto status = stitcher.StitchResponse(step->data, kind);
        if (status == clsResponseStitcher::StitchError) {
            stitcher.LastError();
        } else if (status != clsResponseStitcher::StitchIncomplete) {
            try {
                parse(kind, stitcher.GetCompleteResponse(true), step->argument & MonthFirst);
            } catch (const VigilError&) {
                // A field that doesn't convert: the handler reports it and goes on.
            }
        }
    }
    return 0;
}
