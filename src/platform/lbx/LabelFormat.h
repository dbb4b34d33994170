#pragma once

#include "drivers/PrintJob.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

class LabelFileReader;

// A label format file (.FMT) as read: the printer type it is made for, the values it asks
// for, and the bytes it sends with those values put in.
class LabelFormat
{
public:
    // Reads and checks the whole file. Raises VigilError: FileNotFound when it can't be
    // read, BadFileFormat with "<file>, line <n>: <what is wrong>" for any fault in it.
    static LabelFormat read(const QString& path);

    const QString& path() const { return m_path; }
    qint32 printerType() const { return m_printerType; }
    const QString& description() const { return m_description; }
    // In the file's order.
    const QList<PromptedValue>& prompts() const { return m_prompts; }
    const QList<DatabaseKey>& keys() const { return m_keys; }

    // The bytes for the printer, each {Name} replaced by the value `values` gives for the
    // name in lower case (UTF-8), else by the prompt's or key's own value in the file.
    QByteArray render(const QHash<QString, QString>& values) const;

private:
    // The data: bytes as they stand, or the name of a value put in at that place.
    struct Piece
    {
        QByteArray bytes;
        QString name;
    };

    // The [Data] lines, with the names checked against the prompts and keys.
    void readData(const LabelFileReader& file);
    // The value the file gives the prompt or key named `name` (lower case).
    QString ownValue(const QString& name) const;

    QString m_path;
    qint32 m_printerType = 0;
    QString m_description;
    QList<PromptedValue> m_prompts;
    QList<DatabaseKey> m_keys;
    QList<Piece> m_data;
};

// A label set file (.LBS): a format for each printer identifier, in the set's order, and
// the values of all its formats, each name once, as the first format that has it gives it.
class LabelSetFile
{
public:
    struct Element
    {
        QString identifier;
        LabelFormat format;
    };

    // Reads the set and each of its formats. Raises VigilError as LabelFormat::read does,
    // naming the set's file and line, or the element's format file and line.
    static LabelSetFile read(const QString& path);

    const QString& path() const { return m_path; }
    const QString& description() const { return m_description; }
    const QList<Element>& elements() const { return m_elements; }
    const QList<PromptedValue>& prompts() const { return m_prompts; }
    const QList<DatabaseKey>& keys() const { return m_keys; }

private:
    QString m_path;
    QString m_description;
    QList<Element> m_elements;
    QList<PromptedValue> m_prompts;
    QList<DatabaseKey> m_keys;
};
