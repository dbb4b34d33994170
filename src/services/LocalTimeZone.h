#pragma once

#include <QtGlobal>

// Every turn of a time into local time makes the C library look at /etc/localtime again
// when TZ is unset: a file system call each time, thousands a second on a large site. With
// TZ naming that same file it is read once; a change of the machine's zone is then seen at
// the next start. Call first thing in main(). A TZ that is set is left as it is.
inline void ReadLocalTimeZoneOnce()
{
    if (qEnvironmentVariableIsEmpty("TZ"))
        qputenv("TZ", ":/etc/localtime");
}
