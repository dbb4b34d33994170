// The settings store under the load of a large tree: 1,000 printer keys of ten values each,
// written and read back in one transaction, and a key with 1,000 subkeys listed.

#include "services/SettingsAccess.h"
#include "services/SettingsStore.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {
constexpr int Printers = 1000;
const QString PrintersKey = DefaultRootKey + QStringLiteral("\\Printers");

const char* const ValueNames[] = {"Name",     "ID",       "Number",   "Enabled",  "File",
                                  "Setting0", "Setting1", "Setting2", "Setting3", "Setting4"};

QString printerKey(int printer)
{
    return PrintersKey + QStringLiteral("\\ID2026112212%1").arg(printer, 4, 10, QLatin1Char('0'));
}

class BenchStore
{
public:
    BenchStore()
    {
        SettingsStore::install(
            std::make_shared<SettingsStore>(m_dir.filePath(QStringLiteral("bench.sqlite"))));
    }
    ~BenchStore() { SettingsStore::install(nullptr); }

private:
    QTemporaryDir m_dir;
};

void writeTree()
{
    SettingsStore::Transaction transaction(SettingsStore::process());
    for (int printer = 0; printer < Printers; ++printer) {
        const QString key = printerKey(printer);
        for (int v = 0; v < 10; ++v) {
            QVariant value =
                v == 2 ? QVariant(printer) : QVariant(QStringLiteral("Value %1").arg(v));
            TransferValueEx(HKEY_LOCAL_MACHINE, key, TransferWrite, v == 2 ? REG_DWORD : REG_SZ,
                            QLatin1String(ValueNames[v]), value, QVariant(), false);
        }
    }
    transaction.commit();
}

void BM_WriteThousandPrinterKeys(benchmark::State& state)
{
    BenchStore store;
    for (auto _ : state) {
        state.PauseTiming();
        DeleteKeyTree(HKEY_LOCAL_MACHINE, QString(), QStringLiteral("Printers"));
        state.ResumeTiming();
        writeTree();
    }
}
BENCHMARK(BM_WriteThousandPrinterKeys)->Unit(benchmark::kMillisecond);

void BM_ReadThousandPrinterKeys(benchmark::State& state)
{
    BenchStore store;
    writeTree();
    for (auto _ : state) {
        SettingsStore::Transaction transaction(SettingsStore::process());
        for (int printer = 0; printer < Printers; ++printer) {
            const QString key = printerKey(printer);
            for (const char* name : ValueNames) {
                QVariant value;
                TransferValueEx(HKEY_LOCAL_MACHINE, key, TransferRead, REG_SZ, QLatin1String(name),
                                value, QVariant(), false);
                benchmark::DoNotOptimize(value);
            }
        }
        transaction.commit();
    }
}
BENCHMARK(BM_ReadThousandPrinterKeys)->Unit(benchmark::kMillisecond);

void BM_EnumThousandSubKeys(benchmark::State& state)
{
    BenchStore store;
    writeTree();
    for (auto _ : state) {
        QStringList names;
        EnumSubKeys(HKEY_LOCAL_MACHINE, names, QStringLiteral("Printers"));
        if (names.size() != Printers + 1)
            state.SkipWithError("wrong number of subkeys");
        benchmark::DoNotOptimize(names);
    }
}
BENCHMARK(BM_EnumThousandSubKeys)->Unit(benchmark::kMillisecond);
} // namespace

BENCHMARK_MAIN();
