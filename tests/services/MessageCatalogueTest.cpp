#include "services/MessageCatalogue.h"

#include "services/PlatformLanguage.h"
#include "services/SettingsAccess.h"
#include "support/ServicesFixture.h"

namespace {
class MessageCatalogueTest : public ServicesFixture
{
protected:
    MessageCatalogue& load(const QByteArray& text)
    {
        writeFile(QStringLiteral("file.msg"), text);
        m_catalogue.loadMessageFile(programFolder() + QLatin1Char('/'), QStringLiteral("file.msg"));
        return m_catalogue;
    }

    static void setLanguage(const QString& sharedKey, const QString& code)
    {
        ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, sharedKey + QStringLiteral("\\Settings"),
                             QStringLiteral("Language"), REG_SZ, code),
                  0);
    }

    MessageCatalogue m_catalogue;
};

TEST_F(MessageCatalogueTest, LineNumbersAreIdsAndTheTableHasRoomBeyondTheFile)
{
    MessageCatalogue& catalogue = load("one\r\ntwo\r\nthree\r\n");
    EXPECT_EQ(catalogue.getMessage(3), QStringLiteral("three"));
    // Within the table's room but past the file: empty, even with a default.
    const std::pair<int, const char*> beyond[] = {
        {4, ""}, {10, ""}, {11, "x"}, {0, "x"}, {-2, "x"}};
    for (const auto& [id, expected] : beyond)
        EXPECT_EQ(catalogue.getMessage(id, QStringLiteral("x")), QLatin1String(expected)) << id;
}

TEST_F(MessageCatalogueTest, CommentsEscapesAndEmptyLines)
{
    load("Open//the file\nOpen   // the file\n//kept // whole\n\na\\nb\na\\tb\n"
         "See http://example for more\n/opt/newfolder\\name\nLF only\n");
    // The escape doesn't look at context: "\name" becomes a line break and "ame".
    const char* expected[] = {"Open",  "Open",      "//kept // whole",       "",       "a\r\nb",
                              "a\\tb", "See http:", "/opt/newfolder\r\name", "LF only"};
    for (int id = 1; id <= 9; ++id)
        EXPECT_EQ(m_catalogue.getMessage(id), QLatin1String(expected[id - 1])) << id;
}

TEST_F(MessageCatalogueTest, FormatMessageReplacesTheFirstOfEachMarkInTurn)
{
    MessageCatalogue& catalogue = load("%2 of %1\n%1 %1\nno marks\n%1 and %10\n%1\n");
    EXPECT_EQ(catalogue.formatMessage(1, {5, 10}), QStringLiteral("10 of 5"));
    EXPECT_EQ(catalogue.formatMessage(2, {QStringLiteral("a")}), QStringLiteral("a %1"));
    EXPECT_EQ(catalogue.formatMessage(3, {1, 2}), QStringLiteral("no marks"));
    EXPECT_EQ(catalogue.formatMessage(4, {QStringLiteral("x")}), QStringLiteral("x and %10"));
    // What argument 1 brings in is searched by argument 2's mark.
    EXPECT_EQ(catalogue.formatMessage(5, {QStringLiteral("%2!"), 4.5}), QStringLiteral("4.5!"));
    EXPECT_EQ(catalogue.formatMessage(5, {true}), QStringLiteral("True"));
}

TEST_F(MessageCatalogueTest, AMissingFileWarnsOnceAndLeavesEverythingBlank)
{
    setLanguage(QStringLiteral("SOFTWARE\\Orvane\\Common"), QStringLiteral("xx"));
    // The table keeps its first ten empty entries; beyond them the defaults show.
    EXPECT_EQ(GetMessage(2, QStringLiteral("dflt")), QString());
    EXPECT_EQ(GetMessage(15), QString());
    EXPECT_EQ(GetMessage(16, QStringLiteral("dflt")), QStringLiteral("dflt"));
    EXPECT_EQ(FormatMessage(30, {4, 65000}), QString());
    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    const IDialogs::Box& box = m_dialogs->boxes().first();
    EXPECT_EQ(box.title, QStringLiteral("LoadMessageFile - Korvex Vigil"));
    EXPECT_TRUE(box.text.endsWith(QStringLiteral("\r\n") + programFolder() + "/MSGxx/Vigil.msg"))
        << box.text.toStdString();
    EXPECT_EQ(box.icon, IDialogs::Icon::Warning);
}

