#include "services/RegFile.h"

#include <QRegularExpression>
#include <QStringList>
#include <QtEndian>

namespace {
const QString Header = QStringLiteral("Windows Registry Editor Version 5.00");

QString quoted(const QString& text)
{
    QString escaped;
    escaped.reserve(text.size() + 2);
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '\\':
            escaped += QStringLiteral("\\\\");
            break;
        case '"':
            escaped += QStringLiteral("\\\"");
            break;
        case '\r':
            escaped += QStringLiteral("\\r");
            break;
        case '\n':
            escaped += QStringLiteral("\\n");
            break;
        default:
            escaped += c;
        }
    }
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

// The text of a text value, when writing it as a quoted text reads back the same bytes.
std::optional<QString> exactText(const QByteArray& data)
{
    if (!data.endsWith('\0'))
        return std::nullopt;
    const QByteArray bytes = data.chopped(1);
    const QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() != bytes)
        return std::nullopt;
    return text;
}

QString valueLine(const SettingsStore::Value& value)
{
    const QString name = value.name.isEmpty() ? QStringLiteral("@") : quoted(value.name);
    if (value.type == SettingsStore::TextType) {
        if (const std::optional<QString> text = exactText(value.data))
            return name + QLatin1Char('=') + quoted(*text);
    }
    if (value.type == SettingsStore::DWordType && value.data.size() == 4) {
        return name + QStringLiteral("=dword:") +
               QStringLiteral("%1").arg(qFromLittleEndian<quint32>(value.data.constData()), 8, 16,
                                        QLatin1Char('0'));
    }
    QStringList bytes;
    for (const char byte : value.data)
        bytes.append(QStringLiteral("%1").arg(quint8(byte), 2, 16, QLatin1Char('0')));
    return name + QStringLiteral("=hex(%1):").arg(value.type, 0, 16) + bytes.join(QLatin1Char(','));
}

// Reads a quoted text from `at`, which points at the opening quote; `at` ends behind the
// closing quote. Nothing when the quote isn't closed.
std::optional<QString> unquote(const QString& line, qsizetype& at)
{
    QString text;
    for (qsizetype i = at + 1; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (c == QLatin1Char('"')) {
            at = i + 1;
            return text;
        }
        if (c == QLatin1Char('\\') && i + 1 < line.size()) {
            const QChar next = line.at(++i);
            text += next == QLatin1Char('n')   ? QChar(QLatin1Char('\n'))
                    : next == QLatin1Char('r') ? QChar(QLatin1Char('\r'))
                                               : next;
            continue;
        }
        text += c;
    }
    return std::nullopt;
}

class Importer
{
public:
    explicit Importer(SettingsStore& store)
        : m_store(store)
    {}
    ~Importer() { closeCurrent(); }

    // Each returns an empty text when the line went in, else what is wrong with it.
    QString keyLine(const QString& line, RegFile::ImportResult& result)
    {
        closeCurrent();
        const bool remove = line.startsWith(QLatin1String("[-"));
        // Not trimmed at its end: a key's name may end in blanks.
        const QString keyText = line.mid(remove ? 2 : 1, line.size() - (remove ? 3 : 2));
        const auto key = RegFile::parseKeyPath(keyText);
        if (!key)
            return QStringLiteral("\"%1\" does not begin with HKLM or HKCU").arg(keyText);
        if (remove) {
            const qint32 status = m_store.deleteKeyTree(key->hive, key->path);
            if (status != SettingsStore::Success && status != SettingsStore::FileNotFound)
                return QStringLiteral("key %1 cannot be deleted: %2")
                    .arg(SettingsStore::visibleName(keyText), m_store.lastFailure());
            return {};
        }
        if (m_store.createKey(key->hive, key->path, m_current) != SettingsStore::Success)
            return QStringLiteral("key %1 cannot be created: %2")
                .arg(SettingsStore::visibleName(keyText), m_store.lastFailure());
        ++result.keys;
        return {};
    }

