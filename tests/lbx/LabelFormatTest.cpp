#include "platform/lbx/LabelFormat.h"

#include "services/VigilError.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>

namespace {
const QString CaseLabel = QStringLiteral("[Format]\n"
                                         "PrinterType=900\n"
                                         "Description=Case label\n"
                                         "[Prompt Lot]\n"
                                         "Prompt=Lot number\n"
                                         "Value=L0001\n"
                                         "MaxLength=8\n"
                                         "Mask=>AA9999\n"
                                         "MaskForcedUpper=1\n"
                                         "[DatabaseKey Products]\n"
                                         "Prompt=Product\n"
                                         "KeyField=Code\n"
                                         "DataSource=products.sqlite\n"
                                         "[Data]\n"
                                         "^XA^FO40,40^FD{Lot}^FS\n"
                                         "^FO40,90^FD{Products}^FS^XZ\\r\\n\n");

class LabelFormatTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_dir.isValid()); }

    QString write(const QString& name, const QByteArray& text)
    {
        const QString path = m_dir.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return path;
    }

    template <typename Read> static std::optional<VigilError> failureOf(Read&& read)
    {
        try {
            read();
        } catch (const VigilError& error) {
            return error;
        }
        return std::nullopt;
    }

    QTemporaryDir m_dir;
};

TEST_F(LabelFormatTest, TheExampleReadsBackFieldByFieldAndRendersWithAndWithoutValues)
{
    const LabelFormat format = LabelFormat::read(write("case.fmt", CaseLabel.toUtf8()));
    EXPECT_EQ(format.printerType(), 900);
    EXPECT_EQ(format.description(), "Case label");

    ASSERT_EQ(format.prompts().size(), 1);
    const PromptedValue& lot = format.prompts().first();
    EXPECT_EQ(lot.VarName, "Lot");
    EXPECT_EQ(lot.Prompt, "Lot number");
    EXPECT_EQ(lot.Value, "L0001");
    EXPECT_FALSE(lot.NoMaxLength);
    EXPECT_EQ(lot.MaxLength, 8);
    EXPECT_EQ(lot.Mask, ">AA9999");
    EXPECT_TRUE(lot.MaskForcedUpper);
    EXPECT_TRUE(lot.MaskAllowSpaces);
    EXPECT_FALSE(lot.MaskForcedLower || lot.MaskForcedEntry || lot.MaskForceAllChars);

    ASSERT_EQ(format.keys().size(), 1);
    const DatabaseKey& products = format.keys().first();
    EXPECT_EQ(products.VarName, "Products");
    EXPECT_EQ(products.Prompt, "Product");
    EXPECT_EQ(products.KeyField, "Code");
    // Relative to the format, so the database is found from anywhere.
    EXPECT_EQ(products.DataSource, m_dir.filePath("products.sqlite"));
    EXPECT_TRUE(products.Value.isEmpty());

    EXPECT_EQ(format.render({}), QByteArray("^XA^FO40,40^FDL0001^FS^FO40,90^FD^FS^XZ\r\n"));
    EXPECT_EQ(format.render({{"lot", "L0042"}, {"products", QStringLiteral("K\u00e4se")}}),
              QByteArray("^XA^FO40,40^FDL0042^FS^FO40,90^FDK\xc3\xa4se^FS^XZ\r\n"));
}

TEST_F(LabelFormatTest, DataEscapesAndLineEndsBecomeTheirBytes)
{
    const LabelFormat format = LabelFormat::read(
        write("esc.fmt", "; a comment\r\n\r\n[format]\r\nprintertype=2100\r\n"
                         "[Prompt Name]\r\nUsageFlags=-7\r\nType=3\r\nMaxLength=0\r\n"
                         "[Prompt Note]\r\nValue= two  \r\n"
                         "[data]\r\n"
                         "a\\tb\\\\c\\{x} }\r\n"
                         "\r\n"
                         "; kept\\x41\\x7f\\xFF{ nAmE }{note}|\\n"));
    EXPECT_EQ(format.render({{"name", "v"}}), QByteArray("a\tb\\c{x} }; keptA\x7f\xff"
                                                         "v two  |\n"));
    const PromptedValue& name = format.prompts().first();
    EXPECT_EQ(name.UsageFlags, -7);
    EXPECT_EQ(name.Type, 3);
    EXPECT_EQ(name.MaxLength, 0);
    EXPECT_FALSE(name.NoMaxLength);
    EXPECT_TRUE(format.prompts().last().NoMaxLength);
}

