#pragma once

#include <QList>
#include <QString>

// An image list as data: pictures (a file and the size to show it at) by index from 1, some
// under a key. The window draws from it; the logic only adds and looks up.
class ImageList
{
public:
    struct Picture
    {
        QString key;
        QString path;
        qint32 size = 0;
    };

    explicit ImageList(qint32 size = 0);

    qint32 size() const { return m_lSize; }
    qsizetype count() const { return m_pictures.size(); }

    // The index of the picture under `key`, or 0.
    qint32 indexOfKey(const QString& key) const;
    // Adds the picture file under `key` (empty for none) and answers its index; 0 when the
    // file can't be read, so that nothing is added.
    qint32 add(const QString& key, const QString& path, qint32 size);
    // The picture at `index`, from 1; none outside the list.
    const Picture* picture(qint32 index) const;

private:
    qint32 m_lSize;
    QList<Picture> m_pictures;
};
