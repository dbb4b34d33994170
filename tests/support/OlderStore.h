#pragma once

#include <QString>

// Runs SQL on a store's file behind the store's back, to leave in it what an older version
// of the program let in. False when the file can't be opened or the SQL fails.
bool WriteAsAnOlderVersion(const QString& storePath, const char* sql);
