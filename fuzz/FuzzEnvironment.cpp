#include "FuzzEnvironment.h"

#include "FuzzConsole.h"
#include "core/PresentTime.h"
#include "printing/clsLBXHandler.h"
#include "services/HeadlessDialogs.h"
#include "services/SettingsStore.h"

#include <QFile>
#include <cstdio>
#include <cstdlib>

FuzzEnvironment& FuzzEnvironment::instance()
{
    static FuzzEnvironment environment;
    return environment;
}

FuzzEnvironment::FuzzEnvironment()
    : m_clock(std::make_shared<FakeClock>(QDateTime(QDate(2026, 11, 22), QTime(6, 30))))
    , m_application(std::make_shared<FakeApplication>())
{
    if (!m_folder.isValid()) {
        std::fprintf(stderr, "fuzz: no temporary folder: %s\n", qPrintable(m_folder.errorString()));
        std::abort();
    }
    // The program's files are those laid out beside the target; the language is English
    // whatever the shell says.
    qunsetenv("VIGIL_HOME");
    for (const char* variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES"})
        qunsetenv(variable);
    qputenv("LANG", "en_GB.UTF-8");

    // Never the user's own store; a box is one line nobody reads.
    SettingsStore::install(std::make_shared<SettingsStore>(QStringLiteral(":memory:")));
    static FILE* const nowhere = std::fopen("/dev/null", "w");
    IDialogs::install(std::make_shared<HeadlessDialogs>(nowhere));
    InstallClock(m_clock);
    ICommandConsole::installFactory([] { return std::make_unique<FuzzConsole>(); });
    InstallApplicationFactory([application = m_application] { return application; });
}

QString FuzzEnvironment::folder() const
{
    return m_folder.path() + QLatin1Char('/');
}

QString FuzzEnvironment::writeFile(const QString& name, const uint8_t* data, size_t size) const
{
    const QString path = folder() + name;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(reinterpret_cast<const char*>(data), qint64(size)) != qint64(size)) {
        std::fprintf(stderr, "fuzz: %s cannot be written\n", qPrintable(path));
        std::abort();
    }
    return path;
}
