#include "platform/qt/ControlHelpers.h"

#include "core/IconFiles.h"
#include "core/ImageList.h"
#include "services/VigilError.h"

#include <QComboBox>

namespace {
const char* const TagProperty = "tag";
}

bool IsTagSet(const QWidget& control)
{
    return control.property(TagProperty).toString() == QLatin1String("1");
}

void SetTag(QWidget& control, bool flag)
{
    control.setProperty(TagProperty, flag ? QStringLiteral("1") : QStringLiteral("0"));
}

void AddComboItem(QComboBox& combo, const QString& text, qint32 data)
{
    combo.addItem(text);
    // The data goes with the first entry of that text, as it always has.
    combo.setItemData(combo.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive), data);
}

void SelectComboByData(QComboBox& combo, qint32 data)
{
    const int index = combo.findData(data);
    if (index >= 0)
        combo.setCurrentIndex(index);
}

qint32 GetComboData(const QComboBox& combo)
{
    if (combo.currentIndex() < 0)
        throw VigilError(
            VigilError::InvalidProcedureCall, QStringLiteral("GetComboData"),
            QStringLiteral("No entry of the list %1 is selected").arg(combo.objectName()));
    return combo.currentData().toInt();
}

qint32 GetImageIndex(const ImageList& owner, const QString& key)
{
    return owner.indexOfKey(key);
}

qint32 LoadIconImage(ImageList& owner, const QString& name, qint32 size)
{
    const QString key = name + QLatin1Char('_') + QString::number(size);
    const qint32 existing = GetImageIndex(owner, key);
    return existing ? existing : owner.add(key, IconFile(name), size);
}
