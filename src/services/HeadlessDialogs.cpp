#include "services/HeadlessDialogs.h"

#include "services/HeadlessOutput.h"

HeadlessDialogs::HeadlessDialogs(FILE* stream)
    : m_stream(stream)
{}

IDialogs::Answer HeadlessDialogs::show(const Box& box)
{
    WriteHeadlessLine(m_stream, box.title + QStringLiteral(": ") + box.text);
    switch (box.buttons) {
    case Buttons::YesNo:
        return Answer::No;
    case Buttons::RetryCancel:
        return Answer::Cancel;
    case Buttons::Ok:
        break;
    }
    return Answer::Ok;
}
