#include "dashboard/BackgroundPicture.h"

#include "services/ErrorBox.h"

#include <QImageReader>
#include <QSet>

namespace {
const QString Context = QStringLiteral("GroupUI - ApplyBackground");

// The paths whose failure the user has been told of.
QSet<QString>& reportedPaths()
{
    static QSet<QString> paths;
    return paths;
}
} // namespace

QImage BackgroundPicture::load(const QString& path)
{
    if (path.isEmpty())
        return {};
    QImageReader reader(path);
    const QImage picture = reader.read();
    if (!picture.isNull()) {
        reportedPaths().remove(path);
        return picture;
    }
    if (!reportedPaths().contains(path)) {
        reportedPaths().insert(path);
        ShowError(tr("The background picture %1 can't be shown: %2. The dashboard shows without "
                     "it; choose another background from its menu.")
                      .arg(path, reader.errorString()),
                  Context);
    }
    return {};
}
