// Any bytes as a label format: read, rendered with its own values and with others, and read
// again as both elements of a label set, whose values must be the format's own.

#include "FuzzEnvironment.h"
#include "platform/lbx/LabelFormat.h"
#include "services/VigilError.h"

#include <QHash>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {
void fail(const char* what)
{
    std::fprintf(stderr, "label format: %s\n", what);
    std::abort();
}

// Every name of the format given `text`, as a job's values are handed over.
QHash<QString, QString> valuesOf(const LabelFormat& format, const QString& text)
{
    QHash<QString, QString> values;
    for (const PromptedValue& prompt : format.prompts())
        values.insert(prompt.VarName.toLower(), text);
    for (const DatabaseKey& key : format.keys())
        values.insert(key.VarName.toLower(), text);
    return values;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QString FileName = QStringLiteral("Label.fmt");
    static const QString SetName = QStringLiteral("Label.lbs");
    FuzzEnvironment& environment = FuzzEnvironment::instance();
    const QString path = environment.writeFile(FileName, data, size);
    static const QByteArray Set =
        "[LabelSet]\nDescription=both\n[Elements]\nA=Label.fmt\nB=Label.fmt\n";
    const QString setPath = environment.writeFile(
        SetName, reinterpret_cast<const uint8_t*>(Set.constData()), size_t(Set.size()));

    std::optional<LabelFormat> format;
    try {
        format = LabelFormat::read(path);
    } catch (const VigilError& error) {
        if (error.number() != VigilError::BadFileFormat ||
            !error.description().startsWith(FileName))
            fail("a fault that doesn't name the file");
        return 0;
    }
    if (format->printerType() < 1 || format->printerType() > 32767)
        fail("a printer type no queue can have");
    format->render({});
    format->render(valuesOf(*format, QString()));
    format->render(valuesOf(*format, QStringLiteral("{x}\\x41 \u00e4\u20ac")));

    const LabelSetFile set = LabelSetFile::read(setPath);
    if (set.elements().size() != 2 || set.prompts().size() != format->prompts().size() ||
        set.keys().size() != format->keys().size())
        fail("a set of the format twice doesn't carry the format's values once");
    return 0;
}
