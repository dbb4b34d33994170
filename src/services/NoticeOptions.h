#pragma once

#include <QString>

// The options of the trouble notices, beside the control's own under the machine hive: on or
// off, how long a trouble must last before it is told, and a sound to play with it.
struct NoticeOptions
{
    static constexpr qint32 MaxDelaySeconds = 86400;

    bool enabled = true;
    // 0: at the next time-out walk.
    qint32 delaySeconds = 0;
    QString soundFile;

    // The kept options; a value out of range or of the wrong kind reads as its default.
    static NoticeOptions load();
    void save() const;
};
