#include "IconKit.h"

#include <QPolygonF>
#include <QtMath>

namespace Kit {
namespace {
constexpr qreal OutlineWidth = 2.0;
const QPointF BadgeCentre{24, 24};
constexpr qreal BadgeRadius = 8;
constexpr qreal BadgeGap = 2;

QPen outlinePen()
{
    return QPen(Palette::Ink, OutlineWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
}

QColor badgeColour(Badge kind)
{
    switch (kind) {
    case Badge::Plus:
    case Badge::Check:
    case Badge::Play:
        return Palette::Green;
    case Badge::Cross:
    case Badge::Stop:
    case Badge::No:
        return Palette::Red;
    case Badge::Warning:
        return Palette::Amber;
    case Badge::Send:
        return Palette::Blue;
    }
    return Palette::Ink;
}
} // namespace

void outlined(QPainter& p, const QPainterPath& path, const QColor& fill)
{
    p.save();
    p.setPen(outlinePen());
    p.setBrush(fill);
    p.drawPath(path);
    p.restore();
}

void outlinedRect(QPainter& p, const QRectF& centreLine, const QColor& fill, qreal radius)
{
    QPainterPath path;
    if (radius > 0)
        path.addRoundedRect(centreLine, radius, radius);
    else
        path.addRect(centreLine);
    outlined(p, path, fill);
}

void fillRect(QPainter& p, const QRectF& rect, const QColor& colour)
{
    p.fillRect(rect, colour);
}

void line(QPainter& p, QPointF from, QPointF to, const QColor& colour, qreal width,
          Qt::PenCapStyle cap)
{
    p.save();
    p.setPen(QPen(colour, width, Qt::SolidLine, cap, Qt::RoundJoin));
    p.drawLine(from, to);
    p.restore();
}

QPainterPath drop(QPointF tip, QPointF centre, qreal radius)
{
    // From the tip along the right tangent, round the bottom, and back up the left tangent.
    const qreal distance = centre.y() - tip.y();
    const qreal theta = qRadiansToDegrees(qAcos(radius / distance));
    const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath path;
    path.moveTo(tip);
    path.arcTo(circle, 90 - theta, 0);
    path.arcTo(circle, 90 - theta, -(360 - 2 * theta));
    path.closeSubpath();
    return path;
}

void folder(QPainter& p)
{
    QPainterPath back;
    back.moveTo(3, 27);
    back.lineTo(3, 7);
    back.lineTo(11, 7);
    back.lineTo(14, 10);
    back.lineTo(29, 10);
    back.lineTo(29, 27);
    back.closeSubpath();
    outlined(p, back, Palette::FolderBack);
    outlinedRect(p, QRectF(3, 13, 26, 14), Palette::Folder);
}

void printer(QPainter& p)
{
    outlinedRect(p, QRectF(9, 3, 14, 8), Palette::Paper);
    outlinedRect(p, QRectF(3, 11, 26, 12), Palette::Body, 1);
    fillRect(p, QRectF(6, 14, 4, 2), Palette::Green);
    outlinedRect(p, QRectF(9, 19, 14, 10), Palette::Paper);
    fillRect(p, QRectF(12, 22, 8, 2), Palette::Line);
    fillRect(p, QRectF(12, 25, 6, 2), Palette::Line);
}

void labelFile(QPainter& p)
{
    QPainterPath page;
    page.moveTo(7, 3);
    page.lineTo(19, 3);
    page.lineTo(25, 9);
    page.lineTo(25, 29);
    page.lineTo(7, 29);
    page.closeSubpath();
    outlined(p, page, Palette::Paper);
    QPainterPath fold;
    fold.moveTo(19, 3);
    fold.lineTo(19, 9);
    fold.lineTo(25, 9);
    p.save();
    p.setPen(outlinePen());
    p.setBrush(Qt::NoBrush);
    p.drawPath(fold);
    p.restore();
    fillRect(p, QRectF(10, 10, 6, 2), Palette::Blue);
    fillRect(p, QRectF(10, 14, 12, 2), Palette::Line);
    // A bar code.
    for (const auto& [x, w] : {std::pair{10, 2}, {14, 2}, {18, 1}, {20, 2}})
        fillRect(p, QRectF(x, 19, w, 7), Palette::Ink);
}

void cycle(QPainter& p)
{
    // Two arrows chasing each other clockwise round a circle, their heads at the upper right
    // and the lower left, clear of a badge.
    const QPointF centre(14, 14);
    constexpr qreal Radius = 9;
    const QRectF circle(centre.x() - Radius, centre.y() - Radius, 2 * Radius, 2 * Radius);
    const QPen pen(Palette::Blue, 3.5, Qt::SolidLine, Qt::FlatCap);
    p.save();
    for (int start : {160, 340}) {
        constexpr int Sweep = 130;
        QPainterPath arc;
        arc.arcMoveTo(circle, start);
        arc.arcTo(circle, start, -Sweep);
        p.setPen(pen);
        p.setBrush(Qt::NoBrush);
        p.drawPath(arc);
        const qreal end = qDegreesToRadians(qreal(start - Sweep));
        const QPointF out(qCos(end), -qSin(end));
        const QPointF along(qSin(end), qCos(end)); // clockwise on the screen
        const QPointF at = centre + out * Radius;
        QPolygonF head;
        head << at + along * 6 << at + out * 5 << at - out * 5;
        p.setPen(Qt::NoPen);
        p.setBrush(Palette::Blue);
        p.drawPolygon(head);
    }
    p.restore();
}

void sign(QPainter& p, Badge kind, QPointF centre, qreal scale)
{
    p.save();
    p.translate(centre);
    p.scale(scale, scale);
    const QColor white = Palette::Paper;
    switch (kind) {
    case Badge::Plus:
        p.fillRect(QRectF(-5, -2, 10, 4), white);
        p.fillRect(QRectF(-2, -5, 4, 10), white);
        break;
    case Badge::Check: {
        p.setPen(QPen(white, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        QPolygonF tick;
        tick << QPointF(-4.2, 0.2) << QPointF(-1.3, 3.1) << QPointF(4.2, -2.8);
        p.drawPolyline(tick);
        break;
    }
    case Badge::Cross:
        p.setPen(QPen(white, 3, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(-3.2, -3.2), QPointF(3.2, 3.2));
        p.drawLine(QPointF(-3.2, 3.2), QPointF(3.2, -3.2));
        break;
    case Badge::Play: {
        QPolygonF triangle;
        triangle << QPointF(-2.5, -4.5) << QPointF(4.5, 0) << QPointF(-2.5, 4.5);
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        p.drawPolygon(triangle);
        break;
    }
    case Badge::Stop:
        p.fillRect(QRectF(-4, -4, 8, 8), white);
        break;
    case Badge::No:
        p.fillRect(QRectF(-5, -2, 10, 4), white);
        break;
    case Badge::Warning:
        p.setPen(Qt::NoPen);
        p.setBrush(Palette::Ink);
        p.drawRoundedRect(QRectF(-1.5, -5.5, 3, 7), 1.2, 1.2);
        p.drawEllipse(QPointF(0, 4), 1.7, 1.7);
        break;
    case Badge::Send: {
        QPolygonF arrow;
        arrow << QPointF(-5, -1.8) << QPointF(0, -1.8) << QPointF(0, -5) << QPointF(5.5, 0)
              << QPointF(0, 5) << QPointF(0, 1.8) << QPointF(-5, 1.8);
        p.setPen(Qt::NoPen);
        p.setBrush(white);
        p.drawPolygon(arrow);
        break;
    }
    }
    p.restore();
}

void badge(QPainter& p, Badge kind)
{
    p.save();
    p.setPen(Qt::NoPen);
    p.setCompositionMode(QPainter::CompositionMode_Clear);
    p.setBrush(Qt::black);
    p.drawEllipse(BadgeCentre, BadgeRadius + BadgeGap, BadgeRadius + BadgeGap);
    p.setCompositionMode(QPainter::CompositionMode_SourceOver);
    p.setBrush(badgeColour(kind));
    p.drawEllipse(BadgeCentre, BadgeRadius, BadgeRadius);
    p.restore();
    sign(p, kind, BadgeCentre, 1);
}
} // namespace Kit
