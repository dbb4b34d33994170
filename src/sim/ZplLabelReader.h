#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

// Finds the labels in ZPL as it comes, in pieces of any size: each ^XZ ends one, and what a
// label keeps is the text of its ^FD fields, in order. A field's data runs to the next caret,
// which ^FS normally is; a caret can't stand inside it. What an unfinished label keeps is capped,
// so a flood without ^XZ, or garbage, costs no more memory than one large label.
class ZplLabelReader
{
public:
    // Of the unfinished label's fields together, counting a byte more for each field.
    static constexpr qsizetype kKeptLimit = 16 * 1024;

    // The fields of each label that `bytes` finish, in order.
    QList<QStringList> read(const QByteArray& bytes);

private:
    static constexpr char kCaret = '^';
    static constexpr qsizetype kCommandLength = 2;

    void takeText(const QByteArray& bytes, qsizetype from, qsizetype to);
    void takeCommandByte(char byte, QList<QStringList>& labels);
    void closeField();
    qsizetype room() const;

    bool m_bInCommand = false;
    QByteArray m_command;
    bool m_bInField = false;
    QByteArray m_field;
    QStringList m_fields;
    qsizetype m_kept = 0;
};