TEST_F(LabelFormatTest, EachFaultNamesTheFileAndTheLine)
{
    const QByteArray head = "[Format]\nPrinterType=900\n";
    struct Case
    {
        QByteArray text;
        QString message;
    };
    const QList<Case> cases = {
        {head + "[Prompt Lot]\nValue=1\nPromt=Lot\n[Data]\n{Lot}",
         "f.fmt, line 5: unknown key \"Promt\" in [Prompt Lot]"},
        {"", "f.fmt, line 1: the file must begin with [Format]"},
        {"\n[Data]\nx\ny", "f.fmt, line 2: the file must begin with [Format]"},
        {"; only\n[Prompt A]\n[Format]\nPrinterType=900\n[Data]\n",
         "f.fmt, line 2: the file must begin with [Format]"},
        {"[Format]\nDescription=x\n[Data]\n", "f.fmt, line 1: [Format] has no PrinterType"},
        {"[Format]\nPrinterType=nine\n[Data]\n",
         "f.fmt, line 2: PrinterType must be a number from 1 to 32767, not \"nine\""},
        {"[Format]\nPrinterType=40000\n[Data]\n",
         "f.fmt, line 2: PrinterType must be a number from 1 to 32767, not \"40000\""},
        {head + "[Lot]\n[Data]\n", "f.fmt, line 3: unknown section [Lot]"},
        {head + "[Prompt]\n[Data]\n", "f.fmt, line 3: [Prompt] needs a name: [Prompt NAME]"},
        {head + "[Prompt Lot]\n[DatabaseKey LOT]\nKeyField=K\nDataSource=d\n[Data]\n",
         "f.fmt, line 4: the name \"LOT\" is given twice"},
        {head + "[Prompt Lot]\n[prompt lot]\n[Data]\n",
         "f.fmt, line 4: [prompt lot] is given twice"},
        {head + "[Prompt Lot]\nValue=1\nvalue=2\n[Data]\n",
         "f.fmt, line 5: \"value\" is given twice in [Prompt Lot]"},
        {head + "[Prompt Lot]\nMaxLength=ten\n[Data]\n",
         "f.fmt, line 4: MaxLength must be a number from 0 to 2147483647, not \"ten\""},
        {head + "[Prompt Lot]\nMaskForcedUpper=2\n[Data]\n",
         "f.fmt, line 4: MaskForcedUpper must be a number from 0 to 1, not \"2\""},
        {head + "[DatabaseKey Products]\nKeyField=Code\n[Data]\n",
         "f.fmt, line 3: [DatabaseKey Products] needs a DataSource and a KeyField"},
        {head + "Lot\n[Data]\n",
         "f.fmt, line 3: \"Lot\" is neither a [Section] nor a Name=Value line"},
        {"PrinterType=900\n[Format]\n",
         "f.fmt, line 1: \"PrinterType=900\" comes before any [Section]"},
        {head + "[Prompt Lot]\nValue=1\n", "f.fmt, line 4: the file has no [Data]"},
        {head + "[Data]\nok\n{Lots}\n", "f.fmt, line 5: {Lots} is no prompt or key of this format"},
        {head + "[Data]\n^FD{Lot\n}", "f.fmt, line 4: a '{' without its '}'"},
        {head + "[Data]\n\\x4G", "f.fmt, line 4: \\x needs two hex digits"},
        {head + "[Data]\n\n\\x4", "f.fmt, line 5: \\x needs two hex digits"},
        {head + "[Data]\n\\q", "f.fmt, line 4: unknown escape \\q; write \\\\ for a '\\'"},
        {head + "[Data]\nab\\\ncd", "f.fmt, line 4: a '\\' ends the line; write \\\\ for one"},
    };
    for (const Case& fault : cases) {
        const QString path = write("f.fmt", fault.text);
        const std::optional<VigilError> error = failureOf([&] { LabelFormat::read(path); });
        ASSERT_TRUE(error.has_value()) << fault.text.toStdString();
        EXPECT_EQ(error->number(), VigilError::BadFileFormat) << fault.text.toStdString();
        EXPECT_EQ(error->description(), fault.message) << fault.text.toStdString();
    }

    const std::optional<VigilError> missing =
        failureOf([&] { LabelFormat::read(m_dir.filePath("none.fmt")); });
    ASSERT_TRUE(missing.has_value());
    EXPECT_EQ(missing->number(), VigilError::FileNotFound);
    EXPECT_TRUE(missing->description().contains("none.fmt"));
}