    QString valueLine(const QString& line, RegFile::ImportResult& result)
    {
        if (m_current == 0)
            return QStringLiteral("a value before any [key] line");
        QString name;
        qsizetype at = 0;
        if (line.startsWith(QLatin1Char('@'))) {
            at = 1;
        } else {
            const auto unquoted = unquote(line, at);
            if (!unquoted)
                return QStringLiteral("the value name has no closing quote");
            name = *unquoted;
        }
        while (at < line.size() && line.at(at).isSpace())
            ++at;
        if (at >= line.size() || line.at(at) != QLatin1Char('='))
            return QStringLiteral("\"=\" is missing after the value name");
        const QString data = line.mid(at + 1).trimmed();

        if (data == QLatin1String("-")) {
            const qint32 status = m_store.deleteValue(m_current, name);
            if (status != SettingsStore::Success && status != SettingsStore::FileNotFound)
                return QStringLiteral("value \"%1\" cannot be deleted: %2")
                    .arg(SettingsStore::visibleName(name), m_store.lastFailure());
            return {};
        }
        quint32 type = 0;
        QByteArray bytes;
        if (const QString error = parseData(data, type, bytes); !error.isEmpty())
            return error;
        if (m_store.setValue(m_current, name, type, bytes) != SettingsStore::Success)
            return QStringLiteral("value \"%1\" cannot be written: %2")
                .arg(SettingsStore::visibleName(name), m_store.lastFailure());
        ++result.values;
        return {};
    }

private:
    static QString parseData(const QString& data, quint32& type, QByteArray& bytes)
    {
        if (data.startsWith(QLatin1Char('"'))) {
            qsizetype at = 0;
            const auto text = unquote(data, at);
            if (!text || at != data.size())
                return QStringLiteral("the text value is not one quoted text");
            type = SettingsStore::TextType;
            bytes = text->toUtf8();
            bytes.append('\0');
            return {};
        }
        static const QRegularExpression dword(QStringLiteral("^dword:([0-9a-fA-F]{1,8})$"));
        if (const auto match = dword.match(data); match.hasMatch()) {
            type = SettingsStore::DWordType;
            bytes.resize(4);
            qToLittleEndian(match.captured(1).toUInt(nullptr, 16), bytes.data());
            return {};
        }
        static const QRegularExpression hex(QStringLiteral(
            "^hex(?:\\(([0-9a-fA-F]{1,8})\\))?:((?:[0-9a-fA-F]{2})(?:,[0-9a-fA-F]{2})*)?$"));
        if (const auto match = hex.match(data); match.hasMatch()) {
            type = match.captured(1).isEmpty() ? 3 : match.captured(1).toUInt(nullptr, 16);
            for (const QString& byte :
                 match.captured(2).split(QLatin1Char(','), Qt::SkipEmptyParts))
                bytes.append(char(byte.toUInt(nullptr, 16)));
            return {};
        }
        return QStringLiteral("\"%1\" is not a text, dword: or hex: value").arg(data);
    }

    void closeCurrent()
    {
        if (m_current != 0)
            m_store.closeKey(m_current);
        m_current = 0;
    }

    SettingsStore& m_store;
    SettingsStore::Handle m_current = 0;
};
} // namespace

std::optional<RegFile::KeyPath> RegFile::parseKeyPath(const QString& text)
{
    const qsizetype slash = text.indexOf(QLatin1Char('\\'));
    const QString hive = (slash < 0 ? text : text.left(slash)).toUpper();
    const QString path = slash < 0 ? QString() : text.mid(slash + 1);
    if (hive == QLatin1String("HKLM") || hive == QLatin1String("HKEY_LOCAL_MACHINE"))
        return KeyPath{SettingsStore::MachineHive, path};
    if (hive == QLatin1String("HKCU") || hive == QLatin1String("HKEY_CURRENT_USER"))
        return KeyPath{SettingsStore::UserHive, path};
    return std::nullopt;
}

QString RegFile::hiveName(SettingsStore::Handle hive)
{
    return hive == SettingsStore::UserHive ? QStringLiteral("HKCU") : QStringLiteral("HKLM");
}

RegFile::RegFile(SettingsStore& store)
    : m_store(store)
{}

