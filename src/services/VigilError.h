#pragma once

#include <QString>
#include <exception>
#include <string>

// The one error type of the program: a number, the routine or object that raised it,
// and a text for the user. Error traps show "description - number" through ShowError.
class VigilError : public std::exception
{
public:
    // Run-time failures that the language runtime itself would raise.
    static constexpr qint32 InvalidProcedureCall = 5;
    static constexpr qint32 Overflow = 6;
    static constexpr qint32 TypeMismatch = 13;
    static constexpr qint32 FileNotFound = 53;
    // A file that can be read but says something it may not.
    static constexpr qint32 BadFileFormat = 321;
    // A keyed list already holds an entry under that key.
    static constexpr qint32 KeyAlreadyExists = 457;

    VigilError(qint32 number, QString source, QString description);

    qint32 number() const { return m_lNumber; }
    const QString& source() const { return m_sSource; }
    const QString& description() const { return m_sDescription; }
    const char* what() const noexcept override { return m_what.c_str(); }

private:
    qint32 m_lNumber;
    QString m_sSource;
    QString m_sDescription;
    std::string m_what;
};
