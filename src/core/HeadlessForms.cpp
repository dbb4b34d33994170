#include "core/HeadlessForms.h"

#include "services/HeadlessOutput.h"

HeadlessForms::HeadlessForms(FILE* stream)
    : m_stream(stream)
{}

void HeadlessForms::ShowOptions()
{
    WriteHeadlessLine(m_stream,
                      QStringLiteral("Options: no window to show them in; the store "
                                     "keeps them below Software\\Orvane\\Vigil\\Options"));
}

void HeadlessForms::ShowHelp(const QString& sPath)
{
    WriteHeadlessLine(m_stream, QStringLiteral("Help: %1").arg(sPath));
}
