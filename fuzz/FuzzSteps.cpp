#include "FuzzSteps.h"

#include <algorithm>

FuzzSteps::FuzzSteps(const uint8_t* data, size_t size)
    : m_data(data)
    , m_size(size)
{}

std::optional<FuzzSteps::Step> FuzzSteps::next()
{
    if (m_at >= m_size)
        return std::nullopt;
    const quint8 control = takeByte();
    const size_t length = std::min<size_t>(takeByte(), m_size - m_at);
    Step step{quint8(control & 7), quint8(control >> 3),
              QByteArray(reinterpret_cast<const char*>(m_data + m_at), qsizetype(length))};
    m_at += length;
    return step;
}

quint8 FuzzSteps::takeByte()
{
    return m_at < m_size ? m_data[m_at++] : 0;
}
