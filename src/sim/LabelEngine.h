#pragma once

#include "sim/SimEngine.h"
#include "sim/SimKnobs.h"
#include "sim/ZplLabelReader.h"

#include <memory>

// A label printer on a raw port, fed ZPL: it answers nothing, counts the labels it prints and
// keeps the fields of the last one, so that a test or a person watching can see what a job
// sent. No knobs of its own.
class LabelEngine : public SimEngine
{
public:
    // Notices nobody has taken beyond these are dropped, the oldest first.
    static constexpr qsizetype kNoticesKept = 100;

    static std::unique_ptr<SimEngine> create(const SimKnobs& knobs, QString& error);

    QList<QByteArray> receive(const QByteArray& bytes, const QDateTime& now) override;
    // "label 3: L0001 | Apple juice 1l" for each label printed.
    QStringList takeNotices() override;

    qint64 labelCount() const { return m_labelCount; }
    // Empty until a label is printed.
    const QStringList& lastFields() const { return m_lastFields; }

private:
    ZplLabelReader m_reader;
    qint64 m_labelCount = 0;
    QStringList m_lastFields;
    QStringList m_notices;
};
