#include "platform/lbx/LabelFormat.h"

#include "platform/lbx/LabelFileReader.h"
#include "services/VigilError.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace {
const QString FormatSection = QStringLiteral("Format");
const QString DataSection = QStringLiteral("Data");
const QString PromptKind = QStringLiteral("Prompt");
const QString KeyKind = QStringLiteral("DatabaseKey");
const QString LabelSetSection = QStringLiteral("LabelSet");
const QString ElementsSection = QStringLiteral("Elements");
const QString Description = QStringLiteral("Description");
// The printer types a queue can have.
constexpr qint64 LowestPrinterType = 1;
constexpr qint64 HighestPrinterType = 32767;

qint32 readNumber(const IniSetting& setting, const LabelFileReader& file, qint64 lowest,
                  qint64 highest)
{
    bool ok = false;
    const qint64 number = setting.value.trimmed().toLongLong(&ok);
    if (!ok || number < lowest || number > highest)
        file.fail(setting.line, QStringLiteral("%1 must be a number from %2 to %3, not \"%4\"")
                                    .arg(setting.name, QString::number(lowest),
                                         QString::number(highest), setting.value));
    return qint32(number);
}

bool readFlag(const IniSetting& setting, const LabelFileReader& file)
{
    return readNumber(setting, file, 0, 1) == 1;
}

[[noreturn]] void unknownKey(const IniSetting& setting, const IniSection& section,
                             const LabelFileReader& file)
{
    file.fail(setting.line,
              QStringLiteral("unknown key \"%1\" in [%2]").arg(setting.name, section.title));
}

// A key of a section and what it sets.
template <typename Target> struct Field
{
    const char* name;
    void (*apply)(Target&, const IniSetting&, const LabelFileReader&);
};

template <typename Target, size_t Count>
void applySettings(Target& target, const IniSection& section,
                   const std::array<Field<Target>, Count>& fields, const LabelFileReader& file)
{
    for (const IniSetting& setting : section.settings) {
        const auto field = std::find_if(fields.begin(), fields.end(), [&](const Field<Target>& f) {
            return setting.name.compare(QLatin1String(f.name), Qt::CaseInsensitive) == 0;
        });
        if (field == fields.end())
            unknownKey(setting, section, file);
        field->apply(target, setting, file);
    }
}

const std::array<Field<PromptedValue>, 11> PromptFields = {{
    {"Prompt",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader&) {
         p.Prompt = s.value;
     }},
    {"Value",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader&) {
         p.Value = s.value;
     }},
    {"MaxLength",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader& f) {
         p.MaxLength = readNumber(s, f, 0, std::numeric_limits<qint32>::max());
         p.NoMaxLength = false;
     }},
    {"Mask",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader&) {
         p.Mask = s.value;
     }},
    {"MaskAllowSpaces",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader& f) {
         p.MaskAllowSpaces = readFlag(s, f);
     }},
    {"MaskForceAllChars",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader& f) {
         p.MaskForceAllChars = readFlag(s, f);
     }},
    {"MaskForcedEntry",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader& f) {
         p.MaskForcedEntry = readFlag(s, f);
     }},
    {"MaskForcedUpper",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader& f) {
         p.MaskForcedUpper = readFlag(s, f);
     }},
    {"MaskForcedLower",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader& f) {
         p.MaskForcedLower = readFlag(s, f);
     }},
    {"Type",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader& f) {
         p.Type = qint16(readNumber(s, f, std::numeric_limits<qint16>::min(),
                                    std::numeric_limits<qint16>::max()));
     }},
    {"UsageFlags",
     [](PromptedValue& p, const IniSetting& s, const LabelFileReader& f) {
         p.UsageFlags = readNumber(s, f, std::numeric_limits<qint32>::min(),
                                   std::numeric_limits<qint32>::max());
     }},
}};

const std::array<Field<DatabaseKey>, 4> KeyFields = {{
    {"Prompt",
     [](DatabaseKey& k, const IniSetting& s, const LabelFileReader&) {
         k.Prompt = s.value;
     }},
    {"Value",
     [](DatabaseKey& k, const IniSetting& s, const LabelFileReader&) {
         k.Value = s.value;
     }},
    {"KeyField",
     [](DatabaseKey& k, const IniSetting& s, const LabelFileReader&) {
         k.KeyField = s.value.trimmed();
     }},
    {"DataSource",
     [](DatabaseKey& k, const IniSetting& s, const LabelFileReader&) {
         k.DataSource = s.value.trimmed();
     }},
}};

