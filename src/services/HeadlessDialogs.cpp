#include "services/HeadlessDialogs.h"

#include <QRegularExpression>

HeadlessDialogs::HeadlessDialogs(FILE* stream)
    : m_stream(stream)
{}

IDialogs::Answer HeadlessDialogs::show(const Box& box)
{
    std::fputs(oneLine(box).toLocal8Bit().constData(), m_stream);
    std::fputc('\n', m_stream);
    std::fflush(m_stream);
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

QString HeadlessDialogs::oneLine(const Box& box)
{
    static const QRegularExpression lineBreaks(QStringLiteral("[\r\n]+"));
    QString text = box.text;
    text.replace(lineBreaks, QStringLiteral(" "));
    return box.title + QStringLiteral(": ") + text;
}
