#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// One Name=Value line of a section.
struct IniSetting
{
    QString name;
    QString value;
    qint32 line = 0;
};

// A [Title] line and the settings below it, in the file's order.
struct IniSection
{
    QString title;
    qint32 line = 0;
    QList<IniSetting> settings;

    bool is(const QString& title) const;
};

// The label files' INI-style text, read whole: sections of Name=Value lines, where blank
// lines and lines that begin with ';' say nothing. Every fault names the file and the line.
class LabelFileReader
{
public:
    // FileNotFound when the file can't be read.
    explicit LabelFileReader(const QString& path);

    // The sections up to the section titled `stopAt` (compared without regard to case) or
    // to the end. Faults a line outside a section, a line that is neither a section nor a
    // setting, and a name given twice in one section.
    QList<IniSection> readSections(const QString& stopAt = {});
    // Whether readSections stopped at `stopAt`; the lines after it are then rawLines().
    bool stopped() const { return m_stopped; }
    // The lines after the stop, each without its line end; line n of the file is
    // rawLines()[n - firstRawLine()].
    QList<QByteArray> rawLines() const { return m_lines.mid(m_next); }
    qint32 firstRawLine() const { return qint32(m_next) + 1; }
    // The last line's number, for what is missing at the end; 1 for an empty file.
    qint32 lastLine() const;

    const QString& path() const { return m_path; }
    QString folder() const;

    // BadFileFormat: "<file>, line <n>: <what>".
    [[noreturn]] void fail(qint32 line, const QString& what) const;

private:
    QString m_path;
    QList<QByteArray> m_lines;
    qsizetype m_next = 0;
    bool m_stopped = false;
};
