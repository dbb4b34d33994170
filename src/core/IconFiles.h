#pragma once

#include <QString>

// The path of a picture file in the icons folder below the program's folder, or empty when
// there is no such file: a missing icon gives no picture and no failure.
QString IconFile(const QString& fileName);