TEST_F(LabelFormatTest, ASetKeepsItsOrderAndTheFirstFormatsSettingsOfAName)
{
    write("filler.fmt", "[Format]\nPrinterType=2100\n[Prompt Lot]\nValue=F1\nMaxLength=6\n"
                        "[Data]\n{Lot}");
    write("labels/case.fmt", CaseLabel.toUtf8().replace("[Prompt Lot]", "[Prompt LOT]"));
    const LabelSetFile set =
        LabelSetFile::read(write("line1.lbs", "[LabelSet]\nDescription=Line 1\n[Elements]\n"
                                              "Filler=filler.fmt\nCases=labels/case.fmt\n"));

    EXPECT_EQ(set.description(), "Line 1");
    ASSERT_EQ(set.elements().size(), 2);
    EXPECT_EQ(set.elements().at(0).identifier, "Filler");
    EXPECT_EQ(set.elements().at(0).format.path(), m_dir.filePath("filler.fmt"));
    EXPECT_EQ(set.elements().at(0).format.printerType(), 2100);
    EXPECT_EQ(set.elements().at(1).identifier, "Cases");
    EXPECT_EQ(set.elements().at(1).format.path(), m_dir.filePath("labels/case.fmt"));
    EXPECT_EQ(set.elements().at(1).format.printerType(), 900);

    ASSERT_EQ(set.prompts().size(), 1);
    EXPECT_EQ(set.prompts().first().VarName, "Lot");
    EXPECT_EQ(set.prompts().first().Value, "F1");
    EXPECT_EQ(set.prompts().first().MaxLength, 6);
    ASSERT_EQ(set.keys().size(), 1);
    EXPECT_EQ(set.keys().first().DataSource, m_dir.filePath("labels/products.sqlite"));
}

TEST_F(LabelFormatTest, ASetThatCannotBeReadNamesTheElementsFile)
{
    write("filler.fmt", "[Format]\nPrinterType=2100\n[Data]\nx");
    write("bad.fmt", "[Format]\nPrinterType=2100\nColour=red\n[Data]\nx");
    const QByteArray head = "[LabelSet]\n[Elements]\nFiller=filler.fmt\n";
    struct Case
    {
        QByteArray text;
        QString message;
    };
    const QList<Case> cases = {
        {head + "Cases=bad.fmt\n",
         "s.lbs, line 4: element \"Cases\": bad.fmt, line 3: unknown key \"Colour\" in [Format]"},
        {head + "Cases=missing.fmt\n",
         "s.lbs, line 4: element \"Cases\": " + m_dir.filePath("missing.fmt")},
        {head + "Cases=\n", "s.lbs, line 4: no format for \"Cases\""},
        {head + "filler=bad.fmt\n", "s.lbs, line 4: \"filler\" is given twice in [Elements]"},
        {"[LabelSet]\nDescription=x\n", "s.lbs, line 2: the file has no [Elements]"},
        {"[Elements]\nFiller=filler.fmt\n", "s.lbs, line 1: the file must begin with [LabelSet]"},
    };
    for (const Case& fault : cases) {
        const QString path = write("s.lbs", fault.text);
        const std::optional<VigilError> error = failureOf([&] { LabelSetFile::read(path); });
        ASSERT_TRUE(error.has_value()) << fault.text.toStdString();
        EXPECT_EQ(error->number(), VigilError::BadFileFormat) << fault.text.toStdString();
        EXPECT_TRUE(error->description().startsWith(fault.message))
            << error->description().toStdString();
    }
}
} // namespace
