#pragma once

#include <QPointer>
#include <QWidget>

class clsComponent;
class QLabel;

// One printer on a dashboard: its icon, its status lines and its name, on the background of
// the printer's alert colour. It follows its node by itself and sizes itself to its text; the
// mouse and the keyboard go on to the dashboard, which decides about dragging and menus.
class ctlShortcut : public QWidget
{
    Q_OBJECT

public:
    explicit ctlShortcut(QWidget* parent = nullptr);

    // Writing an equal text does nothing; another one is shown and the width fitted to it.
    const QString& Text() const { return m_sText; }
    void setText(const QString& text);
    QString Name() const;
    void setName(const QString& name);
    // The icon's picture file; the icon stretches it.
    void setPicture(const QString& path);
    QColor BackColor() const;
    void setBackColor(const QColor& colour);
    clsComponent* Component() const;
    // Follows this node from now on: its name at once, its status at every change.
    void setComponent(clsComponent* node);

    // The printer this element stands for; empty for a free element.
    const QString& tag() const { return m_sTag; }
    void setTag(const QString& tag) { m_sTag = tag; }

    void m_oComponent_StatusChanged();

signals:
    // Buttons and shift state as the platform counts them: 1 left, 2 right, 4 middle; 1 shift,
    // 2 control, 4 alt. Points are the control's own pixels.
    void MouseDown(int button, int shift, QPointF point);
    void MouseMove(int button, int shift, QPointF point);
    void MouseUp(int button, int shift, QPointF point);
    void KeyDown(int keyCode, int shift);
    void DblClick();
    // The node followed has gone from the tree; comes after the event that removed it.
    void ComponentGone();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitWidth();
    void fitHeight();

    QLabel* m_imgIcon;
    QLabel* m_lblText;
    QLabel* m_lblName;
    QString m_sText;
    QString m_sTag;
    QPointer<clsComponent> m_oComponent;
    int m_textBaseHeight;
    int m_nameGap;
};

// The platform's button and shift codes of a mouse or key event.
int ButtonCode(Qt::MouseButtons buttons);
int ShiftCode(Qt::KeyboardModifiers modifiers);
