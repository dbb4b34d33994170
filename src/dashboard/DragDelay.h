#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QTimer>

class QWidget;

// Decides whether a press on a shortcut becomes a drag. It keeps the last mouse event over the
// dashboard and, after a press of the left button, waits the drag delay: the drag begins only
// if the left button is still the one held and neither the buttons nor the shift keys have
// changed since the press; otherwise the press stays a click.
class DragDelay : public QObject
{
    Q_OBJECT

public:
    // The last mouse event: where, which buttons and shift keys (as ButtonCode and ShiftCode
    // count them), on which control, and whether buttons and shift are still those of the
    // press.
    struct MouseEvent
    {
        QPointF point;
        int button = 0;
        int shift = 0;
        QPointer<QWidget> control;
        bool unchanged = false;
    };

    inline static const QString DragDelayKey = QStringLiteral(
        "SOFTWARE\\Microsoft\\Windows\\NT\\CurrentVersion\\IniFileMapping\\win.ini\\Windows");
    inline static const QString DragDelayValue = QStringLiteral("DragDelay");
    static constexpr qint32 DefaultDelayMs = 200;

    explicit DragDelay(QObject* parent = nullptr);

    // The delay in milliseconds: the store's "DragDelay" if it holds a 32-bit value there that
    // isn't negative, else 200.
    static qint32 GetDragDelay();

    // Records a mouse event. A press starts a new record; any other event clears the
    // unchanged flag when its buttons or shift keys differ from those recorded.
    void NoteMouse(QWidget* control, int button, int shift, QPointF point, bool pressing);
    const MouseEvent& lastMouse() const { return m_mouse; }

    // Starts waiting for the delay after a press of the left button.
    void start();
    void stop() { m_tmrDragDelay.stop(); }
    bool waiting() const { return m_tmrDragDelay.isActive(); }

    // The delay is over: emits begin or cancel.
    void tmrDragDelay_Timer();

signals:
    void begin();
    void cancel();

private:
    QTimer m_tmrDragDelay;
    qint32 m_lDragDelay;
    MouseEvent m_mouse;
};