// An SQLite file is named relative to the format, so that whoever opens it needn't know
// where the format lay; a Qt SQL driver's connection text stays as it is.
QString resolveDataSource(const QString& dataSource, const QString& folder)
{
    static const QRegularExpression SqlDriver(QStringLiteral("^Q[A-Z0-9_]+:"));
    if (SqlDriver.match(dataSource).hasMatch() || !QDir::isRelativePath(dataSource))
        return dataSource;
    return QDir::cleanPath(QDir(folder).filePath(dataSource));
}

// "Prompt Lot" -> "Lot" when the title is of that kind, else empty.
QString nameOfKind(const IniSection& section, const QString& kind)
{
    const qsizetype space = section.title.indexOf(QLatin1Char(' '));
    if (space < 0 || section.title.left(space).compare(kind, Qt::CaseInsensitive) != 0)
        return {};
    return section.title.mid(space + 1).trimmed();
}

bool isKind(const IniSection& section, const QString& kind)
{
    return section.is(kind) || !nameOfKind(section, kind).isEmpty();
}

// Each prompt's or key's name once in a format: {Name} must mean one of them.
void claimName(QSet<QString>& names, const QString& name, const IniSection& section,
               const LabelFileReader& file)
{
    if (name.isEmpty())
        file.fail(section.line, QStringLiteral("[%1] needs a name: [%1 NAME]").arg(section.title));
    if (names.contains(name.toLower()))
        file.fail(section.line, QStringLiteral("the name \"%1\" is given twice").arg(name));
    names.insert(name.toLower());
}

// The entries whose names `names` hasn't seen yet, so the first format to have a name gives
// its settings.
template <typename Entry>
void appendUnseen(QList<Entry>& to, const QList<Entry>& from, QSet<QString>& names)
{
    for (const Entry& entry : from) {
        if (!names.contains(entry.VarName.toLower())) {
            names.insert(entry.VarName.toLower());
            to.append(entry);
        }
    }
}

bool hexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
} // namespace

LabelFormat LabelFormat::read(const QString& path)
{
    LabelFileReader file(path);
    const QList<IniSection> sections = file.readSections(DataSection);
    if (sections.isEmpty() || !sections.first().is(FormatSection)) {
        const qint32 dataLine = file.stopped() ? file.firstRawLine() - 1 : file.lastLine();
        file.fail(sections.isEmpty() ? dataLine : sections.first().line,
                  QStringLiteral("the file must begin with [Format]"));
    }

    LabelFormat format;
    format.m_path = path;
    const IniSection& header = sections.first();
    bool typeGiven = false;
    for (const IniSetting& setting : header.settings) {
        if (setting.name.compare(QStringLiteral("PrinterType"), Qt::CaseInsensitive) == 0) {
            format.m_printerType = readNumber(setting, file, LowestPrinterType, HighestPrinterType);
            typeGiven = true;
        } else if (setting.name.compare(Description, Qt::CaseInsensitive) == 0) {
            format.m_description = setting.value;
        } else {
            unknownKey(setting, header, file);
        }
    }
    if (!typeGiven)
        file.fail(header.line, QStringLiteral("[Format] has no PrinterType"));

    QSet<QString> names;
    for (const IniSection& section : sections.mid(1)) {
        if (isKind(section, PromptKind)) {
            PromptedValue prompt;
            prompt.VarName = nameOfKind(section, PromptKind);
            claimName(names, prompt.VarName, section, file);
            applySettings(prompt, section, PromptFields, file);
            format.m_prompts.append(prompt);
        } else if (isKind(section, KeyKind)) {
            DatabaseKey key;
            key.VarName = nameOfKind(section, KeyKind);
            claimName(names, key.VarName, section, file);
            applySettings(key, section, KeyFields, file);
            if (key.DataSource.isEmpty() || key.KeyField.isEmpty())
                file.fail(
                    section.line,
                    QStringLiteral("[%1] needs a DataSource and a KeyField").arg(section.title));
            key.DataSource = resolveDataSource(key.DataSource, file.folder());
            format.m_keys.append(key);
        } else {
            file.fail(section.line, QStringLiteral("unknown section [%1]").arg(section.title));
        }
    }
    if (!file.stopped())
        file.fail(file.lastLine(), QStringLiteral("the file has no [Data]"));
    format.readData(file);
    return format;
}

