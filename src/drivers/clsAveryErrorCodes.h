#pragma once

#include <QHash>
#include <QString>

// What one error code of an Avery label printer means.
struct clsAveryErrorCode
{
    QString m_sErrorCode;
    qint16 m_nErrorLevel = 0;
    QString m_sDescription;
};

// The printer's error codes with their levels and descriptions, from a file of lines
// "code,level,description".
class clsAveryErrorCodes
{
public:
    // The table of the process, created on first use from GetMessageFolder() + "AveryErrors.txt".
    static clsAveryErrorCodes& process();
    static void reset(); // for tests
    // Adds the file's entries. A failure is shown to the user and ends the load; the entries
    // read before it stay.
    void load(const QString& folder, const QString& fileName);
    qint16 GetErrorLevel(const QString& code) const;        // 0 when unknown
    QString GetErrorDescription(const QString& code) const; // empty when unknown

private:
    void readFile(const QString& path);
    void add(const QString& line);

    QHash<QString, clsAveryErrorCode> m_codes;
};
