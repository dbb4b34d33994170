#pragma once

#include <QByteArray>

// The frame every A-series request and reply travels in:
//   02 00 00 00 00, length low, length high, id, type, data, checksum low, checksum high
// The length counts the id, the type and the data; the checksum is the sum of all bytes in
// front of it, modulo 65536. The command type stands in the top three bits of its byte.
namespace ASeriesFrame {
constexpr char kStart = 2;
constexpr qsizetype kLengthAt = 5;
constexpr qsizetype kIdAt = 7;
constexpr qsizetype kTypeAt = 8;
constexpr qsizetype kDataAt = 9;
constexpr qsizetype kChecksumSize = 2;
// Without data.
constexpr int kShortestLength = 2;
// All a length's high byte may carry is two bits.
constexpr int kLongestLength = 1023;
constexpr qsizetype kLongestData = kLongestLength - kShortestLength;
constexpr int kTypeShift = 5;

quint16 checksum(const QByteArray& bytes);
// `data` may be at most kLongestData bytes.
QByteArray build(quint8 id, int type, const QByteArray& data = {});
} // namespace ASeriesFrame
