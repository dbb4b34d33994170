#include "printing/ui/FileViewListing.h"

#include "services/VigilError.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {
// What the runtime raises for a folder that isn't there.
constexpr qint32 PathNotFound = 76;

constexpr QDir::Filters FilesCounted = QDir::Files | QDir::Hidden | QDir::System;
constexpr QDir::Filters FoldersCounted =
    QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System;

void walk(const QString& folder, const QString& parentPath, QSet<QString>& walked,
          QList<FileViewListing::Entry>& entries)
{
    walked.insert(QFileInfo(folder).canonicalFilePath());
    const QDir dir(folder);
    for (const QFileInfo& sub : dir.entryInfoList(FoldersCounted, QDir::Name)) {
        const QString path = dir.filePath(sub.fileName());
        entries.append({sub.fileName(), path, parentPath, FileViewListing::Kind::Folder});
        if (!walked.contains(sub.canonicalFilePath()))
            walk(path, path, walked, entries);
    }
    const std::pair<const char*, FileViewListing::Kind> files[] = {
        {"*.LBS", FileViewListing::Kind::LabelSet}, {"*.FMT", FileViewListing::Kind::Format}};
    for (const auto& [pattern, kind] : files) {
        // Name filters compare without regard to case, as the label application's do.
        for (const QFileInfo& file :
             dir.entryInfoList({QLatin1String(pattern)}, FilesCounted, QDir::Name))
            entries.append({file.fileName(), dir.filePath(file.fileName()), parentPath, kind});
    }
}
} // namespace

QList<FileViewListing::Entry> FileViewListing::list(const QString& rootFolder)
{
    if (rootFolder.isEmpty() || !QFileInfo(rootFolder).isDir())
        throw VigilError(PathNotFound, QStringLiteral("FileViewControl"),
                         QStringLiteral("Path not found: \"%1\"").arg(rootFolder));
    QList<Entry> entries;
    QSet<QString> walked;
    walk(rootFolder, QString(), walked, entries);
    return entries;
}
