#include "core/TroubleNotice.h"

#include <QCoreApplication>

namespace {
QString stateWord(ErrorState state)
{
    switch (state) {
    case StateNoAnswer:
        return QCoreApplication::translate("TroubleNotice", "no answer");
    case StatePortBusy:
        return QCoreApplication::translate("TroubleNotice", "port busy");
    default:
        return QCoreApplication::translate("TroubleNotice", "fault");
    }
}
} // namespace

QString TroubleNotice::summary() const
{
    return printer + QStringLiteral(": ") + stateWord(state);
}

QString TroubleNotice::body() const
{
    return alert.isEmpty() ? group : group + QLatin1Char('\n') + alert;
}
