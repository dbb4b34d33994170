#include "services/ApplicationOptions.h"

#include "services/ErrorBox.h"
#include "services/SettingsAccess.h"
#include "services/VigilError.h"
#include "support/ServicesFixture.h"

#include <QFile>

namespace {
class ApplicationOptionsTest : public ServicesFixture
{
protected:
    static void storeOption(const char* name, qint32 value)
    {
        ASSERT_EQ(WriteValue(HKEY_LOCAL_MACHINE, OptionsKey, name, REG_DWORD, value), 0);
    }

    static QVariant storedOption(const char* name)
    {
        QVariant value;
        return ReadValue(HKEY_LOCAL_MACHINE, OptionsKey, name, value) == 0 ? value : QVariant();
    }

    ApplicationOptions m_options;
};

TEST_F(ApplicationOptionsTest, AnEmptyStoreGivesTheDefaultsAndTheLoadWritesNothing)
{
    EXPECT_EQ(m_options.getPollInterval(), 20000);
    EXPECT_EQ(m_options.getPrintsRemainingInkLowLimit(), -1);
    EXPECT_EQ(m_options.getMessageFolder(), programFolder() + QStringLiteral("/MSGen/"));
    SettingsStore::Handle key = 0;
    EXPECT_EQ(store().openKey(SettingsStore::MachineHive, QStringLiteral("Software"), key),
              SettingsStore::FileNotFound);

    m_options.saveOptions();
    EXPECT_EQ(storedOption("TreeIconSize"), QVariant(0));
    EXPECT_EQ(storedOption("PollInterval"), QVariant(20000));
    EXPECT_FALSE(storedOption("PrintsRemainingInkLowLimit").isValid());
}

TEST_F(ApplicationOptionsTest, TheIntervalIsClampedInMemoryAndSavedOnlyBySave)
{
    storeOption("PollInterval", 1000);
    storeOption("TreeIconSize", 3);
    storeOption("PrintsRemainingInkLowLimit", 250);
    EXPECT_EQ(m_options.getPollInterval(), 4000);
    EXPECT_EQ(m_options.getPrintsRemainingInkLowLimit(), 250);
    EXPECT_EQ(storedOption("PollInterval"), QVariant(1000));

    m_options.saveOptions();
    EXPECT_EQ(storedOption("PollInterval"), QVariant(4000));
    EXPECT_EQ(storedOption("TreeIconSize"), QVariant(3));
    EXPECT_EQ(storedOption("PrintsRemainingInkLowLimit"), QVariant(250));

    storeOption("PollInterval", 100000000);
    EXPECT_EQ(m_options.getPollInterval(), 65000000); // the save made the next call read anew

    EXPECT_EQ(m_options.setPollIntervalOption(3999), 4000);
    EXPECT_EQ(m_options.setPollIntervalOption(65000001), 65000000);
    EXPECT_EQ(m_options.setPollIntervalOption(4500), 4500);
    EXPECT_EQ(m_options.getPollInterval(), 4500);
    EXPECT_EQ(storedOption("PollInterval"), QVariant(100000000));
}

TEST_F(ApplicationOptionsTest, AnInkLimitA16BitCountCantHoldIsNoLimit)
{
    for (const int stored : {40000, -40000, 32768}) {
        storeOption("PrintsRemainingInkLowLimit", stored);
        m_options.loadOptions();
        EXPECT_EQ(m_options.getPrintsRemainingInkLowLimit(), -1) << stored;
    }
    storeOption("PrintsRemainingInkLowLimit", 32767);
    m_options.loadOptions();
    EXPECT_EQ(m_options.getPrintsRemainingInkLowLimit(), 32767);
}

TEST_F(ApplicationOptionsTest, ErrorBoxesCarryTheContextAndTheBrandedTitle)
{
    ShowError(QStringLiteral("Disk full - 61"), QStringLiteral("AddInControl - Save"));
    ShowTrappedError(VigilError(0x80040201, QStringLiteral("clsLBXHandler"),
                                QStringLiteral("The label application is not running")),
                     QStringLiteral("AddInControl - UserControl_Initialize"));
    const auto& boxes = m_dialogs->boxes();
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_EQ(boxes[0].title, QStringLiteral("AddInControl - Save - Korvex Vigil"));
    EXPECT_EQ(boxes[0].text, QStringLiteral("Disk full - 61"));
    EXPECT_EQ(boxes[0].icon, IDialogs::Icon::Warning);
    EXPECT_EQ(boxes[0].buttons, IDialogs::Buttons::Ok);
    // A trapped error shows its description and number.
    EXPECT_EQ(boxes[1].text, QStringLiteral("The label application is not running - -2147220991"));
    EXPECT_EQ(boxes[1].title,
              QStringLiteral("AddInControl - UserControl_Initialize - Korvex Vigil"));
}

TEST_F(ApplicationOptionsTest, AStoreThatCannotBeUsedIsNamedOnceAndTheProgramGoesOn)
{
    writeFile(QStringLiteral("broken.sqlite"), QByteArray(4096, 'b'));
    const QString broken = m_home.filePath(QStringLiteral("broken.sqlite"));
    qputenv("VIGIL_STORE", QFile::encodeName(broken));
    SettingsStore::install(nullptr);
    EXPECT_EQ(GetPollInterval(), 20000);
    SaveOptions();
    EXPECT_EQ(GetPollInterval(), 20000);
    qunsetenv("VIGIL_STORE");

    ASSERT_EQ(m_dialogs->boxes().size(), 1);
    const QString text = m_dialogs->boxes()[0].text;
    EXPECT_TRUE(text.contains(broken) && text.contains("not a settings store"))
        << text.toStdString();
}
} // namespace