void LabelFormat::readData(const LabelFileReader& file)
{
    QSet<QString> names;
    for (const PromptedValue& prompt : m_prompts)
        names.insert(prompt.VarName.toLower());
    for (const DatabaseKey& key : m_keys)
        names.insert(key.VarName.toLower());

    QByteArray bytes;
    qint32 number = file.firstRawLine();
    for (const QByteArray& line : file.rawLines()) {
        for (qsizetype at = 0; at < line.size(); ++at) {
            const char c = line.at(at);
            if (c == '{') {
                const qsizetype close = line.indexOf('}', at + 1);
                if (close < 0)
                    file.fail(number, QStringLiteral("a '{' without its '}'"));
                const QString name = QString::fromUtf8(line.mid(at + 1, close - at - 1)).trimmed();
                if (!names.contains(name.toLower()))
                    file.fail(number,
                              QStringLiteral("{%1} is no prompt or key of this format").arg(name));
                if (!bytes.isEmpty())
                    m_data.append({std::exchange(bytes, {}), {}});
                m_data.append({{}, name.toLower()});
                at = close;
                continue;
            }
            if (c != '\\') {
                bytes.append(c);
                continue;
            }
            if (at + 1 == line.size())
                file.fail(number, QStringLiteral("a '\\' ends the line; write \\\\ for one"));
            switch (line.at(++at)) {
            case 'r':
                bytes.append('\r');
                break;
            case 'n':
                bytes.append('\n');
                break;
            case 't':
                bytes.append('\t');
                break;
            case '\\':
                bytes.append('\\');
                break;
            case '{':
                bytes.append('{');
                break;
            case 'x':
                if (at + 2 >= line.size() || !hexDigit(line.at(at + 1)) ||
                    !hexDigit(line.at(at + 2)))
                    file.fail(number, QStringLiteral("\\x needs two hex digits"));
                bytes.append(char(line.mid(at + 1, 2).toInt(nullptr, 16)));
                at += 2;
                break;
            default:
                file.fail(number, QStringLiteral("unknown escape \\%1; write \\\\ for a '\\'")
                                      .arg(QString::fromUtf8(line.mid(at, 1))));
            }
        }
        ++number;
    }
    if (!bytes.isEmpty())
        m_data.append({bytes, {}});
}

QString LabelFormat::ownValue(const QString& name) const
{
    for (const PromptedValue& prompt : m_prompts) {
        if (prompt.VarName.toLower() == name)
            return prompt.Value;
    }
    for (const DatabaseKey& key : m_keys) {
        if (key.VarName.toLower() == name)
            return key.Value;
    }
    return {};
}

QByteArray LabelFormat::render(const QHash<QString, QString>& values) const
{
    QByteArray out;
    for (const Piece& piece : m_data) {
        if (piece.name.isEmpty())
            out += piece.bytes;
        else
            out += values.value(piece.name, ownValue(piece.name)).toUtf8();
    }
    return out;
}

LabelSetFile LabelSetFile::read(const QString& path)
{
    LabelFileReader file(path);
    const QList<IniSection> sections = file.readSections();
    if (sections.isEmpty() || !sections.first().is(LabelSetSection))
        file.fail(sections.isEmpty() ? file.lastLine() : sections.first().line,
                  QStringLiteral("the file must begin with [LabelSet]"));

    LabelSetFile set;
    set.m_path = path;
    for (const IniSetting& setting : sections.first().settings) {
        if (setting.name.compare(Description, Qt::CaseInsensitive) != 0)
            unknownKey(setting, sections.first(), file);
        set.m_description = setting.value;
    }
    const IniSection* elements = nullptr;
    for (qsizetype index = 1; index < sections.size(); ++index) {
        const IniSection& section = sections[index];
        if (!section.is(ElementsSection))
            file.fail(section.line, QStringLiteral("unknown section [%1]").arg(section.title));
        elements = &section;
    }
    if (!elements)
        file.fail(file.lastLine(), QStringLiteral("the file has no [Elements]"));
    if (elements->settings.isEmpty())
        file.fail(elements->line, QStringLiteral("[Elements] lists no format"));

    const QDir folder = QFileInfo(path).dir();
    QSet<QString> names;
    for (const IniSetting& setting : elements->settings) {
        const QString formatName = setting.value.trimmed();
        if (formatName.isEmpty())
            file.fail(setting.line, QStringLiteral("no format for \"%1\"").arg(setting.name));
        try {
            set.m_elements.append(
                {setting.name, LabelFormat::read(QDir::cleanPath(folder.filePath(formatName)))});
        } catch (const VigilError& error) {
            file.fail(setting.line,
                      QStringLiteral("element \"%1\": %2").arg(setting.name, error.description()));
        }
        const LabelFormat& format = set.m_elements.last().format;
        appendUnseen(set.m_prompts, format.prompts(), names);
        appendUnseen(set.m_keys, format.keys(), names);
    }
    return set;
}
