#include "services/VigilError.h"

VigilError::VigilError(qint32 number, QString source, QString description)
    : m_lNumber(number)
    , m_sSource(std::move(source))
    , m_sDescription(std::move(description))
    , m_what((m_sDescription + QStringLiteral(" - ") + QString::number(m_lNumber)).toStdString())
{}
