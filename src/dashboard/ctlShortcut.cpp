#include "dashboard/ctlShortcut.h"

#include "core/ErrorColours.h"
#include "core/clsComponent.h"
#include "platform/qt/QtTreeView.h"
#include "platform/qt/Twips.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>

namespace {
// The design of the control, in twips: the icon square at the top left, the status text
// beside it, the name below both across the whole width.
constexpr int IconSize = 495;
constexpr int TextLeft = 600;
constexpr int TextWidth = 1335;
constexpr int NameTop = 480;
constexpr int NameWidth = 1935;

QString shownText(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}
} // namespace

int ButtonCode(Qt::MouseButtons buttons)
{
    return (buttons & Qt::LeftButton ? 1 : 0) | (buttons & Qt::RightButton ? 2 : 0) |
           (buttons & Qt::MiddleButton ? 4 : 0);
}

int ShiftCode(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) | (modifiers & Qt::ControlModifier ? 2 : 0) |
           (modifiers & Qt::AltModifier ? 4 : 0);
}

ctlShortcut::ctlShortcut(QWidget* parent)
    : QWidget(parent)
    , m_imgIcon(new QLabel(this))
    , m_lblText(new QLabel(this))
    , m_lblName(new QLabel(this))
{
    setObjectName(QStringLiteral("shctPrinters"));
    setAutoFillBackground(true);
    setFocusPolicy(Qt::ClickFocus);
    m_imgIcon->setObjectName(QStringLiteral("imgIcon"));
    m_lblText->setObjectName(QStringLiteral("lblText"));
    m_lblName->setObjectName(QStringLiteral("lblName"));
    m_imgIcon->setScaledContents(true);
    m_lblText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_lblName->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    // The whole shortcut answers the mouse as one surface.
    for (QLabel* inner : {m_imgIcon, m_lblText, m_lblName})
        inner->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_imgIcon->setGeometry(0, 0, toPixels(IconSize), toPixels(IconSize));
    m_lblText->setGeometry(toPixels(TextLeft), 0, toPixels(TextWidth), toPixels(IconSize));
    const int nameHeight = fontMetrics().height();
    m_lblName->setGeometry(0, toPixels(NameTop), toPixels(NameWidth), nameHeight);
    m_textBaseHeight = m_lblText->height();
    m_nameGap = m_lblName->y() - (m_lblText->y() + m_lblText->height());
    resize(toPixels(NameWidth), m_lblName->y() + nameHeight);
}

void ctlShortcut::setText(const QString& text)
{
    if (text == m_sText)
        return;
    m_sText = text;
    m_lblText->setText(shownText(text));
    fitWidth();
}

QString ctlShortcut::Name() const
{
    return m_lblName->text();
}

void ctlShortcut::setName(const QString& name)
{
    if (name == m_lblName->text())
        return;
    m_lblName->setText(name);
    fitWidth();
}

void ctlShortcut::setPicture(const QString& path)
{
    m_imgIcon->setPixmap(path.isEmpty() ? QPixmap() : QPixmap(path));
}

QColor ctlShortcut::BackColor() const
{
    return palette().color(QPalette::Window);
}

void ctlShortcut::setBackColor(const QColor& colour)
{
    QPalette colours = palette();
    colours.setColor(QPalette::Window, colour);
    setPalette(colours);
}

clsComponent* ctlShortcut::Component() const
{
    return m_oComponent;
}

void ctlShortcut::setComponent(clsComponent* node)
{
    if (m_oComponent)
        m_oComponent->disconnect(this);
    m_oComponent = node;
    if (!node)
        return;
    connect(node, &clsComponent::StatusChanged, this, &ctlShortcut::m_oComponent_StatusChanged);
    connect(node, &QObject::destroyed, this, &ctlShortcut::ComponentGone, Qt::QueuedConnection);
    setName(node->m_sName);
    m_oComponent_StatusChanged();
}

void ctlShortcut::m_oComponent_StatusChanged()
{
    if (!m_oComponent)
        return;
    const QString alert = m_oComponent->GetHighestAlert();
    const QString icon = m_oComponent->IconText();
    setText(alert.isEmpty() ? icon : icon + QStringLiteral("\r\n") + alert);
    setBackColor(
        QtTreeView::toColor(m_oComponent->GetErrorColour(DashboardPalette, false), palette()));
    fitHeight();
}

void ctlShortcut::fitWidth()
{
    const QFontMetrics metrics = fontMetrics();
    int width = std::max(metrics.horizontalAdvance(m_lblName->text()), m_imgIcon->width());
    // A blank before each line break, as the status text is measured for its widest line.
    QString text = m_sText;
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" \n"));
    width = std::max(width, metrics.boundingRect(QRect(), 0, text).width() + m_lblText->x());
    resize(width, height());
}

void ctlShortcut::fitHeight()
{
    const int textHeight = fontMetrics().boundingRect(QRect(), 0, shownText(m_sText)).height();
    m_lblText->resize(m_lblText->width(), std::max(textHeight, m_textBaseHeight));
    m_lblName->move(0, m_lblText->y() + m_lblText->height() + m_nameGap);
    resize(width(), m_lblName->y() + m_lblName->height());
}

void ctlShortcut::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_lblName->resize(width(), m_lblName->height());
    m_lblText->resize(width() - m_lblText->x(), m_lblText->height());
}

void ctlShortcut::mousePressEvent(QMouseEvent* event)
{
    emit MouseDown(ButtonCode(event->button()), ShiftCode(event->modifiers()), event->position());
}

void ctlShortcut::mouseMoveEvent(QMouseEvent* event)
{
    emit MouseMove(ButtonCode(event->buttons()), ShiftCode(event->modifiers()), event->position());
}

void ctlShortcut::mouseReleaseEvent(QMouseEvent* event)
{
    emit MouseUp(ButtonCode(event->button()), ShiftCode(event->modifiers()), event->position());
}

void ctlShortcut::mouseDoubleClickEvent(QMouseEvent*)
{
    emit DblClick();
}

void ctlShortcut::keyPressEvent(QKeyEvent* event)
{
    emit KeyDown(event->key(), ShiftCode(event->modifiers()));
}
