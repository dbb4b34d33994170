// The C-series commands and replies, byte for byte.

#include "drivers/DominoCCommands.h"
#include "drivers/DominoCReplies.h"
#include "drivers/PrinterDateTime.h"
#include "drivers/clsShift.h"
#include "services/VigilError.h"

#include <gtest/gtest.h>

namespace {
using namespace DominoCReplies;

// A command byte and its arguments.
QByteArray command(char code, const QByteArray& arguments)
{
    return code + arguments;
}

TEST(DominoCProtocolTest, CommandsCarryTheirArgumentsExactly)
{
    // Wednesday 5 September 2007, 14:07; and midnight of a Sunday.
    EXPECT_EQ(DominoC::SetClock(QDateTime(QDate(2007, 9, 5), QTime(14, 7))),
              command('\x14', "3090520071407"));
    EXPECT_EQ(DominoC::SetClock(QDateTime(QDate(2026, 11, 22), QTime(0, 5))),
              command('\x14', "7112220260005"));
    EXPECT_EQ(DominoC::SetDirection(12), command('\x04', "12"));
    EXPECT_EQ(DominoC::SetOrientation(3), command('\x0F', "3"));
    EXPECT_EQ(DominoC::SetCounts(0), QByteArray("\x11\0\0", 3));
    EXPECT_EQ(DominoC::SelectMessage("ABCDEFG"), command('\t', "ABCDEFG\r"));
    EXPECT_EQ(DominoC::SelectMessage("ABCDEFGH"), command('\t', "ABCDEFGH"));
    clsShift shifts;
    shifts.SetID("N", 3);
    shifts.SetHour(22, 3);
    shifts.SetMinute(5, 3);
    shifts.SetHour(9, 4); // no fifth shift
    EXPECT_EQ(DominoC::SetShifts(shifts), command('\x13', "00:0000:0000:00N22:05"));
}

TEST(DominoCProtocolTest, AStatusReportIsReadByKeyFromTheEnd)
{
    DominoCValues values;
    const QByteArray whole = "Language : 2\rInk status : 1\rLanguage : 3\rHead 2 : 5\r"
                             "Merlin version : B7\r\xFE";
    EXPECT_EQ(parseStatusReport(whole, values, false), SomeMissing);
    EXPECT_EQ(values.language, 3); // the last of a key twice counts
    EXPECT_EQ(values.inkStatus, 1);
    EXPECT_EQ(values.printsRemaining, 0);
    EXPECT_EQ(values.heads[1].first, 0); // "5" reads as "005"
    EXPECT_EQ(values.heads[1].second, 5);
    EXPECT_EQ(values.versionFirst, QStringLiteral("B"));
    EXPECT_EQ(values.versionSecond, QStringLiteral("B7"));

    EXPECT_EQ(parseStatusReport("nothing here", values, false), NothingFound);

    // A value that isn't a number stops the reading there, keeping what came before.
    DominoCValues garbled;
    EXPECT_THROW(
        parseStatusReport("Language : 4\rShaft encoder : x\rPhotocell : 1\r\xFE", garbled, false),
        VigilError);
    EXPECT_EQ(garbled.language, 4);
    EXPECT_EQ(garbled.photocell, 0);

    // Date, time and ink that can't be read are skipped without a failure.
    values.date = QDate(2026, 1, 2);
    values.time = QTime(3, 4, 5);
    EXPECT_NO_THROW(
        parseStatusReport("Date : 40/40/40\rTime : noon\rInk status : ?\r\xFE", values, false));
    EXPECT_EQ(values.date, QDate(2026, 1, 2));
    EXPECT_EQ(values.time, QTime(3, 4, 5));
}

TEST(DominoCProtocolTest, ASetUpListReadsThePackedTokenAsFourTokens)
{
    DominoCValues packed;
    DominoCValues spread;
    EXPECT_EQ(parseSetupList("a,b,c,300,12,x,4,12345\xFE", packed), Whole);
    EXPECT_EQ(parseSetupList("a,b,c,300,12,x,4,1,23,4,5\xFE", spread), Whole);
    for (const DominoCValues* values : {&packed, &spread}) {
        EXPECT_EQ(values->dpi, 300);
        EXPECT_EQ(values->delay, 12);
        EXPECT_EQ(values->raster, 4);
        EXPECT_EQ(values->packedSecond, 23);
        EXPECT_EQ(values->printDirection, 4);
        EXPECT_EQ(values->printOrientation, 5);
    }
    EXPECT_EQ(parseSetupList("a,b,c,300\xFE", packed), SomeMissing);
    EXPECT_THROW(parseSetupList("a,b,c,many,1\xFE", packed), VigilError);
}

TEST(DominoCProtocolTest, DatesFollowThePrintersOrderWithTheWorkstationsAsTieBreak)
{
    using PrinterDateTime::parseDate;
    EXPECT_EQ(parseDate("03/04/2026", false), QDate(2026, 4, 3));
    EXPECT_EQ(parseDate("03/04/2026", true), QDate(2026, 3, 4));
    EXPECT_EQ(parseDate("13.04.26", true), QDate(2026, 4, 13)); // month-first can't be
    EXPECT_EQ(parseDate("04-13-99", false), QDate(1999, 4, 13));
    EXPECT_EQ(parseDate("2026-11-22", true), QDate(2026, 11, 22));
    EXPECT_FALSE(parseDate("31/31/2026", false));
    EXPECT_FALSE(parseDate("22 Nov 2026", false));
    EXPECT_EQ(PrinterDateTime::parseTime("6:05"), QTime(6, 5));
    EXPECT_EQ(PrinterDateTime::parseTime("23:59:58"), QTime(23, 59, 58));
    EXPECT_FALSE(PrinterDateTime::parseTime("25:00"));
}

TEST(DominoCProtocolTest, TheErrorLogHoldsNineEntriesAtMost)
{
    DominoCValues values;
    EXPECT_EQ(parseErrorLog("x", values, false), LogIncomplete);
    // Two lines aren't tested for a wrap: stored from the last to the first.
    EXPECT_EQ(parseErrorLog("B 02/01/2026 10:00\nA 01/01/2026 10:00\n\xFE", values, false),
              LogStored);
    EXPECT_EQ(values.errorLogCount, 2);
    EXPECT_EQ(values.errorLog[0], QStringLiteral("A 01/01/2026 10:00"));

    QByteArray ten;
    for (int day = 1; day <= 10; ++day)
        ten += QStringLiteral("E%1 %1/01/2026 10:00\n").arg(day).toLatin1();
    EXPECT_EQ(parseErrorLog(ten + "\xFE", values, false), LogFailed);
    EXPECT_EQ(values.errorLogCount, 2); // the count stays; the nine slots took the new text
    EXPECT_EQ(values.errorLog[0], QStringLiteral("E10 10/01/2026 10:00"));
    EXPECT_EQ(parseErrorLog("no date here\n\xFE", values, false), LogFailed);
}

TEST(DominoCProtocolTest, NamesAndTheCount)
{
    EXPECT_EQ(parseNames("A\r\rC"), (QStringList{"", "A", "", "C"}));
    EXPECT_EQ(cleanName("\xC1\x42\x43\r"), QStringLiteral("ABC"));
    qint32 count = 5;
    EXPECT_FALSE(parsePrintCount("\xFE", count));
    EXPECT_EQ(count, 5);
    EXPECT_TRUE(parsePrintCount(QByteArray("\xFF\x01", 2), count));
    EXPECT_EQ(count, 511);
}
} // namespace
