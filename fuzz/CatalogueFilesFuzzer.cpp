// Any bytes as the A-series alarm table and as the Avery error table. Every alarm read must
// be found again by its own number; every code of the Avery table is looked up.

#include "FuzzEnvironment.h"
#include "drivers/clsAlarms.h"
#include "drivers/clsAveryErrorCodes.h"
#include "services/VigilError.h"

#include <QFile>
#include <QTextStream>
#include <cstdio>
#include <cstdlib>

namespace {
void fail(const char* table, const QString& key)
{
    std::fprintf(stderr, "%s: the entry \"%s\" isn't found by its key\n", table, qPrintable(key));
    std::abort();
}

void loadAlarms(const QString& path)
{
    clsAlarmCollection alarms;
    try {
        alarms.LoadFile(path);
    } catch (const VigilError&) {
        // A bad line ends the load; what came before it stays usable.
    }
    for (const auto& alarm : alarms.NewEnum()) {
        if (alarms.Item(alarm->AlarmId) != alarm)
            fail("alarm table", alarm->AlarmId);
    }
}

void loadAveryErrors(const QString& folder, const QString& fileName)
{
    clsAveryErrorCodes codes;
    codes.load(folder, fileName);
    QFile file(folder + fileName);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QTextStream lines(&file);
    while (!lines.atEnd()) {
        const QString code = lines.readLine().section(QLatin1Char(','), 0, 0);
        codes.GetErrorLevel(code);
        codes.GetErrorDescription(code);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QString AveryFile = QStringLiteral("AveryErrors.txt");
    FuzzEnvironment& environment = FuzzEnvironment::instance();
    loadAlarms(environment.writeFile(QStringLiteral("ASeriesAlerts.txt"), data, size));
    environment.writeFile(AveryFile, data, size);
    loadAveryErrors(environment.folder(), AveryFile);
    return 0;
}
