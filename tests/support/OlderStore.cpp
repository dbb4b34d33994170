#include "support/OlderStore.h"

#include <QFile>
#include <sqlite3.h>

bool WriteAsAnOlderVersion(const QString& storePath, const char* sql)
{
    sqlite3* db = nullptr;
    const bool done = sqlite3_open(QFile::encodeName(storePath).constData(), &db) == SQLITE_OK &&
                      sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(db);
    return done;
}
