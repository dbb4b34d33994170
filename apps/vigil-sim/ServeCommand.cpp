#include "ServeCommand.h"

#include "SignalWatcher.h"

#include <QCoreApplication>
#include <QFile>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/resource.h>

ServeCommand::ServeCommand(const Console& console)
    : m_console(console)
{}

int ServeCommand::run(const QString& scenarioPath)
{
    QString error;
    const std::optional<Scenario> scenario = readScenario(scenarioPath, error);
    if (!scenario)
        return m_console.fail(QStringLiteral("%1: %2").arg(scenarioPath, error), ExitBadInput);

    raiseOpenFileLimit();
    SignalWatcher signalWatcher;
    if (!signalWatcher.watch({SIGINT, SIGTERM}, error))
        return m_console.fail(error, ExitNothingServed);
    QObject::connect(&signalWatcher, &SignalWatcher::caught, QCoreApplication::instance(),
                     &QCoreApplication::quit);

    std::vector<std::unique_ptr<SimServer>> servers;
    for (const ScenarioPrinter& printer : scenario->printers()) {
        QString printerError;
        std::unique_ptr<SimServer> server = serve(printer, printerError);
        if (!server) {
            m_console.complain(
                QStringLiteral("\"%1\" at %2: %3").arg(printer.name, printer.listen, printerError));
            continue;
        }
        QObject::connect(
            server.get(), &SimServer::acceptFailed,
            [this, name = printer.name](const QString& reason) {
                m_console.complain(
                    QStringLiteral("\"%1\" cannot take a client for now: %2").arg(name, reason));
            });
        QObject::connect(server.get(), &SimServer::notice,
                         [this, name = printer.name](const QString& line) {
                             m_console.say(QStringLiteral("%1: %2").arg(name, line));
                         });
        m_console.say(QStringLiteral("serving %1 \"%2\" at %3")
                          .arg(server->kind(), server->name(), server->address()));
        servers.push_back(std::move(server));
    }
    if (servers.empty())
        return m_console.fail(QStringLiteral("no printer could be served"), ExitNothingServed);
    QCoreApplication::exec();
    return ExitDone;
}

std::optional<Scenario> ServeCommand::readScenario(const QString& path, QString& error) const
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return std::nullopt;
    }
    return Scenario::fromJson(file.readAll(), error);
}

std::unique_ptr<SimServer> ServeCommand::serve(const ScenarioPrinter& printer, QString& error) const
{
    const std::optional<SimKnobs> knobs = SimKnobs::fromJson(printer.knobs, error);
    if (!knobs)
        return nullptr;
    std::unique_ptr<SimPrinter> simPrinter = SimPrinter::create(printer.kind, *knobs, error);
    if (!simPrinter)
        return nullptr;
    auto server = std::make_unique<SimServer>(printer.name, std::move(simPrinter), *knobs);
    if (!server->listen(printer.listen, error))
        return nullptr;
    return server;
}

void ServeCommand::raiseOpenFileLimit() const
{
    // A client and a listener per printer: a thousand printers need more descriptors than
    // the usual soft limit of 1024.
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur == limit.rlim_max)
        return;
    limit.rlim_cur = limit.rlim_max;
    if (::setrlimit(RLIMIT_NOFILE, &limit) != 0)
        m_console.complain(QStringLiteral("cannot raise the open file limit: %1")
                               .arg(QString::fromLocal8Bit(std::strerror(errno))));
}
