#include "core/ImageList.h"

#include <QFileInfo>

ImageList::ImageList(qint32 size)
    : m_lSize(size)
{}

qint32 ImageList::indexOfKey(const QString& key) const
{
    if (key.isEmpty())
        return 0;
    for (qsizetype i = 0; i < m_pictures.size(); ++i)
        if (m_pictures.at(i).key == key)
            return qint32(i + 1);
    return 0;
}

qint32 ImageList::add(const QString& key, const QString& path, qint32 size)
{
    const QFileInfo file(path);
    if (path.isEmpty() || !file.isFile() || !file.isReadable())
        return 0;
    m_pictures.append({key, path, size});
    return qint32(m_pictures.size());
}

const ImageList::Picture* ImageList::picture(qint32 index) const
{
    return index >= 1 && index <= m_pictures.size() ? &m_pictures.at(index - 1) : nullptr;
}
