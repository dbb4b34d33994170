#pragma once

#include <QList>
#include <QString>
#include <QVariant>

// Every text the user reads comes from a numbered catalogue, one file per language.
// The id of a message is its line number in the file; the table is loaded once per process
// and a failed load is not retried.
class MessageCatalogue
{
public:
    static constexpr qint32 NoMessage = -1;

    QString getMessage(qint32 id, const QString& defaultText = QString());
    QString formatMessage(qint32 id, const QVariantList& args);
    void loadMessageFile(const QString& folder, const QString& fileName);

    bool isLoaded() const { return m_bLoaded; }
    qsizetype capacity() const { return m_table.size() - 1; }

    static MessageCatalogue& process();

private:
    static constexpr qsizetype InitialCapacity = 10;
    static constexpr qsizetype Growth = 10;

    void storeLine(qsizetype lineNumber, const QString& line);

    bool m_bLoaded = false;
    // Entry 0 is unused: ids count from 1.
    QList<QString> m_table;
};

// The catalogue of this process.
QString GetMessage(qint32 id, const QString& defaultText = QString());
QString FormatMessage(qint32 id, const QVariantList& args);
void LoadMessageFile(const QString& folder, const QString& fileName);

// The language: the stored Language setting, the user's, the system's, then English.
QString GetLanguageFolder();
QString GetConfiguredLanguage();
QString LanguageCodeFromId(quint16 languageId);
// The chain itself, given what each step found.
QString ChooseLanguageCode(const QString& configured, quint16 userLanguageId,
                           quint16 systemLanguageId);
