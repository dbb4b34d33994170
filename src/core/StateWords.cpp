#include "core/StateWords.h"

#include "core/ErrorState.h"

QString StateWord(qint32 state)
{
    switch (state) {
    case StateNoAnswer:
        return QStringLiteral("no answer");
    case StateGood:
        return QStringLiteral("good");
    case StateWarning:
        return QStringLiteral("warning");
    case StateFault:
        return QStringLiteral("fault");
    case StatePortBusy:
        return QStringLiteral("port busy");
    case StateDisabled:
        return QStringLiteral("disabled");
    default:
        return QStringLiteral("unknown");
    }
}
