#pragma once

#include <QByteArray>
#include <cstddef>
#include <cstdint>
#include <optional>

// A fuzz input read as a run of steps, each a control byte, a length byte and that many bytes
// of data (fewer at the input's end). So the input itself chooses where a reply is cut into
// pieces and what happens between the pieces. The low three bits of the control byte name
// the step's event, the five above them are its argument.
class FuzzSteps
{
public:
    struct Step
    {
        quint8 event = 0;
        quint8 argument = 0;
        QByteArray data;
    };

    FuzzSteps(const uint8_t* data, size_t size);

    std::optional<Step> next();
    // One byte ahead of the steps, as a target's own choice; 0 at the input's end.
    quint8 takeByte();

private:
    const uint8_t* m_data;
    size_t m_size;
    size_t m_at = 0;
};
