#include "platform/host/DemoSite.h"

#include "core/AddInControl.h"
#include "core/HandlerTable.h"
#include "core/PresentTime.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "dashboard/GroupUI.h"
#include "dashboard/ShortcutKeys.h"
#include "drivers/clsDominoHandlerC.h"
#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/QueueStore.h"
#include "platform/qt/PrinterFamily.h"
#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"
#include "services/MessageCatalogue.h"
#include "services/SettingsAccess.h"
#include "services/SettingsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
const QString Context = QStringLiteral("Demo site");
const QString TreeKey = QStringLiteral("Printers");
constexpr qint32 InkLowLimit = 10;
// Beside the program, as the build and an installation lay resources out.
const QString LabelFolder = QStringLiteral("demo/labels");
const QString LinePicture = QStringLiteral("demo/line.png");

struct DemoPrinter
{
    const char* group;
    const char* name;
    PrinterFamily::Kind family;
    const char* port;
    const char* friendlyName;
};

// Times count from a printer's first poll and stay within two minutes, so that every state
// of the tree shows soon after start-up.
const DemoPrinter Printers[] = {
    {"Line 1", "Filler C1", PrinterFamily::DominoCSeries, "sim:c-series?file=BESTBY&count=1520",
     "Domino C-series, line 1 filler"},
    // Ink low after 20 s, below the limit 30 s later, none left 10 s after that.
    {"Line 1", "Filler C2", PrinterFamily::DominoCSeries,
     "sim:c-series?file=BATCH07&inklowafter=20&remaining=40", "Domino C-series, line 1 filler"},
    {"Line 1", "Capper A1", PrinterFamily::DominoASeries, "sim:a-series?count=8400",
     "Domino A-series, line 1 capper"},
    // The print head cover is open from 40 s to 80 s.
    {"Line 1", "Capper A2", PrinterFamily::DominoASeries,
     "sim:a-series?count=3150&timedalarm=50&alarmafter=40&alarmfor=40",
     "Domino A-series, line 1 capper"},
    {"Line 1", "Case labeller", PrinterFamily::Avery, "sim:avery?printing=1&labels=250",
     "Avery, line 1 cases"},
    // A fault from 30 s to 70 s.
    {"Line 2", "Filler C3", PrinterFamily::DominoCSeries,
     "sim:c-series?file=EXPIRY01&errorafter=30&errorfor=40", "Domino C-series, line 2 filler"},
    {"Line 2", "Filler C4", PrinterFamily::DominoCSeries, "sim:c-series?file=LINE1&count=96",
     "Domino C-series, line 2 filler"},
    {"Line 2", "Capper A3", PrinterFamily::DominoASeries, "sim:a-series?silent=1",
     "Domino A-series, line 2 capper, switched off"},
    {"Line 2", "Capper A4", PrinterFamily::DominoASeries, "sim:a-series?count=12007",
     "Domino A-series, line 2 capper"},
    {"Line 2", "Tray labeller", PrinterFamily::Avery, "sim:avery?labels=1200",
     "Avery, line 2 trays"},
    // A label jam at the dispenser.
    {"Line 2", "Pallet labeller", PrinterFamily::Avery, "sim:avery?code=11&flag=1",
     "Avery, line 2 pallets"},
    {"Line 2", "Office label printer", PrinterFamily::LocalLabelPrinter, "sim:label",
     "Label printer in the line 2 office"},
};

// Where each printer's shortcut stands on its line's dashboard, in twips: above its machine,
// or below the belt; a capper's below the walkway, so that a long alert beside it has room.
struct DashboardPlace
{
    const char* printer;
    int left;
    int top;
};

const DashboardPlace Places[] = {
    {"Filler C1", 600, 510},        {"Filler C2", 600, 3930},
    {"Capper A1", 3525, 510},       {"Capper A2", 3525, 5175},
    {"Case labeller", 6450, 510},   {"Filler C3", 600, 510},
    {"Filler C4", 600, 3930},       {"Capper A3", 3525, 510},
    {"Capper A4", 3525, 5175},      {"Tray labeller", 6450, 510},
    {"Pallet labeller", 9000, 510}, {"Office label printer", 9000, 5550},
};
// The shortcut's size as designed; the dashboard writes the size it takes when it shows.
constexpr QSize ShortcutDesign(1935, 685);

// A new user sees each line's printers over a picture of the line at once.
void placeShortcut(clsComponent& dashboard, const clsComponent& printer)
{
    for (const DashboardPlace& place : Places)
        if (printer.m_sName == QLatin1String(place.printer))
            ShortcutKeys(dashboard).write(printer.m_sID,
                                          QRect(QPoint(place.left, place.top), ShortcutDesign));
}

// Ids as the control makes them: "GP" or "ID", the date and time, and a number.
class DemoIds
{
public:
    QString next(bool group)
    {
        // Of one width: the store lists keys in order, and the tree keeps the table's.
        return (group ? QStringLiteral("GP") : QStringLiteral("ID")) + m_stamp +
               QStringLiteral("%1").arg(++m_serial, 3, 10, QLatin1Char('0'));
    }

private:
    QString m_stamp = PresentTime().toString(QStringLiteral("ddMMyyHHmmss"));
    int m_serial = 0;
};

// The demo's label set names line 1's printers by their place on the line; the group ties
// each place to its printer.
const QString LabelSetGroup = QStringLiteral("Line 1");
constexpr std::pair<const char*, const char*> LabelSetIdentifiers[] = {
    {"FILLER1", "Filler C1"}, {"FILLER2", "Filler C2"},   {"CAPPER1", "Capper A1"},
    {"CAPPER2", "Capper A2"}, {"CASES", "Case labeller"},
};

