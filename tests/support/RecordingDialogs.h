#pragma once

#include "services/IDialogs.h"

#include <QList>
#include <QStringList>
#include <deque>

// Keeps every box shown and answers from a script; with the script used up, it answers Ok,
// Yes to a question, and Cancel to Retry/Cancel.
class RecordingDialogs : public IDialogs
{
public:
    Answer show(const Box& box) override;

    void answerNext(Answer answer) { m_script.push_back(answer); }
    const QList<Box>& boxes() const { return m_boxes; }
    // The text of every box shown, in order.
    QStringList texts() const;
    void clear() { m_boxes.clear(); }

private:
    QList<Box> m_boxes;
    std::deque<Answer> m_script;
};
