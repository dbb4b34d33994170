#pragma once

#include "sim/ZplLabelReader.h"

#include <QStringList>

// What a simulated printer has printed of the ZPL it was sent: the labels counted, the fields
// of the last one, and a notice for each ("label 3: L0001 | Apple juice 1l"), so that a test or
// a person watching can see what a job sent.
class PrintedLabels
{
public:
    // Notices nobody has taken beyond these are dropped, the oldest first.
    static constexpr qsizetype kNoticesKept = 100;

    void read(const QByteArray& bytes);
    QStringList takeNotices();

    qint64 count() const { return m_count; }
    // Empty until a label is printed.
    const QStringList& lastFields() const { return m_lastFields; }

private:
    ZplLabelReader m_reader;
    qint64 m_count = 0;
    QStringList m_lastFields;
    QStringList m_notices;
};
