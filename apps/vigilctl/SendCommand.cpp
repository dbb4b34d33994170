#include "SendCommand.h"

#include "HeadlessMonitor.h"
#include "SpoolWait.h"
#include "StoreGate.h"
#include "core/Globals.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "drivers/Application.h"
#include "platform/lbx/LbxApplication.h"
#include "platform/lbx/PrintSpool.h"
#include "printing/IPromptForm.h"
#include "printing/SendEngine.h"
#include "printing/clsLBXHandler.h"
#include "services/SettingsAccess.h"

#include <QDir>
#include <QFileInfo>

namespace {
const QString AssignOption = QStringLiteral("--assign");
const QString SetOption = QStringLiteral("--set");
} // namespace

SendCommand::SendCommand(const Console& console)
    : m_console(console)
{}

QString SendCommand::usage()
{
    return QStringLiteral(
        "Usage: vigilctl send [NODE] [--assign NODE=FILE]... [--set NAME=VALUE]...\n"
        "\n"
        "Sends label files to the printers as the window's send does, without a window and on\n"
        "a copy of the store. Each --assign gives a printer a format (.FMT) or a group a label\n"
        "set (.LBS), by the tree's rules; FILE is relative to the label folder (LabelRootFolder)\n"
        "or a full path, NODE a printer's or group's name or id. Then every file assigned at or\n"
        "below NODE (the top group if omitted) is sent, one print job each, once every enabled\n"
        "printer there has a file. --set answers a value the labels ask for (see vigilctl\n"
        "format show FILE); a value not given keeps the one the window would offer (a database\n"
        "key's none).\n"
        "\n"
        "Exit codes: 0 the printers have taken the labels; 1 no such NODE, a file the node\n"
        "doesn't take (missing, faulty, made for another printer type, or a label set naming a\n"
        "printer that has a file or is outside the group), or an enabled printer without a file:\n"
        "nothing is sent; 2 a bad command line, or a --set the labels don't ask for or can't\n"
        "take: nothing is sent; 3 the store can't be used, the send failed, or a printer didn't\n"
        "take its labels in time (they stay in the spool, and go when a program next prints).\n");
}

int SendCommand::run(const QStringList& words)
{
    const CommandLine line(words, {}, {AssignOption, SetOption});
    if (line.wantsHelp()) {
        m_console.out << usage();
        return ExitDone;
    }
    if (!line.unknownFlag().isEmpty() || !line.optionWithoutValue().isEmpty() ||
        line.positional().size() > 1)
        return m_console.fail(QStringLiteral("send: see vigilctl send --help"), ExitBadArguments);
    QHash<QString, QString> answers;
    for (const QString& word : line.values(SetOption)) {
        const auto set = NameAndValue(word);
        if (!set)
            return m_console.fail(
                QStringLiteral("send: --set takes NAME=VALUE, not \"%1\"").arg(word),
                ExitBadArguments);
        answers.insert(set->first, set->second);
    }
    for (const QString& word : line.values(AssignOption))
        if (!NameAndValue(word) || word.endsWith(QLatin1Char('=')))
            return m_console.fail(
                QStringLiteral("send: --assign takes NODE=FILE, not \"%1\"").arg(word),
                ExitBadArguments);
    if (const int code = StoreGate::open(StoreGate::Access::Read, m_console))
        return code;

    // The labels come from the site's folder and go through the site's spool, both found
    // beside the store: fixed before the copy takes its place.
    PrintSpool::process();
    const QString labelFolder = LbxApplication::labelRootFolder();
    QString problem;
    const std::unique_ptr<HeadlessMonitor> monitor = HeadlessMonitor::onCopyOfStore(problem);
    if (!monitor)
        return m_console.fail(QStringLiteral("send: ") + problem, ExitUnavailable);
    WriteValue(HKEY_LOCAL_MACHINE, LbxApplication::SettingsKey, QStringLiteral("LabelRootFolder"),
               REG_SZ, labelFolder);
    if (!monitor->start())
        return m_console.fail(QStringLiteral("send: the monitor could not start"), ExitUnavailable);

    for (const QString& word : line.values(AssignOption))
        if (!assign(word))
            return ExitNotFound;
    std::shared_ptr<TreeNode> from = g_oComponents;
    if (!line.positional().isEmpty()) {
        from = HeadlessMonitor::named(line.positional().first(), problem);
        if (!from)
            return m_console.fail(QStringLiteral("send: ") + problem, ExitNotFound);
    }
    QStringList sent;
    describeAssignments(*from, sent);

    const auto promptAnswers = std::make_shared<PromptAnswers>(answers);
    IPromptForm::install(
        [promptAnswers] { return std::make_unique<AnsweredPromptForm>(promptAnswers); });
    SpoolWait wait(GetGlobalLBX().LBX_App().Queues());
    switch (monitor->control().sendEngine().DoSendFilesToPrinters(from->m_sID)) {
    case SendEngine::Outcome::Sent:
        break;
    case SendEngine::Outcome::NotAllAssigned:
        return m_console.fail(QStringLiteral("send: nothing was sent"), ExitNotFound);
    case SendEngine::Outcome::Cancelled:
        return m_console.fail(
            QStringLiteral("send: %1; nothing was sent").arg(promptAnswers->problem),
            ExitBadArguments);
    case SendEngine::Outcome::Busy:
    case SendEngine::Outcome::Failed:
        return m_console.fail(QStringLiteral("send: the send failed"), ExitUnavailable);
    }
    const bool taken = wait.untilSent();
    for (const QString& fault : wait.faults())
        m_console.err << "vigilctl: send: " << fault << Qt::endl;
    if (!taken)
        return m_console.fail(QStringLiteral("send: a printer hasn't taken its labels; they stay "
                                             "in the print spool (vigilctl jobs)"),
                              ExitUnavailable);
    for (const QString& each : std::as_const(sent))
        m_console.out << QStringLiteral("sent %1\n").arg(each);
    return ExitDone;
}

bool SendCommand::assign(const QString& assignment)
{
    const auto [nodeName, file] = *NameAndValue(assignment);
    QString problem;
    const std::shared_ptr<TreeNode> node = HeadlessMonitor::named(nodeName, problem);
    if (!node) {
        m_console.fail(QStringLiteral("send: ") + problem, ExitNotFound);
        return false;
    }
    const QString labelFolder = GetGlobalLBX().LBX_App().LabelRootFolder();
    const QString relative =
        QFileInfo(file).isAbsolute() ? QDir(labelFolder).relativeFilePath(file) : file;
    bool assigned = false;
    if (node->isGroup()) {
        auto& group = static_cast<clsComponents&>(*node);
        group.SetAssignedFile(relative);
        assigned = group.AssignedFilename() == relative;
    } else {
        auto& printer = static_cast<clsComponent&>(*node);
        printer.SetAssignedFile(relative);
        assigned = !printer.IsAssignedFileInLabelSet() && printer.AssignedFilename() == relative;
    }
    if (!assigned)
        m_console.fail(QStringLiteral("send: %1 was not assigned to %2").arg(file, nodeName),
                       ExitNotFound);
    return assigned;
}

void SendCommand::describeAssignments(TreeNode& node, QStringList& lines)
{
    const bool fromLabelSet =
        !node.isGroup() && static_cast<clsComponent&>(node).IsAssignedFileInLabelSet();
    if (node.FileAssigned() && !fromLabelSet)
        lines.append(QStringLiteral("%1 to %2").arg(node.AssignedFilename(), node.m_sName));
    if (node.isGroup())
        for (const auto& child : static_cast<clsComponents&>(node).Col().snapshot())
            describeAssignments(*child, lines);
}
