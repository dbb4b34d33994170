#include "core/StoredNode.h"

#include "services/Conversions.h"
#include "services/SettingsAccess.h"
#include "services/VigilError.h"

StoredNode::StoredNode(QString keyName)
    : m_sKeyName(std::move(keyName))
{}

void StoredNode::removeWholeKey() const
{
    const qsizetype split = m_sKeyName.lastIndexOf(QLatin1Char('\\'));
    DeleteKeyTree(HKEY_LOCAL_MACHINE, split < 0 ? QString() : m_sKeyName.left(split),
                  m_sKeyName.mid(split + 1));
}

void StoredNode::writeText(const QString& name, const QString& text) const
{
    QVariant value = text;
    TransferValue(TransferWrite, false, m_sKeyName, name, REG_SZ, QString(), value, false);
}

void StoredNode::writeNumber(const QString& name, qint32 number) const
{
    QVariant value = number;
    TransferValue(TransferWrite, false, m_sKeyName, name, REG_DWORD, 0, value, false);
}

bool StoredNode::has(const QString& name) const
{
    QVariant value;
    return ApiRegQueryValueExNull(HKEY_LOCAL_MACHINE,
                                  DefaultRootKey + QLatin1Char('\\') + m_sKeyName, name,
                                  value) == 0;
}

QString StoredNode::readText(const QString& name, const QString& defaultText) const
{
    QVariant value = defaultText;
    TransferValue(TransferRead, false, m_sKeyName, name, REG_SZ, defaultText, value, true);
    return TextOf(value);
}

qint32 StoredNode::readNumber(const QString& name, qint32 defaultNumber) const
{
    QVariant value = defaultNumber;
    TransferValue(TransferRead, false, m_sKeyName, name, REG_DWORD, defaultNumber, value, true);
    try {
        return ToLong(value);
    } catch (const VigilError&) {
        return defaultNumber;
    }
}
