// vigilctl as an administrator uses it: a real process on a store of its own.

#include "integration/VigilctlFixture.h"
#include "support/OlderStore.h"

#include <QFile>

namespace {
using VigilctlTest = VigilctlFixture;

const QString Options = QStringLiteral("HKLM\\Software\\Orvane\\Vigil\\Options");
const QString Common = QStringLiteral("HKLM\\SOFTWARE\\Orvane\\Common");
const QString QueueKey = QStringLiteral("HKLM\\Software\\Orvane\\LabelApplication\\Queues");

TEST_F(VigilctlTest, SetGetListAndDelete)
{
    EXPECT_EQ(vigilctl({"store", "set", Options, "PollInterval", "0x4e20", "--dword"}).code, 0);
    EXPECT_EQ(
        vigilctl({"store", "set", "HKLM/Software/Orvane/Common/Settings", "Language", "de"}).code,
        0);
    EXPECT_EQ(vigilctl({"store", "set", Options, "Limit", "-1", "--dword"}).code, 0);

    const Outcome got =
        vigilctl({"store", "get", "hklm\\software\\orvane\\vigil\\options", "pollinterval"});
    EXPECT_EQ(got.code, 0);
    EXPECT_EQ(got.out, QStringLiteral("20000\n"));
    EXPECT_EQ(vigilctl({"store", "get", Options, "Limit"}).out, QStringLiteral("-1\n"));
    const Outcome missing = vigilctl({"store", "get", Options, "Missing"});
    EXPECT_EQ(missing.code, 1);
    EXPECT_TRUE(missing.out.isEmpty());

    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Orvane"}).out, "Common\nVigil\n");
    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Nothing"}).code, 1);
    EXPECT_EQ(vigilctl({"store", "delete", Options, "Limit"}).code, 0);
    EXPECT_EQ(vigilctl({"store", "delete", Options, "Limit"}).code, 1);
    EXPECT_EQ(vigilctl({"store", "delete", Common}).code, 0);
    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Orvane"}).out, "Vigil\n");
}

TEST_F(VigilctlTest, BadCommandLinesSayWhyInOneLine)
{
    const QList<QStringList> bad = {
        {},
        {"frobnicate"},
        {"store"},
        {"store", "get", Options},
        {"store", "get", "Software\\X", "Name"},
        {"store", "set", Options, "N", "twelve", "--dword"},
        {"store", "list", Options, "--dword"},
        {"store", "list", Options, "--colour"},
        {"message"},
        {"message", "abc"},
    };
    for (const QStringList& args : bad) {
        const Outcome run = vigilctl(args);
        EXPECT_EQ(run.code, 2) << args.join(' ').toStdString();
        EXPECT_TRUE(run.err.startsWith(QStringLiteral("vigilctl: ")) || args.isEmpty())
            << args.join(' ').toStdString() << ": " << run.err.toStdString();
    }
    for (const QStringList& args :
         QList<QStringList>{{"--help"}, {"store", "--help"}, {"message", "-h"}}) {
        const Outcome run = vigilctl(args);
        EXPECT_EQ(run.code, 0);
        EXPECT_TRUE(run.out.startsWith(QStringLiteral("Usage: vigilctl"))) << run.out.toStdString();
    }
}

TEST_F(VigilctlTest, MessagesFollowTheLanguageAndTheBrand)
{
    const Outcome english = vigilctl({"message", "30", "4", "65000"});
    EXPECT_EQ(english.code, 0);
    EXPECT_TRUE(english.out.contains("4") && english.out.contains("65000"))
        << english.out.toStdString();
    EXPECT_TRUE(english.err.isEmpty()) << english.err.toStdString();
    // Each language the chain can choose, from the user's locale.
    for (const char* language : {"da_DK", "de_DE", "es_ES", "fr_FR", "it_IT", "nl_NL", "pt_PT",
                                 "sv_SE"}) {
        const Outcome translated = vigilctl({"message", "30", "4", "65000"}, {},
                                            {QStringLiteral("LANGUAGE=") + language});
        EXPECT_EQ(translated.code, 0) << language;
        EXPECT_TRUE(translated.err.isEmpty()) << language << translated.err.toStdString();
        EXPECT_TRUE(translated.out.contains("65000")) << language;
        EXPECT_NE(translated.out, english.out) << language;
    }

    // Brand words reach the printed text.
    QFile catalogue(QStringLiteral(VIGIL_BIN_DIR "/MSGen/Vigil.msg"));
    ASSERT_TRUE(catalogue.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = catalogue.readAll().split('\n');
    qsizetype branded = 0;
    while (branded < lines.size() &&
           !(lines[branded].contains("Korvex Vigil") && !lines[branded].contains('%')))
        ++branded;
    ASSERT_LT(branded, lines.size());
    ASSERT_EQ(vigilctl({"store", "set", Common + "\\Branding", "Korvex Vigil", "Acme Vision"}).code,
              0);
    const Outcome rebranded = vigilctl({"message", QString::number(branded + 1)});
    EXPECT_TRUE(rebranded.out.contains("Acme Vision") && !rebranded.out.contains("Korvex Vigil"))
        << rebranded.out.toStdString();

    // No text for the id: nothing printed, and code 1.
    const Outcome unknown = vigilctl({"message", "99999"});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_TRUE(unknown.out.isEmpty());
    EXPECT_TRUE(unknown.err.startsWith("vigilctl: message: no text for 99999 in "))
        << unknown.err.toStdString();
    // So too for a stored language without a message file, which is warned of.
    ASSERT_EQ(vigilctl({"store", "set", Common + "\\Settings", "Language", "xx"}).code, 0);
    const Outcome blank = vigilctl({"message", "15"});
    EXPECT_EQ(blank.code, 1);
    EXPECT_TRUE(blank.out.isEmpty());
    EXPECT_TRUE(blank.err.contains("MSGxx/Vigil.msg")) << blank.err.toStdString();
}

TEST_F(VigilctlTest, ReadingNeverMakesAStore)
{
    const QList<QStringList> reading = {{"store", "get", Options, "PollInterval"},
                                        {"store", "list", Options},
                                        {"store", "export"},
                                        {"queue", "list"},
                                        {"status"}};
    for (const QStringList& args : reading) {
        const Outcome run = vigilctl(args);
        EXPECT_EQ(run.code, 3) << args.join(' ').toStdString();
        EXPECT_TRUE((run.err + run.out).contains("there is no such file"))
            << run.err.toStdString() << run.out.toStdString();
        EXPECT_FALSE(QFile::exists(storePath())) << args.join(' ').toStdString();
    }
    EXPECT_TRUE(vigilctl({"status"}).out.startsWith("UNKNOWN - the settings store "));
    // A message needs no store: the defaults serve.
    EXPECT_EQ(vigilctl({"message", "30", "4", "65000"}).code, 0);
    EXPECT_FALSE(QFile::exists(storePath()));
    EXPECT_EQ(vigilctl({"store", "set", Options, "PollInterval", "4000", "--dword"}).code, 0);
    EXPECT_TRUE(QFile::exists(storePath()));
}

TEST_F(VigilctlTest, OnlyAnAdministratorChangesTheStoreAndAnybodyReadsIt)
{
    ASSERT_EQ(vigilctl({"queue", "add", "Line 1", "--port", "sim:echo", "--type", "1234"}).code, 0);
    const QString settings = QStringLiteral("HKLM\\Software\\Orvane\\LabelApplication\\Settings");
    ASSERT_EQ(
        vigilctl({"store", "set", settings, "Administrators", "@no-such-group-of-vigil"}).code, 0);
    QFile reg(m_dir.filePath("site.reg"));
    ASSERT_TRUE(reg.open(QIODevice::WriteOnly) && reg.write("[HKLM\\Imported]\n") > 0);
    reg.close();
    const QString before = vigilctl({"store", "export"}).out;

    const QList<QStringList> writing = {
        {"store", "set", Options, "PollInterval", "4000", "--dword"},
        {"store", "set", settings, "Administrators", ""},
        {"store", "delete", settings},
        {"store", "delete", "HKLM\\Software"},
        {"store", "import", reg.fileName()},
        {"queue", "add", "Line 2", "--port", "sim:echo", "--type", "1234"},
        {"queue", "remove", "Line 1"}};
    for (const QStringList& args : writing) {
        const Outcome refused = vigilctl(args);
        EXPECT_EQ(refused.code, 4) << args.join(' ').toStdString();
        EXPECT_TRUE(refused.err.startsWith("vigilctl: only an administrator may change"))
            << refused.err.toStdString();
        EXPECT_EQ(refused.err.count('\n'), 1);
    }
    EXPECT_EQ(vigilctl({"store", "export"}).out, before);
    EXPECT_EQ(vigilctl({"store", "get", settings, "Administrators"}).code, 0);
    EXPECT_EQ(vigilctl({"store", "list", "HKLM\\Software\\Orvane"}).code, 0);
    EXPECT_EQ(vigilctl({"queue", "list"}).code, 0);
}

TEST_F(VigilctlTest, NamesThatBreakALineAreRefusedAndABackupRestoresEveryName)
{
    for (const QStringList& args :
         QList<QStringList>{{"store", "set", Options + "\\A\nB", "N", "1"},
                            {"store", "set", Options, "N\r", "1"},
                            {"queue", "add", "Line\n1", "--port", "sim:echo", "--type", "1"}}) {
        const Outcome refused = vigilctl(args);
        EXPECT_EQ(refused.code, 2) << refused.err.toStdString();
        EXPECT_TRUE(refused.err.contains("can't be stored: a name may not hold"))
            << refused.err.toStdString();
        EXPECT_EQ(refused.err.count('\n'), 1) << refused.err.toStdString();
    }
    EXPECT_EQ(vigilctl({"store", "list", Options}).code, 1) << "a refused value made its key";

    for (const char* key : {" Leading", "Trailing  ", "[x]=\"ä\""})
        ASSERT_EQ(vigilctl({"store", "set", Options + "\\" + key, " value \\ ", "text"}).code, 0);
    const Outcome backup = vigilctl({"store", "export"});
    ASSERT_EQ(backup.code, 0);
    const QString restoredStore = m_dir.filePath("restored.sqlite");
    const QStringList restored{"VIGIL_STORE=" + restoredStore};
    ASSERT_EQ(vigilctl({"store", "import", "-"}, backup.out.toUtf8(), restored).code, 0);
    EXPECT_EQ(vigilctl({"store", "export"}, {}, restored).out, backup.out);
    EXPECT_EQ(vigilctl({"store", "list", Options}, {}, restored).out,
              " Leading\nTrailing  \n[x]=\"ä\"\n");

    // A name an older version let in: the rest is exported, and what is not is said.
    ASSERT_TRUE(WriteAsAnOlderVersion(
        storePath(), "UPDATE store_keys SET name = name || char(10), path = path || char(10) "
                     "WHERE path LIKE '%LEADING'"));
    const Outcome partial = vigilctl({"store", "export"});
    EXPECT_EQ(partial.code, 3);
    EXPECT_TRUE(partial.out.contains("Trailing  ]")) << partial.out.toStdString();
    EXPECT_FALSE(partial.out.contains("Leading"));
    EXPECT_TRUE(partial.err.contains("left out") && partial.err.contains(" Leading\\n"))
        << partial.err.toStdString();
    EXPECT_EQ(partial.err.count('\n'), 1);
    EXPECT_TRUE(vigilctl({"store", "list", Options}).out.startsWith(" Leading\\n\n"));
}

TEST_F(VigilctlTest, AStoreThatCannotBeUsedOrChangedIsCodeThree)
{
    ASSERT_EQ(vigilctl({"queue", "add", "Line 1", "--port", "sim:echo", "--type", "1234"}).code, 0);
    const QString before = vigilctl({"store", "export"}).out;
    const auto permit = [](const QString& path, QFile::Permissions permissions) {
        ASSERT_TRUE(
            QFile::setPermissions(path, permissions | QFile::Permissions(int(permissions) >> 12)));
    };
    const QFile::Permissions all = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

    // A store file that may not be written: read, but not changed.
    permit(m_dir.path(), all);
    permit(storePath(), QFile::ReadOwner);
    EXPECT_EQ(vigilctlBoundByPermissions({"store", "get", QueueKey + "\\Line 1", "PortName"}).out,
              "sim:echo\n");
    const Outcome readOnlyFile = vigilctlBoundByPermissions({"store", "set", Options, "N", "1"});
    EXPECT_EQ(readOnlyFile.code, 3);
    EXPECT_TRUE(readOnlyFile.err.endsWith("can't be changed: the file is read-only\n"))
        << readOnlyFile.err.toStdString();
    // What the reader left beside the store goes, as the last writer to close would clear it.
    QFile::remove(storePath() + "-shm");
    QFile::remove(storePath() + "-wal");

    // A folder that may not be written: the store's journal files can't be made in it.
    permit(storePath(), QFile::ReadOwner | QFile::WriteOwner);
    permit(m_dir.path(), QFile::ReadOwner | QFile::ExeOwner);
    const Outcome readOnlyFolder[] = {
        vigilctlBoundByPermissions({"store", "get", QueueKey + "\\Line 1", "PortName"}),
        vigilctlBoundByPermissions({"queue", "remove", "Line 1"})};
    permit(m_dir.path(), all);
    for (const Outcome& refused : readOnlyFolder) {
        EXPECT_EQ(refused.code, 3);
        EXPECT_TRUE(refused.err.contains("its folder " + m_dir.path() + " is read-only"))
            << refused.err.toStdString();
    }

    // A full disk: each change is more than it holds. The journal's index takes 32 KiB.
    const QString big(40000, 'x');
    for (const QStringList& args :
         QList<QStringList>{{"store", "set", Options, "Big", big},
                            {"queue", "add", "Line 2", "--port", "sim:echo", "--type", "1234",
                             "--friendly", big}}) {
        const Outcome full = vigilctlOnAFullDisk(args, 36000);
        EXPECT_EQ(full.code, 3) << full.err.toStdString();
        EXPECT_EQ(full.err.count('\n'), 1) << full.err.toStdString();
    }
    EXPECT_EQ(vigilctl({"store", "export"}).out, before);

    // A file that is no store: named, and left as it is.
    QFile notes(storePath());
    ASSERT_TRUE(notes.open(QIODevice::WriteOnly) && notes.write("my notes") > 0);
    notes.close();
    for (const QStringList& args :
         QList<QStringList>{{"store", "get", Options, "N"}, {"store", "set", Options, "N", "1"}}) {
        const Outcome notAStore = vigilctl(args);
        EXPECT_EQ(notAStore.code, 3);
        EXPECT_TRUE(notAStore.err.contains(storePath() + " can't be used: the file is not a"))
            << notAStore.err.toStdString();
    }
    ASSERT_TRUE(notes.open(QIODevice::ReadOnly));
    EXPECT_EQ(notes.readAll(), QByteArray("my notes"));
}

TEST_F(VigilctlTest, FormatShowListsWhatALabelAsksForAndNamesTheLineOfAFault)
{
    const auto write = [&](const QString& name, const QByteArray& text) {
        QFile file(m_dir.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    };
    const QString format = write("case.fmt", "[Format]\nPrinterType=900\nDescription=Case label\n"
                                             "[Prompt Lot]\nPrompt=Lot number\nValue=L0001\n"
                                             "MaxLength=8\nMask=>AA9999\n"
                                             "[DatabaseKey Products]\nKeyField=Code\n"
                                             "DataSource=QSQLITE:plant\n[Data]\n{Lot}{Products}\n");
    const Outcome shown = vigilctl({"format", "show", format});
    EXPECT_EQ(shown.code, 0) << shown.err.toStdString();
    EXPECT_EQ(shown.out,
              "type: 900\ndescription: Case label\nprompts:\n"
              "  Lot: prompt \"Lot number\", value \"L0001\", max length 8, mask \">AA9999\"\n"
              "keys:\n"
              "  Products: prompt \"\", value \"\", key field Code, data source QSQLITE:plant\n");

    const Outcome set = vigilctl({"format", "show",
                                  write("line1.lbs", "[LabelSet]\n[Elements]\n"
                                                     "Cases=case.fmt\n")});
    EXPECT_EQ(set.code, 0) << set.err.toStdString();
    EXPECT_TRUE(set.out.endsWith("elements:\n  Cases: " + format + ", type 900\n"))
        << set.out.toStdString();

    const Outcome faulty = vigilctl(
        {"format", "show", write("bad.fmt", "[Format]\nPrinterType=900\nPromt=x\n[Data]\n")});
    EXPECT_EQ(faulty.code, 1);
    EXPECT_TRUE(faulty.out.isEmpty());
    EXPECT_EQ(faulty.err, "vigilctl: bad.fmt, line 3: unknown key \"Promt\" in [Format]\n");
    EXPECT_EQ(vigilctl({"format", "show", m_dir.filePath("none.fmt")}).code, 1);
    EXPECT_EQ(vigilctl({"format", "list", format}).code, 2);
}
} // namespace
