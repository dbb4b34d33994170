#include "pages/HandlerMismatch.h"

#include "core/ComponentHandler.h"

VigilError HandlerMismatch(const QString& pageName, const ComponentHandler* handler)
{
    const QString shown = handler ? QStringLiteral("the handler %1").arg(handler->GetObjectName())
                                  : QStringLiteral("a node without a handler");
    return VigilError(VigilError::TypeMismatch, pageName,
                      QStringLiteral("Type mismatch: %1 can't show %2").arg(pageName, shown));
}
