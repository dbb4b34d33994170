#include "support/ScriptedHandler.h"

#include "core/HandlerTable.h"
#include "services/VigilError.h"

namespace {
ScriptedHandler* lastMade = nullptr;
} // namespace

ScriptedHandler::Registration::Registration()
{
    HandlerTable::registerClass(0, QStringLiteral("ScriptedHandler"), [] {
        auto handler = std::make_unique<ScriptedHandler>();
        lastMade = handler.get();
        return handler;
    });
}

ScriptedHandler::Registration::~Registration()
{
    HandlerTable::unregisterClass(QStringLiteral("ScriptedHandler"));
    lastMade = nullptr;
}

ScriptedHandler* ScriptedHandler::last()
{
    return lastMade;
}

void ScriptedHandler::setDisabled(bool disabled)
{
    m_bDisabled = disabled;
    emit StatusChanged();
}

bool ScriptedHandler::Initialise(clsComponent* oComponent, const QString& sKey,
                                 const QString& sName)
{
    node = oComponent;
    calls << QStringLiteral("Initialise %1 %2").arg(sKey, sName);
    return true;
}

void ScriptedHandler::Process()
{
    calls << QStringLiteral("Process %1").arg(m_sName);
    if (failProcess)
        throw VigilError(61, QStringLiteral("ScriptedHandler"), QStringLiteral("Disk full"));
    emit StatusChanged();
}

void ScriptedHandler::ProcessTimeout(qint16 nTimeout_seconds)
{
    calls << QStringLiteral("ProcessTimeout %1").arg(nTimeout_seconds);
}

bool ScriptedHandler::IsPrinterTypeSupported(qint32 n) const
{
    return n >= FirstNumber && n < FirstNumber + 100;
}

void ScriptedHandler::SyncTime(const QDateTime& when)
{
    calls << QStringLiteral("SyncTime %1").arg(when.toString(Qt::ISODate));
}
