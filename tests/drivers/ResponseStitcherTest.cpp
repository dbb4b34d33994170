#include "drivers/clsResponseStitcher.h"

#include <gtest/gtest.h>

namespace {
using Status = clsResponseStitcher::StitchStatus;
using List = QList<Status>;
using enum clsResponseStitcher::StitchStatus;

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

    List Feed(const QList<QByteArray>& pieces, qint32 type = 1)
    {
        List statuses;
        for (const QByteArray& piece : pieces)
            statuses << m_stitcher.StitchResponse(piece, type);
        return statuses;
    }

    clsResponseStitcher m_stitcher;
};

TEST_F(ResponseStitcherTest, TerminatorsAreSoughtInTheJoinedReply)
{
    EXPECT_EQ(Feed({"ab", "c", kEnd}), List({StitchIncomplete, StitchIncomplete, StitchComplete}));
    EXPECT_EQ(m_stitcher.GetCompleteResponse(true), "abc" + kEnd);
    // The last occurrence counts, so an earlier marker doesn't make a finished reply surplus.
    EXPECT_EQ(Feed({kEnd + "x", kEnd}), List({StitchSurplus, StitchComplete}));
    m_stitcher.GetCompleteResponse(true);
    m_stitcher.SetTerminiatingSequences({"\r\n"});
    EXPECT_EQ(Feed({"ok\r", "\n"}), List({StitchIncomplete, StitchComplete}));
}

TEST_F(ResponseStitcherTest, ErrorsAreSoughtInTheNewestFragmentOnly)
{
    EXPECT_EQ(Feed({"a" + kNak + kEnd}), List{StitchError});
    EXPECT_EQ(m_stitcher.LastError(), kNak);
    // The failed fragment stays until the caller takes it, and doesn't taint the next one.
    EXPECT_EQ(Feed({kEnd}), List{StitchComplete});
    EXPECT_EQ(m_stitcher.GetCompleteResponse(true), "a" + kNak + kEnd + kEnd);

    m_stitcher.SetErrorStrings({"ERR", "E"});
    EXPECT_EQ(Feed({"xE", "RR"}), List({StitchError, StitchIncomplete}));
    EXPECT_EQ(m_stitcher.LastError(), "E");
    EXPECT_EQ(Feed({"ERR"}), List{StitchError});
    EXPECT_EQ(m_stitcher.LastError(), "ERR");
}

TEST_F(ResponseStitcherTest, AFixedLengthCountsTheJoinedBytes)
{
    m_stitcher.FixedLength(2);
    EXPECT_EQ(Feed({"a", "b", "c"}), List({StitchIncomplete, StitchComplete, StitchSurplus}));
    // Once the length is reached, an end byte inside the reply doesn't matter; before that, an
    // end byte still finishes the reply early.
    m_stitcher.GetCompleteResponse(true);
    EXPECT_EQ(Feed({kEnd + "x"}), List{StitchComplete});
    m_stitcher.GetCompleteResponse(true);
    EXPECT_EQ(Feed({kEnd}), List{StitchComplete});
    m_stitcher.GetCompleteResponse(true);
    m_stitcher.FixedLength(3);
    EXPECT_EQ(Feed({kEnd + "x"}), List{StitchSurplus});
    m_stitcher.SetTerminiatingSequences({kEnd});
    EXPECT_EQ(Feed({"wxyz"}, 2), List{StitchIncomplete});
}

TEST_F(ResponseStitcherTest, AnotherTypeThrowsAwayWhatWasInHand)
{
    Feed({"ab", "c"}, 1);
    EXPECT_EQ(m_stitcher.heldBytes(), 3);
    EXPECT_EQ(Feed({"d" + kEnd}, 2), List{StitchComplete});
    EXPECT_EQ(m_stitcher.GetCompleteResponse(false), "d" + kEnd);
    m_stitcher.SetNextResponseType(2);
    EXPECT_EQ(m_stitcher.heldBytes(), 2);
    m_stitcher.SetNextResponseType(3);
    EXPECT_EQ(m_stitcher.heldBytes(), 0);

    Feed({"e", kEnd}, 3);
    EXPECT_EQ(m_stitcher.GetCompleteResponse(true), "e" + kEnd);
    EXPECT_EQ(m_stitcher.heldBytes(), 0);
    EXPECT_EQ(Feed({"f"}, 3), List{StitchIncomplete});
}

TEST_F(ResponseStitcherTest, AcceptAnythingFinishesEveryPieceButStillNotesErrors)
{
    m_stitcher.AcceptAnything(true);
    m_stitcher.FixedLength(5);
    EXPECT_EQ(Feed({"a", kEnd + "b", "c" + kNak}),
              List({StitchComplete, StitchComplete, StitchComplete}));
    EXPECT_EQ(m_stitcher.LastError(), kNak);
}

// Each type below is new, so every fragment is a reply of its own.
TEST_F(ResponseStitcherTest, TemporaryErrorsReplaceEachOtherAndClearTheFixedLength)
{
    m_stitcher.FixedLength(1);
    m_stitcher.SetTempErrorStrings({"T1"});
    m_stitcher.SetTempErrorStrings({"T2"});
    EXPECT_EQ(Feed({"ab"}, 1), List{StitchIncomplete});
    EXPECT_EQ(Feed({"T1"}, 2), List{StitchIncomplete});
    EXPECT_EQ(Feed({"T2"}, 3), List{StitchError});

    m_stitcher.FixedLength(1);
    m_stitcher.ClearTempErrors();
    EXPECT_EQ(Feed({"ab"}, 4), List{StitchIncomplete});
    EXPECT_EQ(Feed({"T1"}, 5), List{StitchIncomplete});
    EXPECT_EQ(Feed({kNak}, 6), List{StitchError});
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
    EXPECT_EQ(copy.StitchResponse("OK", 1), StitchIncomplete);
    EXPECT_EQ(copy.StitchResponse(kEnd, 1), StitchComplete);

    // An empty element empties the rest of its list: [2] is written empty; [3] runs out of
    // elements after its first one.
    clsResponseStitcher fresh;
    fresh.FromPortable("[1]{3}a;;;;c;;d;;[2]{-1}[3]{1}x;;");
    EXPECT_EQ(fresh.MakePortable(), "[1]{3}a;;;;;;;;[2]{-1}[3]{1}x;;;;[4]False;;[5];;");
}
} // namespace
