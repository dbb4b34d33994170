#include "dashboard/DragDelay.h"

#include "services/SettingsAccess.h"

#include <QVariant>
#include <QWidget>

namespace {
constexpr int LeftButton = 1;
} // namespace

DragDelay::DragDelay(QObject* parent)
    : QObject(parent)
    , m_lDragDelay(GetDragDelay())
{
    m_tmrDragDelay.setObjectName(QStringLiteral("tmrDragDelay"));
    m_tmrDragDelay.setSingleShot(true);
    connect(&m_tmrDragDelay, &QTimer::timeout, this, &DragDelay::tmrDragDelay_Timer);
}

qint32 DragDelay::GetDragDelay()
{
    QVariant value;
    if (ReadValue(HKEY_LOCAL_MACHINE, DragDelayKey, DragDelayValue, value) != 0 ||
        value.typeId() != QMetaType::Int || value.toInt() < 0)
        return DefaultDelayMs;
    return value.toInt();
}

void DragDelay::NoteMouse(QWidget* control, int button, int shift, QPointF point, bool pressing)
{
    if (pressing)
        m_mouse.unchanged = true;
    else if (button != m_mouse.button || shift != m_mouse.shift)
        m_mouse.unchanged = false;
    m_mouse.point = point;
    m_mouse.button = button;
    m_mouse.shift = shift;
    m_mouse.control = control;
}

void DragDelay::start()
{
    m_tmrDragDelay.start(m_lDragDelay);
}

void DragDelay::tmrDragDelay_Timer()
{
    m_tmrDragDelay.stop();
    if (m_mouse.button == LeftButton && m_mouse.unchanged)
        emit begin();
    else
        emit cancel();
}
