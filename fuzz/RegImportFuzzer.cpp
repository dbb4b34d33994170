// Any text as a .reg import. Whatever it leaves in the store exports without harm, and what
// a store exports imports into an empty store and exports again byte for byte: a backup
// restores every name and value exactly.

#include "services/RegFile.h"
#include "services/SettingsStore.h"
#include "support/RegRoundTrip.h"

#include <cstdio>
#include <cstdlib>

namespace {
void fail(const QString& what, const QString& text)
{
    std::fprintf(stderr, "%s:\n%s\n", qPrintable(what), text.toUtf8().constData());
    std::abort();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    SettingsStore store(QStringLiteral(":memory:"));
    const auto imported = RegFile(store).importText(
        QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size)));
    QString backup;
    if (RegFile(store).exportAll(backup) != SettingsStore::Success)
        fail(QStringLiteral("the store cannot be exported"), backup);
    if (!imported.ok)
        return 0;
    if (const QString fault = RoundTripFault(backup); !fault.isEmpty())
        fail(fault, backup);
    return 0;
}