qint32 RegFile::exportKey(const KeyPath& key, QString& text)
{
    text = Header + QLatin1Char('\n');
    m_leftOut.clear();
    SettingsStore::Handle handle = 0;
    const qint32 status = m_store.openKey(key.hive, key.path, handle);
    if (status != SettingsStore::Success)
        return status;
    const QStringList parts = key.path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    const QString display = (QStringList{hiveName(key.hive)} + parts).join(QLatin1Char('\\'));
    if (!SettingsStore::nameProblem(key.path).isEmpty()) {
        m_store.closeKey(handle);
        m_leftOut.append(SettingsStore::visibleName(display));
        return SettingsStore::Success;
    }
    const qint32 result = exportTree(handle, display, parts.isEmpty(), text);
    m_store.closeKey(handle);
    return result;
}

qint32 RegFile::exportAll(QString& text)
{
    text = Header + QLatin1Char('\n');
    m_leftOut.clear();
    for (const SettingsStore::Handle hive : {SettingsStore::MachineHive, SettingsStore::UserHive}) {
        const qint32 status = exportTree(hive, hiveName(hive), true, text);
        if (status != SettingsStore::Success)
            return status;
    }
    return SettingsStore::Success;
}

qint32 RegFile::exportTree(SettingsStore::Handle key, const QString& displayPath, bool isHive,
                           QString& text)
{
    QList<SettingsStore::Value> values;
    qint32 status = m_store.listValues(key, values);
    if (status != SettingsStore::Success)
        return status;
    // A key is shown by its path, a value by its key's path and its quoted name.
    const auto leaveOut = [this, &displayPath](const QString& name, const QString& shownAs) {
        if (SettingsStore::nameProblem(name).isEmpty())
            return false;
        m_leftOut.append(displayPath + shownAs.arg(SettingsStore::visibleName(name)));
        return true;
    };
    if (!isHive || !values.isEmpty()) {
        text += QStringLiteral("\n[") + displayPath + QStringLiteral("]\n");
        for (const SettingsStore::Value& value : std::as_const(values))
            if (!leaveOut(value.name, QStringLiteral(" \"%1\"")))
                text += valueLine(value) + QLatin1Char('\n');
    }
    QStringList subKeys;
    QString name;
    for (quint32 index = 0; m_store.enumKey(key, index, name) == SettingsStore::Success; ++index)
        if (!leaveOut(name, QStringLiteral("\\%1")))
            subKeys.append(name);
    for (const QString& subKey : std::as_const(subKeys)) {
        SettingsStore::Handle child = 0;
        // A subkey that went meanwhile is simply not exported.
        if (m_store.openKey(key, subKey, child) != SettingsStore::Success)
            continue;
        status = exportTree(child, displayPath + QLatin1Char('\\') + subKey, false, text);
        m_store.closeKey(child);
        if (status != SettingsStore::Success)
            return status;
    }
    return SettingsStore::Success;
}

RegFile::ImportResult RegFile::importText(const QString& text)
{
    ImportResult result;
    SettingsStore::Transaction transaction(m_store);
    if (!transaction.isActive()) {
        result.error =
            m_store.isAvailable() ? QStringLiteral("the store is busy") : m_store.problem();
        return result;
    }
    Importer importer(m_store);
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QString line = lines.at(i).trimmed();
        const qsizetype firstLine = i;
        // A hex list may go on over several lines, each but the last ending in "\".
        while (line.endsWith(QLatin1Char('\\')) && !line.startsWith(QLatin1Char('[')) &&
               i + 1 < lines.size()) {
            line.chop(1);
            line += lines.at(++i).trimmed();
        }
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')) || line == Header ||
            line == QLatin1String("REGEDIT4"))
            continue;
        QString error;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']')))
            error = importer.keyLine(line, result);
        else if (line.startsWith(QLatin1Char('"')) || line.startsWith(QLatin1Char('@')))
            error = importer.valueLine(line, result);
        else
            error = QStringLiteral("neither a [key] nor a \"name\"=value line");
        if (!error.isEmpty()) {
            result.error = QStringLiteral("line %1: %2").arg(firstLine + 1).arg(error);
            return result;
        }
    }
    result.ok = transaction.commit();
    if (!result.ok)
        result.error = QStringLiteral("the changes cannot be saved");
    return result;
}