TEST_F(MessageCatalogueTest, TheStoredLanguageComesFirstAndIsOnlyRead)
{
    writeMessageFile(QStringLiteral("de"), "Erste\n");
    writeMessageFile(QStringLiteral("en"), "First\n");
    qputenv("LANGUAGE", "fr_FR");
    setLanguage(QStringLiteral("SOFTWARE\\Trellan\\Common"), QStringLiteral("de"));
    EXPECT_EQ(GetConfiguredLanguage(), QStringLiteral("de"));
    EXPECT_EQ(GetLanguageFolder(), QStringLiteral("MSGde"));
    EXPECT_EQ(GetMessage(1), QStringLiteral("Erste"));

    setLanguage(QStringLiteral("SOFTWARE\\Orvane\\Common"), QStringLiteral("en"));
    EXPECT_EQ(GetConfiguredLanguage(), QStringLiteral("en"));
    setLanguage(QStringLiteral("SOFTWARE\\Orvane\\Common"), QString());
    EXPECT_EQ(GetConfiguredLanguage(), QStringLiteral("de"));
}

TEST_F(MessageCatalogueTest, WithoutAStoredLanguageTheUsersThenTheSystemsThenEnglish)
{
    qputenv("LANGUAGE", "de_AT:en");
    EXPECT_EQ(GetLanguageFolder(), QStringLiteral("MSGde"));
    // Looking for a stored language wrote nothing.
    SettingsStore::Handle key = 0;
    EXPECT_EQ(store().openKey(SettingsStore::MachineHive, QStringLiteral("SOFTWARE"), key),
              SettingsStore::FileNotFound);

    qunsetenv("LANGUAGE");
    qputenv("LC_ALL", "sv_SE.UTF-8");
    EXPECT_EQ(GetLanguageFolder(), QStringLiteral("MSGsv"));

    const quint16 japanese = LanguageIdFromLocaleName(QStringLiteral("ja_JP.UTF-8"));
    const quint16 french = LanguageIdFromLocaleName(QStringLiteral("fr_FR"));
    EXPECT_EQ(japanese & 63, 17);
    EXPECT_EQ(ChooseLanguageCode(QString(), japanese, french), QStringLiteral("fr"));
    EXPECT_EQ(ChooseLanguageCode(QString(), 0, japanese), QStringLiteral("en"));
    EXPECT_EQ(ChooseLanguageCode(QStringLiteral("xx"), french, french), QStringLiteral("xx"));
}

TEST_F(MessageCatalogueTest, LanguageIdsAndLocaleNames)
{
    // Only the low six bits of an id count: 0x0049 is English.
    const std::pair<quint16, const char*> ids[] = {{0, ""},        {0x0407, "de"}, {0x0C0C, "fr"},
                                                   {0x0416, "pt"}, {0x0049, "en"}, {0x0411, ""}};
    for (const auto& [id, code] : ids)
        EXPECT_EQ(LanguageCodeFromId(id), QLatin1String(code)) << id;
    for (const char* name : {"C", "POSIX", "", "C.UTF-8", "xx_YY"})
        EXPECT_EQ(LanguageIdFromLocaleName(QLatin1String(name)), 0) << name;
    for (const char* name : {"nl_BE@euro", "es"})
        EXPECT_EQ(LanguageCodeFromId(LanguageIdFromLocaleName(QLatin1String(name))),
                  QLatin1String(name, 2));

    EXPECT_EQ(LangFromLocaleConfig(QStringLiteral("#  File generated by update-locale\n"
                                                  "LANG=\"de_DE.UTF-8\"\nLC_TIME=en_GB\n")),
              QStringLiteral("de_DE.UTF-8"));
    EXPECT_EQ(LangFromLocaleConfig(QStringLiteral("export LANG=it_IT.UTF-8\n")),
              QStringLiteral("it_IT.UTF-8"));
    EXPECT_EQ(LangFromLocaleConfig(QStringLiteral("LANGUAGE=fr\n# LANG=fr\n")), QString());
}
} // namespace
