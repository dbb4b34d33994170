#include "sim/LabelEngine.h"

#include "sim/SimPrinter.h"

#include <QDateTime>
#include <gtest/gtest.h>

namespace {
const QByteArray kJuice("^XA^FO40,40^A0N,30^FDL0001^FS\r\n^FO40,90^FDApple juice 1l^FS^XZ\r\n");
const QStringList kJuiceFields{"L0001", "Apple juice 1l"};

void feed(LabelEngine& engine, const QByteArray& bytes, qsizetype pieceSize)
{
    for (qsizetype at = 0; at < bytes.size(); at += pieceSize)
        EXPECT_TRUE(engine.receive(bytes.mid(at, pieceSize), QDateTime()).isEmpty());
}

TEST(LabelEngineTest, LabelsCutIntoPiecesOfAnySizeAreCountedWithTheirFields)
{
    const QByteArray tea("^xa^FDL0002^FS^FDGreen tea 0,5l^FS^FD^FS^xz");
    for (const qsizetype pieceSize : {1, 2, 3, 7, 1000}) {
        LabelEngine engine;
        feed(engine, kJuice + tea, pieceSize);
        EXPECT_EQ(engine.printed().count(), 2) << pieceSize;
        EXPECT_EQ(engine.printed().lastFields(), (QStringList{"L0002", "Green tea 0,5l", ""})) << pieceSize;
        EXPECT_EQ(engine.takeNotices(), (QStringList{"label 1: L0001 | Apple juice 1l",
                                                     "label 2: L0002 | Green tea 0,5l |"}));
        EXPECT_TRUE(engine.takeNotices().isEmpty());
    }
}

TEST(LabelEngineTest, ALabelSplitInsideItsEndIsOneLabelAndAnUnendedOneIsNone)
{
    LabelEngine engine;
    const qsizetype split = kJuice.indexOf("^XZ") + 2;
    feed(engine, kJuice.left(split), 1000);
    EXPECT_EQ(engine.printed().count(), 0);
    EXPECT_TRUE(engine.printed().lastFields().isEmpty());
    feed(engine, kJuice.mid(split), 1000);
    EXPECT_EQ(engine.printed().count(), 1);
    EXPECT_EQ(engine.printed().lastFields(), kJuiceFields);

    // A field left open is closed by the next command; ^XA forgets an unended label.
    feed(engine, "^XA^FDlost^FS^XA^FDUTF-8 \xC3\xA4pfel^XZ", 1000);
    EXPECT_EQ(engine.printed().count(), 2);
    EXPECT_EQ(engine.printed().lastFields(), QStringList{QString::fromUtf8("UTF-8 \xC3\xA4pfel")});
}

TEST(LabelEngineTest, GarbageBetweenLabelsChangesNothing)
{
    LabelEngine engine;
    QByteArray garbage;
    for (int byte = 0; byte < 256; ++byte)
        if (byte != '^')
            garbage.append(char(byte));
    feed(engine, garbage + "^^^~JA^Q" + kJuice + garbage + "^", 5);
    EXPECT_EQ(engine.printed().count(), 1);
    EXPECT_EQ(engine.printed().lastFields(), kJuiceFields);
    // The caret left at the end starts the next command, however it is cut.
    feed(engine, "XZ", 1);
    EXPECT_EQ(engine.printed().count(), 2);
    EXPECT_TRUE(engine.printed().lastFields().isEmpty());
}

TEST(LabelEngineTest, WhatAnUnendedLabelKeepsAndTheUntakenNoticesAreCapped)
{
    LabelEngine engine;
    const qsizetype limit = ZplLabelReader::kKeptLimit;
    feed(engine, "^XA^FD" + QByteArray(limit * 4, 'x'), 4096);
    feed(engine, "^FS" + QByteArray("^FDfield^FS").repeated(limit) + "^XZ", 4096);
    ASSERT_EQ(engine.printed().count(), 1);
    const QStringList fields = engine.printed().lastFields();
    ASSERT_FALSE(fields.isEmpty());
    EXPECT_EQ(fields.first(), QString(limit - 1, 'x'));
    qsizetype kept = 0;
    for (const QString& field : fields)
        kept += field.size() + 1;
    EXPECT_LE(kept, limit);

    // A flood of empty labels is counted whole; of its notices only the newest are kept.
    engine.takeNotices();
    feed(engine, QByteArray("^XZ").repeated(1000), 300);
    EXPECT_EQ(engine.printed().count(), 1001);
    const QStringList notices = engine.takeNotices();
    ASSERT_EQ(notices.size(), PrintedLabels::kNoticesKept);
    EXPECT_EQ(notices.first(),
              QStringLiteral("label %1:").arg(1001 - PrintedLabels::kNoticesKept + 1));
    EXPECT_EQ(notices.last(), QStringLiteral("label 1001:"));
}

TEST(LabelEngineTest, ASimulatedLabelPrinterIsOfItsOwnKindAndTellsEachLabelAtOnce)
{
    QString error;
    const auto printer = SimPrinter::fromAddress(QStringLiteral("label"), error);
    ASSERT_NE(printer, nullptr) << error.toStdString();
    EXPECT_EQ(SimPrinter::fromAddress(QStringLiteral("label?speed=3"), error), nullptr);
    EXPECT_TRUE(error.contains("speed")) << error.toStdString();

    QStringList notices;
    QObject::connect(printer.get(), &SimPrinter::notice,
                     [&notices](const QString& line) { notices.append(line); });
    printer->input(kJuice + kJuice);
    EXPECT_EQ(notices,
              (QStringList{"label 1: L0001 | Apple juice 1l", "label 2: L0001 | Apple juice 1l"}));
    EXPECT_EQ(printer->pendingBytes(), 0);
}
} // namespace
