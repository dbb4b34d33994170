#include "drivers/clsAveryErrorCodes.h"

#include "services/ApplicationOptions.h"
#include "services/Conversions.h"
#include "services/ErrorBox.h"
#include "services/VigilError.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextStream>
#include <limits>
#include <memory>

namespace {
const QString Source = QStringLiteral("clsAveryErrorCodes");
constexpr qint32 FileNotFound = 53;

std::unique_ptr<clsAveryErrorCodes>& processTable()
{
    static std::unique_ptr<clsAveryErrorCodes> table;
    return table;
}

// The number the text starts with, so "2 (stops)" is 2 and a text without one is 0.
qint16 leadingLevel(const QString& text)
{
    static const QRegularExpression number(
        QStringLiteral("^\\s*[+-]?(?:\\d+\\.?\\d*|\\.\\d+)(?:[eE][+-]?\\d+)?"));
    const QString found = number.match(text).captured();
    const qint32 level = found.isEmpty() ? 0 : ToLong(found);
    if (level < std::numeric_limits<qint16>::min() || level > std::numeric_limits<qint16>::max())
        throw VigilError(VigilError::Overflow, Source, QStringLiteral("Overflow"));
    return static_cast<qint16>(level);
}
} // namespace

clsAveryErrorCodes& clsAveryErrorCodes::process()
{
    auto& table = processTable();
    if (!table) {
        table = std::make_unique<clsAveryErrorCodes>();
        table->load(GetMessageFolder(), QStringLiteral("AveryErrors.txt"));
    }
    return *table;
}

void clsAveryErrorCodes::reset()
{
    processTable().reset();
}

void clsAveryErrorCodes::load(const QString& folder, const QString& fileName)
{
    const QString path = folder + fileName;
    try {
        readFile(path);
    } catch (const VigilError& error) {
        ShowError(error.description() + QStringLiteral("\r\n") + path,
                  QStringLiteral("LoadMessageFile"));
    }
}

qint16 clsAveryErrorCodes::GetErrorLevel(const QString& code) const
{
    return m_codes.value(code).m_nErrorLevel;
}

QString clsAveryErrorCodes::GetErrorDescription(const QString& code) const
{
    return m_codes.value(code).m_sDescription;
}

void clsAveryErrorCodes::readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw VigilError(FileNotFound, Source, file.errorString());
    QTextStream lines(&file);
    while (!lines.atEnd())
        add(lines.readLine());
}

void clsAveryErrorCodes::add(const QString& line)
{
    const qsizetype first = line.indexOf(QLatin1Char(','));
    const qsizetype second = first < 0 ? -1 : line.indexOf(QLatin1Char(','), first + 1);
    if (second < 0)
        return;
    const QString code = line.left(first);
    if (m_codes.contains(code))
        throw VigilError(VigilError::KeyAlreadyExists, Source,
                         QStringLiteral("This key is already associated with an element of "
                                        "this collection"));
    m_codes.insert(
        code, {code, leadingLevel(line.mid(first + 1, second - first - 1)), line.mid(second + 1)});
}
