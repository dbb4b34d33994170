#include "platform/host/DemoSite.h"

#include "core/AddInControl.h"
#include "core/HandlerTable.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "platform/lbx/LabelFormat.h"
#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/PortAddress.h"
#include "platform/lbx/QueueStore.h"
#include "platform/qt/PrinterFamily.h"
#include "services/ApplicationOptions.h"
#include "services/SettingsAccess.h"
#include "sim/SimPrinter.h"
#include "support/ServicesFixture.h"
#include "ui/WidgetApplication.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMap>
#include <QSet>

namespace {
// The user's store is the one $VIGIL_STORE names, beside the fixture's; the demo sits by it.
class DemoSiteTest : public ServicesFixture
{
protected:
    static void SetUpTestSuite() { EnsureWidgetApplication(); }
    void SetUp() override
    {
        ServicesFixture::SetUp();
        for (const char* variable : {"VIGIL_STORE", "XDG_DATA_HOME"})
            m_saved.insert(variable, qgetenv(variable));
        qputenv("VIGIL_STORE", QFile::encodeName(userStorePath()));
        writeCatalogue(23, {{23, "All Printers"}});
    }
    void TearDown() override
    {
        ServicesFixture::TearDown();
        for (auto saved = m_saved.cbegin(); saved != m_saved.cend(); ++saved)
            if (saved.value().isNull())
                qunsetenv(saved.key().constData());
            else
                qputenv(saved.key().constData(), saved.value());
    }

    QString userStorePath() const { return m_home.filePath(QStringLiteral("user.sqlite")); }

    static QStringList queueNames()
    {
        QStringList names;
        for (const QueueRecord& queue : QueueStore::load())
            names.append(queue.name);
        return names;
    }

