#include "Scenario.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

namespace {
// A field nobody reads is most likely a misspelt one, so it is refused rather than ignored.
QString unknownField(const QJsonObject& object, const QSet<QString>& known)
{
    for (const QString& key : object.keys())
        if (!known.contains(key))
            return key;
    return {};
}

std::optional<ScenarioPrinter> printerFromJson(const QJsonValue& value, QString& error)
{
    if (!value.isObject()) {
        error = QStringLiteral("is not an object");
        return std::nullopt;
    }
    const QJsonObject object = value.toObject();
    const QString unknown =
        unknownField(object, {QStringLiteral("name"), QStringLiteral("kind"),
                              QStringLiteral("listen"), QStringLiteral("knobs")});
    if (!unknown.isEmpty()) {
        error = QStringLiteral("has an unknown field \"%1\"").arg(unknown);
        return std::nullopt;
    }
    for (const char* field : {"kind", "listen"})
        if (!object.value(QLatin1String(field)).isString()) {
            error = QStringLiteral("needs \"%1\" as a text").arg(QLatin1String(field));
            return std::nullopt;
        }
    const QJsonValue name = object.value(QLatin1String("name"));
    if (!name.isUndefined() && !name.isString()) {
        error = QStringLiteral("has a \"name\" that is not a text");
        return std::nullopt;
    }
    const QJsonValue knobs = object.value(QLatin1String("knobs"));
    if (!knobs.isUndefined() && !knobs.isObject()) {
        error = QStringLiteral("has \"knobs\" that are not an object");
        return std::nullopt;
    }
    ScenarioPrinter printer;
    printer.kind = object.value(QLatin1String("kind")).toString();
    printer.listen = object.value(QLatin1String("listen")).toString();
    printer.name = name.toString(printer.listen);
    printer.knobs = knobs.toObject();
    return printer;
}
} // namespace

Scenario::Scenario(QList<ScenarioPrinter> printers)
    : m_printers(std::move(printers))
{}

std::optional<Scenario> Scenario::fromJson(const QByteArray& json, QString& error)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        error = QStringLiteral("not valid JSON at offset %1: %2")
                    .arg(parseError.offset)
                    .arg(parseError.errorString());
        return std::nullopt;
    }
    if (!document.isObject() || !document.object().value(QLatin1String("printers")).isArray()) {
        error = QStringLiteral("a scenario is an object with a \"printers\" array");
        return std::nullopt;
    }
    const QJsonObject root = document.object();
    const QString unknown = unknownField(root, {QStringLiteral("printers")});
    if (!unknown.isEmpty()) {
        error = QStringLiteral("the scenario has an unknown field \"%1\"").arg(unknown);
        return std::nullopt;
    }
    QList<ScenarioPrinter> printers;
    const QJsonArray entries = root.value(QLatin1String("printers")).toArray();
    for (qsizetype index = 0; index < entries.size(); ++index) {
        QString printerError;
        std::optional<ScenarioPrinter> printer = printerFromJson(entries.at(index), printerError);
        if (!printer) {
            error = QStringLiteral("printer %1 %2").arg(index + 1).arg(printerError);
            return std::nullopt;
        }
        printers.append(std::move(*printer));
    }
    return Scenario(std::move(printers));
}

void Scenario::write(QTextStream& out, qint64 count,
                     const std::function<ScenarioPrinter(qint64 index)>& printerAt)
{
    out << "{\n  \"printers\": [\n";
    for (qint64 index = 0; index < count; ++index) {
        const ScenarioPrinter printer = printerAt(index);
        QJsonObject entry{{QStringLiteral("name"), printer.name},
                          {QStringLiteral("kind"), printer.kind},
                          {QStringLiteral("listen"), printer.listen}};
        if (!printer.knobs.isEmpty())
            entry.insert(QStringLiteral("knobs"), printer.knobs);
        out << "    " << QJsonDocument(entry).toJson(QJsonDocument::Compact)
            << (index + 1 < count ? ",\n" : "\n");
    }
    out << "  ]\n}\n";
    out.flush();
}
