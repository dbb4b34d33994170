#include "platform/lbx/LabelFileReader.h"

#include "services/TextUtilities.h"
#include "services/VigilError.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace {
const QString Source = QStringLiteral("LabelFileReader");
// Editors on Windows begin UTF-8 files with it.
const QByteArray ByteOrderMark = QByteArrayLiteral("\xEF\xBB\xBF");
} // namespace

bool IniSection::is(const QString& other) const
{
    return title.compare(other, Qt::CaseInsensitive) == 0;
}

LabelFileReader::LabelFileReader(const QString& path)
    : m_path(path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw VigilError(VigilError::FileNotFound, Source,
                         QStringLiteral("%1: %2").arg(path, file.errorString()));
    QByteArray text = file.readAll();
    if (text.startsWith(ByteOrderMark))
        text.remove(0, ByteOrderMark.size());
    m_lines = text.split('\n');
    if (m_lines.size() > 1 && m_lines.last().isEmpty())
        m_lines.removeLast();
    for (QByteArray& line : m_lines) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
}

QList<IniSection> LabelFileReader::readSections(const QString& stopAt)
{
    QList<IniSection> sections;
    QSet<QString> titles;
    for (; m_next < m_lines.size(); ++m_next) {
        const qint32 number = qint32(m_next) + 1;
        const QString line = QString::fromUtf8(m_lines.at(m_next)).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')))
            continue;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            const QString title = line.mid(1, line.size() - 2).trimmed();
            if (!stopAt.isEmpty() && title.compare(stopAt, Qt::CaseInsensitive) == 0) {
                ++m_next;
                m_stopped = true;
                return sections;
            }
            if (titles.contains(title.toLower()))
                fail(number, QStringLiteral("[%1] is given twice").arg(title));
            titles.insert(title.toLower());
            sections.append({title, number, {}});
            continue;
        }
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (equals < 0)
            fail(number,
                 QStringLiteral("\"%1\" is neither a [Section] nor a Name=Value line").arg(line));
        if (sections.isEmpty())
            fail(number, QStringLiteral("\"%1\" comes before any [Section]").arg(line));
        const QString name = line.left(equals).trimmed();
        if (name.isEmpty())
            fail(number, QStringLiteral("\"%1\" has no name before the '='").arg(line));
        IniSection& section = sections.last();
        for (const IniSetting& earlier : section.settings) {
            if (earlier.name.compare(name, Qt::CaseInsensitive) == 0)
                fail(number,
                     QStringLiteral("\"%1\" is given twice in [%2]").arg(name, section.title));
        }
        // The value is the rest of the line as it stands, blanks at its end included.
        const QString raw = QString::fromUtf8(m_lines.at(m_next));
        section.settings.append({name, raw.mid(raw.indexOf(QLatin1Char('=')) + 1), number});
    }
    return sections;
}

qint32 LabelFileReader::lastLine() const
{
    return qMax<qint32>(1, qint32(m_lines.size()));
}

QString LabelFileReader::folder() const
{
    return QFileInfo(m_path).absolutePath();
}

void LabelFileReader::fail(qint32 line, const QString& what) const
{
    throw VigilError(
        VigilError::BadFileFormat, Source,
        QStringLiteral("%1, line %2: %3").arg(GetFileName(m_path), QString::number(line), what));
}
