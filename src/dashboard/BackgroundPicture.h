#pragma once

#include <QCoreApplication>
#include <QImage>
#include <QString>

// A dashboard's background picture read from its file. A file that is missing or isn't a
// picture gives no picture, and the user is told why the first time that path fails in
// this run, not at every showing of the group.
class BackgroundPicture
{
    Q_DECLARE_TR_FUNCTIONS(BackgroundPicture)

public:
    // An empty path is no picture and no message.
    static QImage load(const QString& path);
};
