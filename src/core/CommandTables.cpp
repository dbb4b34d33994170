#include "core/CommandTables.h"

#include "services/ApplicationOptions.h"
#include "services/MessageCatalogue.h"

namespace {
struct Command
{
    const char* name;
    qint32 caption;
    const char* key;
    qint32 tip;
    qint32 status;
    bool flag;
    const char* icon; // empty for none
    int number;
};

// A mark divides the host's menus; two of them carry a title.
struct MenuRow
{
    const char* mark;
    const char* title;
    Command command;
};

constexpr Command Toolbar[] = {
    {"DoEnablePolling", 44, "", 45, 45, false, "EnablePolling.ico", 3},
    {"DoDisablePolling", 46, "", 47, 47, false, "DisablePolling.ico", 3},
    {"DoDisplayFileView", 63, "", 64, 64, true, "FileView.ico", 0},
    {"DoSendFilesToPrinters", 65, "", 66, 65, false, "SendToPrinters.ico", 0},
    {"DoClearFileAssignments", 67, "", 68, 67, false, "ClearPrintAssignments.ico", 0},
    {"DoAddGroup", 50, "G", 49, 50, true, "AddGroup.ico", 0},
    {"DoAddPrinter", 52, "A", 51, 52, false, "AddPrinter.ico", 0},
    {"DoDelete", 40, "D", 40, 40, false, "Delete.ico", 0},
    {"DoDisplayPrintProgress", 69, "", 70, 69, true, "PrintProgress.ico", 0},
    {"DoEnablePrinter", 59, "E", 59, 59, true, "Enable.ico", 0},
    {"DoDisablePrinter", 42, "S", 58, 58, true, "Disable.ico", 0},
    {"DoProperties", 56, "P", 56, 57, false, "Properties.ico", 0},
    {"DoSyncroniseTime", 60, "S", 60, 60, true, "Time.ico", 0},
    {"DoDisplayOptions", 61, "", 62, 62, true, "Options.ico", 0},
};

constexpr MenuRow Menu[] = {
    {"-1", nullptr, {}},
    {nullptr, nullptr, {"DoAddGroup", 48, "", 49, 50, false, "AddGroup.ico", 1}},
    {nullptr, nullptr, {"DoAddPrinter", 53, "", 54, 55, false, "AddPrinter.ico", 1}},
    {"-3", "Edit", {}},
    {nullptr, nullptr, {"DoDelete", 40, "", 40, 40, false, "Delete.ico", 3}},
    {nullptr, nullptr, {"DoProperties", 56, "", 56, 57, true, "Properties.ico", 3}},
    {nullptr, nullptr, {"DoDisablePrinter", 58, "", 58, 58, false, "Disable.ico", 3}},
    {nullptr, nullptr, {"DoEnablePrinter", 59, "", 59, 59, false, "Enable.ico", 3}},
    {"-4", "Monitoring", {}},
    {nullptr, nullptr, {"DoSyncroniseTime", 60, "", 60, 60, true, "Time.ico", 3}},
    {"-5", nullptr, {}},
    {nullptr, nullptr, {"DoHelp", 71, "", 72, 73, false, "", 1}},
};

QString row(const Command& command)
{
    const QString icon =
        *command.icon ? GetProgramFolder() + QStringLiteral("/icons/") + QLatin1String(command.icon)
                      : QString();
    return QStringList{QLatin1String(command.name),
                       GetMessage(command.caption),
                       QLatin1String(command.key),
                       GetMessage(command.tip),
                       GetMessage(command.status),
                       command.flag ? QStringLiteral("TRUE") : QStringLiteral("FALSE"),
                       icon,
                       QString::number(command.number)}
        .join(QLatin1Char('\n'));
}
} // namespace

QStringList GetToolbarConfiguration()
{
    QStringList rows;
    for (const Command& command : Toolbar)
        rows.append(row(command));
    return rows;
}

QStringList GetMenuConfiguration()
{
    QStringList rows;
    for (const MenuRow& menuRow : Menu) {
        if (!menuRow.mark)
            rows.append(QStringLiteral("0\n") + row(menuRow.command));
        else if (menuRow.title)
            rows.append(QLatin1String(menuRow.mark) + QLatin1Char('\n') +
                        QLatin1String(menuRow.title) + QLatin1Char('\n'));
        else
            rows.append(QLatin1String(menuRow.mark));
    }
    return rows;
}
