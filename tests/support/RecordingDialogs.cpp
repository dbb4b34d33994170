#include "support/RecordingDialogs.h"

QStringList RecordingDialogs::texts() const
{
    QStringList shown;
    for (const Box& box : m_boxes)
        shown.append(box.text);
    return shown;
}

IDialogs::Answer RecordingDialogs::show(const Box& box)
{
    m_boxes.append(box);
    if (!m_script.empty()) {
        const Answer answer = m_script.front();
        m_script.pop_front();
        return answer;
    }
    switch (box.buttons) {
    case Buttons::YesNo:
        return Answer::Yes;
    case Buttons::RetryCancel:
        return Answer::Cancel; // never loops on a retry nobody scripted
    case Buttons::Ok:
        break;
    }
    return Answer::Ok;
}
