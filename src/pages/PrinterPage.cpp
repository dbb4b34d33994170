#include "pages/PrinterPage.h"

#include "core/Globals.h"
#include "core/clsComponents.h"
#include "services/MessageCatalogue.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>

clsComponent* PrinterNode(const ComponentHandler& handler)
{
    return g_oComponents ? g_oComponents->FindPrinter(handler.m_sName) : nullptr;
}

void Caption(QWidget& control, qint32 messageId, const QString& fallback)
{
    const QString text = GetMessage(messageId, fallback);
    if (auto* label = qobject_cast<QLabel*>(&control))
        label->setText(text);
    else if (auto* button = qobject_cast<QAbstractButton*>(&control))
        button->setText(text);
    else if (auto* frame = qobject_cast<QGroupBox*>(&control))
        frame->setTitle(text);
    else
        control.setWindowTitle(text);
}

QString PrinterPage::context(const char* routine) const
{
    return QLatin1String(metaObject()->className()) + QStringLiteral(" - ") +
           QLatin1String(routine);
}

void PrinterPage::askOwnerToCheckApply(const ComponentHandler& handler) const
{
    const QByteArray ownerClass = handler.GetControlName().toLatin1();
    for (QObject* parent = this->parent(); parent; parent = parent->parent()) {
        if (ownerClass == parent->metaObject()->className()) {
            QMetaObject::invokeMethod(parent, "CheckApply");
            return;
        }
    }
}
