// A-series frames: any bytes through the parser and every reader of its data, and any id,
// type and data built into a frame that must parse back to the same.

#include "drivers/clsASeriesMessage.h"

#include <QByteArray>
#include <cstdio>
#include <cstdlib>

namespace {
// The longest data whose length still fits the ten bits a reply's length is read with.
constexpr qsizetype LongestData = 1023 - 2;
constexpr qint32 Base = 1;

void readEverything(const clsASeriesMessage& message)
{
    message.CommandID();
    message.CommandType();
    message.GetDataLen();
    message.GetChecksum();
    const qint32 size = qint32(message.GetData().size());
    // Positions count from 1; near the start, where the handler reads, and about the end.
    for (const qint32 position : {1, 2, 5, 9, size - 1, size, size + 1}) {
        if (position < Base)
            continue;
        message.GetDataSingle(position, Base);
        qint32 end = 0;
        message.GetStringNZ(position, Base, end);
        message.GetStringNZArray(position, Base);
        message.GetDataRange(position, position + 3, Base);
    }
}

void fail(const char* what, const QByteArray& frame)
{
    std::fprintf(stderr, "A-series frame %s: %s\n", what, frame.toHex(' ').constData());
    std::abort();
}

void checkRoundTrip(const QByteArray& input)
{
    if (input.size() < 2 || input.size() - 2 > LongestData)
        return;
    const auto id = quint8(input.at(0));
    const qint32 type = quint8(input.at(1)) % 7;
    const QByteArray data = input.mid(2);
    clsASeriesMessage built;
    const QByteArray frame = built.BuildCommandWithData(id, type, data, false);
    clsASeriesMessage parsed;
    if (!parsed.ParseMessage(frame, id))
        fail("built but not parsed", frame);
    // A frame without data reads as one byte 0.
    const QByteArray expected = data.isEmpty() ? QByteArray(1, '\0') : data;
    if (parsed.CommandID() != id || parsed.CommandType() != type || parsed.GetData() != expected ||
        parsed.Raw() != frame)
        fail("parsed to something else than was built", frame);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    clsASeriesMessage message;
    message.ParseMessage(input, -1);
    // A failed frame keeps what the parse got to; its readers must cope with that too.
    readEverything(message);
    checkRoundTrip(input);
    return 0;
}
