#include "core/IconFiles.h"

#include "services/ApplicationOptions.h"
#include "services/TextUtilities.h"

#include <QFileInfo>

QString IconFile(const QString& fileName)
{
    const QString path =
        GetSafePath(GetSafePath(GetProgramFolder()) + GetIconsFolderName()) + fileName;
    return QFileInfo(path).isFile() ? path : QString();
}