    QMap<QByteArray, QByteArray> m_saved;
};

TEST_F(DemoSiteTest, AFreshDemoHasBothLinesOfSimulatedPrintersOfEveryKind)
{
    DemoSite::use(true);
    EXPECT_EQ(SettingsStore::process().filePath(), m_home.filePath("demo.sqlite"));

    // The tree as start-up reads it.
    const auto root = std::make_shared<clsComponents>();
    root->m_sID = AddInControl::RootId;
    root->CreateUI();
    root->LoadState(QStringLiteral("Printers"));
    EXPECT_EQ(root->m_sName, QStringLiteral("All Printers"));
    ASSERT_EQ(root->Count(), 2);
    QMap<QString, qint32> numbers;
    QSet<QString> handlers;
    for (qsizetype index = 1; index <= root->Count(); ++index) {
        const auto group = std::dynamic_pointer_cast<clsComponents>(root->Item(index));
        ASSERT_NE(group, nullptr);
        EXPECT_EQ(group->m_sName, QStringLiteral("Line %1").arg(index));
        EXPECT_TRUE(group->m_sID.startsWith("GP") && group->HasUI());
        EXPECT_GE(group->Count(), 4);
        for (qsizetype child = 1; child <= group->Count(); ++child) {
            const auto printer = std::dynamic_pointer_cast<clsComponent>(group->Item(child));
            ASSERT_NE(printer, nullptr);
            EXPECT_TRUE(printer->m_sID.startsWith("ID"));
            const auto handler = HandlerTable::createFor(printer->m_lRemoteObjectPrinterNumber);
            ASSERT_NE(handler, nullptr);
            EXPECT_EQ(printer->m_sRemoteObjectName, handler->GetObjectName());
            handlers.insert(handler->GetObjectName());
            // A coder's timed fault shows only through its error log.
            QString readsLog;
            EXPECT_EQ(printer->GetStoredSetting("GetErrorLog", readsLog),
                      handler->GetObjectName() == "clsDominoHandlerC");
            numbers.insert(printer->m_sName, printer->m_lRemoteObjectPrinterNumber);
        }
    }
    EXPECT_EQ(handlers, (QSet<QString>{"clsDominoHandlerC", "clsDominoHandlerA", "clsAveryHandler",
                                       "clsLBXPrinterHandler"}));

    // Every node has its queue, on a simulated printer that takes its knobs.
    const QList<QueueRecord> queues = QueueStore::load();
    EXPECT_EQ(queues.size(), numbers.size());
    QSet<QString> kinds;
    for (const QueueRecord& queue : queues) {
        EXPECT_EQ(numbers.value(queue.name, -1), queue.printerNumber) << queue.name.toStdString();
        const PortAddress address = PortAddress::parse(queue.portName);
        ASSERT_EQ(address.kind, PortAddress::Kind::Simulated) << queue.portName.toStdString();
        QString refusal;
        const auto simulated = SimPrinter::fromAddress(address.simAddress, refusal);
        ASSERT_NE(simulated, nullptr) << refusal.toStdString();
        kinds.insert(simulated->kind());
    }
    EXPECT_EQ(kinds, (QSet<QString>{"c-series", "a-series", "avery", "label"}));

    // Polled as often as allowed, warning of low ink, and open to every user.
    ApplicationOptions::process() = ApplicationOptions();
    EXPECT_EQ(GetPollInterval(), ApplicationOptions::MinPollInterval);
    EXPECT_GT(GetPrintsRemainingInkLowLimit(), 0);
    EXPECT_EQ(storedValue(LbxApplication::SettingsKey, "Administrators"), QVariant(QString()));
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
    EXPECT_FALSE(QFile::exists(userStorePath()));
}

TEST_F(DemoSiteTest, TheDemosLabelFolderHasAFormatForEachKindOfItsPrintersAndASetForLine1)
{
    DemoSite::use(true);
    const QString root = storedValue(LbxApplication::SettingsKey, "LabelRootFolder").toString();
    EXPECT_EQ(root, QDir(GetProgramFolder()).filePath("demo/labels"));
    EXPECT_EQ(storedValue(LbxApplication::SettingsKey, "FileViewRootFolder"), QVariant(root));
    // The fixture's program folder is a scratch one; the resources lie beside this program.
    const QDir folder(QCoreApplication::applicationDirPath() + "/demo/labels");

    QSet<qint32> demoTypes;
    for (const QueueRecord& queue : QueueStore::load())
        demoTypes.insert(queue.printerNumber);
    QSet<qint32> formatTypes;
    for (const QString& file : folder.entryList({"*.FMT"}, QDir::Files)) {
        const LabelFormat format = LabelFormat::read(folder.filePath(file));
        EXPECT_TRUE(demoTypes.contains(format.printerType())) << file.toStdString();
        formatTypes.insert(format.printerType());
        // The label printers' formats pick a product from the demo's database.
        const bool isLabel =
            PrinterFamily::of(format.printerType()) == PrinterFamily::Avery ||
            PrinterFamily::of(format.printerType()) == PrinterFamily::LocalLabelPrinter;
        EXPECT_EQ(format.keys().size(), isLabel ? 1 : 0) << file.toStdString();
        for (const DatabaseKey& key : format.keys())
            EXPECT_TRUE(QFile::exists(key.DataSource)) << file.toStdString();
    }
    EXPECT_EQ(formatTypes, demoTypes);

    // One label for each printer of line 1.
    const LabelSetFile set = LabelSetFile::read(folder.filePath("Line1.LBS"));
    EXPECT_EQ(set.description(), QStringLiteral("Line 1"));
    EXPECT_EQ(set.elements().size(), 5);
}

TEST_F(DemoSiteTest, EachLinesDashboardShowsItsPrintersOverThePictureOfTheLine)
{
    DemoSite::use(true);
    const auto root = std::make_shared<clsComponents>();
    root->m_sID = AddInControl::RootId;
    root->LoadState(QStringLiteral("Printers"));
    // The fixture's program folder is a scratch one; the picture lies beside this program.
    const QImage picture(QCoreApplication::applicationDirPath() + "/demo/line.png");
    ASSERT_FALSE(picture.isNull());
    const QRect onPicture(QPoint(0, 0), picture.size() * 15);
    for (qsizetype index = 1; index <= root->Count(); ++index) {
        const auto group = std::dynamic_pointer_cast<clsComponents>(root->Item(index));
        ASSERT_TRUE(group && group->HasUI());
        clsComponent& dashboard = *group->DisplayComponent();
        QString background;
        EXPECT_TRUE(dashboard.GetStoredSetting("Background", background));
        EXPECT_EQ(background, QDir(GetProgramFolder()).filePath("demo/line.png"));
        QList<QRect> places;
        for (qsizetype child = 1; child <= group->Count(); ++child) {
            const QString key = "Shortcut:" + group->Item(child)->m_sID + '.';
            QString left, top;
            ASSERT_TRUE(dashboard.GetStoredSetting(key + "left", left) &&
                        dashboard.GetStoredSetting(key + "top", top));
            // Each in its own place on the picture.
            const QRect place(left.toInt(), top.toInt(), 1935, 685);
            EXPECT_TRUE(onPicture.contains(place)) << key.toStdString();
            for (const QRect& other : std::as_const(places))
                EXPECT_FALSE(other.intersects(place)) << key.toStdString();
            places.append(place);
        }
    }
}

TEST_F(DemoSiteTest, AChangedDemoIsKeptUnlessFreshAndTheUsersStoreIsNeverTouched)
{
    SettingsStore::install(std::make_shared<SettingsStore>(userStorePath()));
    QString problem;
    ASSERT_TRUE(QueueStore::add({"Real coder", "10.0.4.21:9100", 2100, "Line 1"}, problem));
    SettingsStore::install(nullptr);
    const auto userStoreHash = [this] {
        QFile file(userStorePath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
    };
    const QByteArray before = userStoreHash();

    DemoSite::use(false);
    ASSERT_TRUE(queueNames().contains("Filler C1"));
    EXPECT_FALSE(queueNames().contains("Real coder"));
    ASSERT_TRUE(QueueStore::remove("Filler C1", problem));
    DemoSite::use(false);
    EXPECT_FALSE(queueNames().contains("Filler C1"));
    DemoSite::use(true);
    EXPECT_TRUE(queueNames().contains("Filler C1"));

    SettingsStore::install(nullptr);
    EXPECT_EQ(userStoreHash(), before);
    EXPECT_TRUE(m_dialogs->boxes().isEmpty());
}

TEST_F(DemoSiteTest, WithoutAnExplicitStoreTheDemoSitsBesideTheDefaultOne)
{
    qunsetenv("VIGIL_STORE");
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    const QString expected = m_home.filePath("korvex-vigil/demo.sqlite");
    EXPECT_EQ(DemoSite::storePath(), expected);

    DemoSite::use(true);
    EXPECT_EQ(SettingsStore::process().filePath(), expected);
    EXPECT_FALSE(queueNames().isEmpty());
    EXPECT_FALSE(QFile::exists(m_home.filePath("korvex-vigil/store.sqlite")));
}
} // namespace
