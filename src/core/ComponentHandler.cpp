#include "core/ComponentHandler.h"

#include "services/VigilError.h"

bool ComponentHandler::RaiseStatusChanged(bool bSuppressRaiseEvent)
{
    if (!bSuppressRaiseEvent)
        emit StatusChanged();
    return false;
}

void ComponentHandler::raiseNotSupported(const char* operation) const
{
    throw VigilError(NotSupported, GetObjectName(),
                     QStringLiteral("Object doesn't support this property or method: %1")
                         .arg(QLatin1String(operation)));
}

void ComponentHandler::Delete()
{
    raiseNotSupported("Delete");
}

QString ComponentHandler::CurrentFile()
{
    raiseNotSupported("CurrentFile");
}

qint32 ComponentHandler::PrintCount()
{
    raiseNotSupported("PrintCount");
}

void ComponentHandler::ProcessResponse(const QByteArray&)
{
    raiseNotSupported("ProcessResponse");
}

bool ComponentHandler::PortBusy()
{
    raiseNotSupported("PortBusy");
}

void ComponentHandler::setPortBusy(bool)
{
    raiseNotSupported("PortBusy");
}

QString ComponentHandler::Port()
{
    raiseNotSupported("Port");
}
