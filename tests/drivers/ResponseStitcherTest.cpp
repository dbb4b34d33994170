#include "drivers/clsResponseStitcher.h"

#include <gtest/gtest.h>

namespace {
using Status = clsResponseStitcher::StitchStatus;

const QByteArray kEnd("\xFE");
const QByteArray kNak("\x15");

// Set up as a C-series handler has it: one end byte, one error byte.
class ResponseStitcherTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_stitcher.SetTerminiatingSequences({kEnd});
        m_stitcher.SetErrorStrings({kNak});
    }

    QList<Status> Feed(const QList<QByteArray>& pieces, qint32 type = 1)
    {
        QList<Status> statuses;
        for (const QByteArray& piece : pieces)
            statuses << m_stitcher.StitchResponse(piece, type);
        return statuses;
    }

    clsResponseStitcher m_stitcher;
};

TEST_F(ResponseStitcherTest, TerminatorsAreSoughtInTheJoinedReply)
{
    EXPECT_EQ(Feed({"ab", "c"}),
              QList<Status>({Status::StitchIncomplete, Status::StitchIncomplete}));
    EXPECT_EQ(Feed({kEnd}), QList<Status>{Status::StitchComplete});
    EXPECT_EQ(m_stitcher.GetCompleteResponse(true), "abc" + kEnd);

    // The last occurrence counts, so an earlier marker doesn't make a finished reply surplus.
    EXPECT_EQ(Feed({kEnd + "x", kEnd}),
              QList<Status>({Status::StitchSurplus, Status::StitchComplete}));
    m_stitcher.GetCompleteResponse(true);

    m_stitcher.SetTerminiatingSequences({"\r\n"});
    EXPECT_EQ(Feed({"ok\r", "\n"}),
              QList<Status>({Status::StitchIncomplete, Status::StitchComplete}));
}

TEST_F(ResponseStitcherTest, ErrorsAreSoughtInTheNewestFragmentOnly)
{
    EXPECT_EQ(m_stitcher.StitchResponse("a" + kNak + kEnd, 1), clsResponseStitcher::StitchError);
    EXPECT_EQ(m_stitcher.LastError(), kNak);
    // The failed fragment stays until the caller takes it, and doesn't taint the next one.
    EXPECT_EQ(m_stitcher.StitchResponse(kEnd, 1), clsResponseStitcher::StitchComplete);
    EXPECT_EQ(m_stitcher.GetCompleteResponse(true), "a" + kNak + kEnd + kEnd);

    m_stitcher.SetErrorStrings({"ERR", "E"});
    EXPECT_EQ(Feed({"xE", "RR"}), QList<Status>({Status::StitchError, Status::StitchIncomplete}));
    EXPECT_EQ(m_stitcher.LastError(), "E");
    EXPECT_EQ(m_stitcher.StitchResponse("ERR", 1), clsResponseStitcher::StitchError);
    EXPECT_EQ(m_stitcher.LastError(), "ERR");
}

TEST_F(ResponseStitcherTest, AFixedLengthCountsTheJoinedBytes)
{
    m_stitcher.FixedLength(2);
    EXPECT_EQ(
        Feed({"a", "b", "c"}),
        QList<Status>({Status::StitchIncomplete, Status::StitchComplete, Status::StitchSurplus}));
    m_stitcher.GetCompleteResponse(true);
    // Once the length is reached, an end byte inside the reply doesn't matter.
    EXPECT_EQ(m_stitcher.StitchResponse(kEnd + "x", 1), clsResponseStitcher::StitchComplete);
    m_stitcher.GetCompleteResponse(true);
    // Before that, an end byte still finishes the reply early.
    EXPECT_EQ(m_stitcher.StitchResponse(kEnd, 1), clsResponseStitcher::StitchComplete);
    m_stitcher.GetCompleteResponse(true);
    m_stitcher.FixedLength(3);
    EXPECT_EQ(m_stitcher.StitchResponse(kEnd + "x", 1), clsResponseStitcher::StitchSurplus);
    m_stitcher.SetTerminiatingSequences({kEnd});
    EXPECT_EQ(m_stitcher.StitchResponse("wxyz", 2), clsResponseStitcher::StitchIncomplete);
}

