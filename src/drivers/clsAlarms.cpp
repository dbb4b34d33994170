#include "drivers/clsAlarms.h"

#include "services/ApplicationOptions.h"
#include "services/Conversions.h"
#include "services/MessageCatalogue.h"
#include "services/VigilError.h"

#include <QFile>
#include <QTextStream>

namespace {
const QString Source = QStringLiteral("clsAlarmCollection");
constexpr qint32 FileNotFound = 53;
constexpr qint32 AlarmLookupKind = 1;
constexpr qint32 UnknownLookup = static_cast<qint32>(0x80040202u);

std::unique_ptr<clsAlarmCollection>& processCatalogue()
{
    static std::unique_ptr<clsAlarmCollection> catalogue;
    return catalogue;
}
} // namespace

std::shared_ptr<clsAlarms> clsAlarmCollection::Add(const QString& text, const QString& id,
                                                   qint32 level, const QString& key)
{
    if (!key.isEmpty() && m_byKey.contains(key))
        throw VigilError(VigilError::KeyAlreadyExists, Source,
                         QStringLiteral("This key is already associated with an element of "
                                        "this collection"));
    auto alarm = std::make_shared<clsAlarms>(clsAlarms{id, text, level});
    if (!key.isEmpty())
        m_byKey.insert(key, alarm);
    m_alarms.append(alarm);
    return alarm;
}

std::shared_ptr<clsAlarms> clsAlarmCollection::Item(const QString& key) const
{
    const auto found = m_byKey.constFind(key);
    if (found == m_byKey.cend())
        throw VigilError(VigilError::InvalidProcedureCall, Source,
                         QStringLiteral("Invalid procedure call or argument"));
    return *found;
}

qint32 clsAlarmCollection::Count() const
{
    return static_cast<qint32>(m_alarms.size());
}

void clsAlarmCollection::Remove(const QString& key)
{
    m_alarms.removeOne(Item(key));
    m_byKey.remove(key);
}

QList<std::shared_ptr<clsAlarms>> clsAlarmCollection::NewEnum() const
{
    return m_alarms;
}

void clsAlarmCollection::LoadFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw VigilError(FileNotFound, Source, file.errorString() + QLatin1Char(' ') + path);
    QTextStream lines(&file);
    while (!lines.atEnd()) {
        const QString line = lines.readLine();
        const QStringList fields = line.split(QLatin1Char('\t'));
        if (line.trimmed().isEmpty() || fields.size() < 3)
            continue;
        // The number goes through a conversion, so " 07" in the file is the key "7".
        const QString id = QString::number(ToLong(fields.at(0)));
        Add(fields.at(2), id, ToLong(fields.at(1)), id);
    }
}

clsAlarmCollection& GetAlarmLookup(qint32 kind)
{
    if (kind != AlarmLookupKind)
        throw VigilError(
            UnknownLookup, QStringLiteral("KorvexVigil.GetAlarmLookup"),
            GetMessage(MessageCatalogue::NoMessage, QStringLiteral("unknown alarm lookup")));
    auto& catalogue = processCatalogue();
    if (!catalogue) {
        // Made before it is read: a file that fails isn't read again, and the alarms ahead of
        // a bad line stay known.
        catalogue = std::make_unique<clsAlarmCollection>();
        catalogue->LoadFile(GetMessageFolder() + QStringLiteral("ASeriesAlerts.txt"));
    }
    return *catalogue;
}

void ResetAlarmLookup()
{
    processCatalogue().reset();
}