GroupIdentifiers labelSetIdentifiers()
{
    GroupIdentifiers identifiers;
    for (const auto& [identifier, printer] : LabelSetIdentifiers)
        identifiers.append({QString::fromUtf8(identifier), QString::fromUtf8(printer)});
    return identifiers;
}

std::shared_ptr<clsComponents> makeGroup(const QString& id, const QString& name)
{
    auto group = std::make_shared<clsComponents>();
    group->m_sID = id;
    group->m_sName = name;
    group->CreateUI();
    return group;
}

std::shared_ptr<clsComponent> makePrinter(const QString& id, const QueueRecord& queue)
{
    auto printer = std::make_shared<clsComponent>();
    printer->m_sID = id;
    printer->m_sName = queue.name;
    printer->m_lRemoteObjectPrinterNumber = queue.printerNumber;
    // What a node that has met its handler saves, without starting the handler.
    if (const auto handler = HandlerTable::createFor(queue.printerNumber)) {
        printer->m_sRemoteObjectName = handler->GetObjectName();
        printer->m_sRemoteObjectControl = handler->GetControlName();
    }
    return printer;
}

// Polled as often as allowed, so that the demo moves; every user may change the tree.
void writeOptions()
{
    // Without a limit, low ink is a fault at once; with it, a warning first.
    WriteValue(HKEY_LOCAL_MACHINE, OptionsKey, InkLowLimitValue, REG_DWORD, InkLowLimit);
    LoadOptions();
    SetPollIntervalOption(ApplicationOptions::MinPollInterval);
    SaveOptions();
    WriteValue(HKEY_LOCAL_MACHINE, LbxApplication::SettingsKey, LbxApplication::AdministratorsValue,
               REG_SZ, QString());
}

// The demo's formats, label set and products are where a print job looks for them.
void writeLabelFolders()
{
    const QString folder = QDir(GetProgramFolder()).filePath(LabelFolder);
    for (const QString& name :
         {QStringLiteral("LabelRootFolder"), QStringLiteral("FileViewRootFolder")})
        WriteValue(HKEY_LOCAL_MACHINE, LbxApplication::SettingsKey, name, REG_SZ, folder);
}

QueueRecord queueOf(const DemoPrinter& printer)
{
    QueueRecord queue;
    queue.name = QString::fromUtf8(printer.name);
    queue.portName = QString::fromUtf8(printer.port);
    queue.printerNumber = PrinterFamily::firstNumber(printer.family);
    queue.friendlyName = QString::fromUtf8(printer.friendlyName);
    return queue;
}
} // namespace

QString DemoSite::storePath()
{
    return QFileInfo(SettingsStore::defaultFilePath()).absoluteDir().filePath(FileName);
}

void DemoSite::use(bool fresh)
{
    const QString path = storePath();
    // A store opened already lets go of its file; the next use opens the demo's.
    SettingsStore::install(nullptr);
    qputenv("VIGIL_STORE", QFile::encodeName(path));
    if (fresh && !removeStore(path))
        return;
    if (SettingsStore::process().isAvailable() && !hasTree())
        seed();
}

bool DemoSite::removeStore(const QString& path)
{
    for (const QString& suffix : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")}) {
        QFile file(path + suffix);
        if (file.exists() && !file.remove()) {
            ShowError(tr("The demo site %1 can't be started afresh: %2")
                          .arg(file.fileName(), file.errorString()),
                      Context);
            return false;
        }
    }
    return true;
}

bool DemoSite::hasTree()
{
    QVariant id;
    return ReadValue(HKEY_LOCAL_MACHINE, DefaultRootKey + QLatin1Char('\\') + TreeKey,
                     QStringLiteral("ID"), id) == 0;
}

void DemoSite::seed()
{
    SettingsStore& store = SettingsStore::process();
    SettingsStore::Transaction transaction(store);

    DemoIds ids;
    auto root = makeGroup(AddInControl::RootId, GetMessage(23));
    QHash<QString, std::shared_ptr<clsComponents>> groups;
    for (const DemoPrinter& printer : Printers) {
        const QueueRecord queue = queueOf(printer);
        QString problem;
        if (!QueueStore::add(queue, problem)) {
            ShowError(tr("The demo site could not be set up: %1").arg(problem), Context);
            return;
        }
        const QString groupName = QString::fromUtf8(printer.group);
        auto& group = groups[groupName];
        if (!group) {
            group = makeGroup(ids.next(true), groupName);
            group->DisplayComponent()->AddStoredSetting(
                GroupUI::BackgroundSetting, QDir(GetProgramFolder()).filePath(LinePicture));
            root->AddComponent(group->m_sID, group);
        }
        const auto node = makePrinter(ids.next(false), queue);
        // A coder's faults reach the tree through its error log, which is read only on
        // request.
        if (printer.family == PrinterFamily::DominoCSeries)
            node->AddStoredSetting(clsDominoHandlerC::CheckErrorLogSetting, QStringLiteral("True"));
        group->AddComponent(node->m_sID, node);
        placeShortcut(*group->DisplayComponent(), *node);
    }
    if (const auto line = groups.value(LabelSetGroup))
        line->m_colGroupIdentifiers = labelSetIdentifiers();
    root->Save(TreeKey);

    writeOptions();
    writeLabelFolders();

    if (!transaction.commit())
        ShowError(tr("The demo site could not be written to %1").arg(store.filePath()), Context);
}