TEST_F(ResponseStitcherTest, AnotherTypeThrowsAwayWhatWasInHand)
{
    Feed({"ab", "c"}, 1);
    EXPECT_EQ(m_stitcher.heldBytes(), 3);
    EXPECT_EQ(m_stitcher.StitchResponse("d" + kEnd, 2), clsResponseStitcher::StitchComplete);
    EXPECT_EQ(m_stitcher.GetCompleteResponse(false), "d" + kEnd);

    m_stitcher.SetNextResponseType(2);
    EXPECT_EQ(m_stitcher.heldBytes(), 2);
    m_stitcher.SetNextResponseType(3);
    EXPECT_EQ(m_stitcher.heldBytes(), 0);

    Feed({"e", kEnd}, 3);
    EXPECT_EQ(m_stitcher.GetCompleteResponse(true), "e" + kEnd);
    EXPECT_EQ(m_stitcher.heldBytes(), 0);
    EXPECT_EQ(m_stitcher.StitchResponse("f", 3), clsResponseStitcher::StitchIncomplete);
}

TEST_F(ResponseStitcherTest, AcceptAnythingFinishesEveryPieceButStillNotesErrors)
{
    m_stitcher.AcceptAnything(true);
    m_stitcher.FixedLength(5);
    EXPECT_EQ(
        Feed({"a", kEnd + "b", "c" + kNak}),
        QList<Status>({Status::StitchComplete, Status::StitchComplete, Status::StitchComplete}));
    EXPECT_EQ(m_stitcher.LastError(), kNak);
}

TEST_F(ResponseStitcherTest, TemporaryErrorsReplaceEachOtherAndClearTheFixedLength)
{
    m_stitcher.FixedLength(1);
    m_stitcher.SetTempErrorStrings({"T1"});
    m_stitcher.SetTempErrorStrings({"T2"});
    EXPECT_EQ(m_stitcher.StitchResponse("ab", 1), clsResponseStitcher::StitchIncomplete);
    EXPECT_EQ(m_stitcher.StitchResponse("T1", 2), clsResponseStitcher::StitchIncomplete);
    EXPECT_EQ(m_stitcher.StitchResponse("T2", 3), clsResponseStitcher::StitchError);

    m_stitcher.FixedLength(1);
    m_stitcher.ClearTempErrors();
    EXPECT_EQ(m_stitcher.StitchResponse("ab", 4), clsResponseStitcher::StitchIncomplete);
    EXPECT_EQ(m_stitcher.StitchResponse("T1", 5), clsResponseStitcher::StitchIncomplete);
    EXPECT_EQ(m_stitcher.StitchResponse(kNak, 6), clsResponseStitcher::StitchError);
}

TEST_F(ResponseStitcherTest, PortableTextCarriesListsFlagAndLastError)
{
    m_stitcher.SetErrorStrings({kNak, "ERR"});
    m_stitcher.SetTempTerminiatingSequences({"OK", "NO"});
    m_stitcher.StitchResponse("ERR", 1);
    const QByteArray text = m_stitcher.MakePortable();
    EXPECT_EQ(text, "[1]{1}" + kNak + ";;ERR;;[2]{1}OK;;NO;;[3]{0}" + kEnd + ";;[4]True;;[5]ERR;;");

    clsResponseStitcher copy;
    copy.FromPortable(text);
    EXPECT_EQ(copy.MakePortable(), text);
    // The flag came along, so clearing goes back to the saved terminators.
    copy.ClearTempTerminiatingSequences();
    EXPECT_EQ(copy.StitchResponse("OK", 1), clsResponseStitcher::StitchIncomplete);
    EXPECT_EQ(copy.StitchResponse(kEnd, 1), clsResponseStitcher::StitchComplete);
}

TEST_F(ResponseStitcherTest, AnEmptyPortableElementEmptiesTheRestOfItsList)
{
    m_stitcher.FromPortable("[1]{3}a;;;;c;;d;;[2]{-1}[3]{1}x;;");
    // [2] is written empty; [3] runs out of elements after its first one.
    EXPECT_EQ(m_stitcher.MakePortable(), "[1]{3}a;;;;;;;;[2]{-1}[3]{1}x;;;;[4]False;;[5];;");
}
} // namespace
