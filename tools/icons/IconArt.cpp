#include "IconArt.h"

#include "IconKit.h"

#include <QPainter>
#include <QtMath>

using namespace Kit;
namespace P = Palette;

namespace {
// Tree and printers

void group(QPainter& p)
{
    folder(p);
}

// A Domino C-series coder: a low, wide cabinet with its display, and a drop of ink.
void coderC(QPainter& p)
{
    outlinedRect(p, QRectF(3, 7, 22, 16), P::Body, 1);
    fillRect(p, QRectF(6, 10, 12, 6), P::Screen);
    fillRect(p, QRectF(8, 12, 6, 2), P::BlueLight);
    for (int x : {6, 10, 14})
        fillRect(p, QRectF(x, 18, 2, 2), P::Steel);
    outlined(p, drop(QPointF(25, 10), QPointF(25, 23), 6), P::Blue);
}

// A Domino A-series coder: a tall cabinet on its stand, the display at the top, and a drop.
void coderA(QPainter& p)
{
    outlinedRect(p, QRectF(5, 3, 14, 22), P::Body, 1);
    fillRect(p, QRectF(8, 6, 8, 6), P::Screen);
    fillRect(p, QRectF(10, 8, 4, 2), P::BlueLight);
    fillRect(p, QRectF(8, 16, 8, 2), P::Steel);
    fillRect(p, QRectF(8, 20, 8, 2), P::Steel);
    outlinedRect(p, QRectF(7, 25, 10, 4), P::Steel);
    outlined(p, drop(QPointF(25, 10), QPointF(25, 23), 6), P::Blue);
}

// A label printer: its body, the slot, and a label coming out.
void labelPrinter(QPainter& p)
{
    outlinedRect(p, QRectF(3, 5, 26, 16), P::Body, 1);
    fillRect(p, QRectF(4, 6, 24, 4), P::Steel);
    fillRect(p, QRectF(22, 12, 4, 2), P::Green);
    fillRect(p, QRectF(6, 16, 20, 2), P::Ink);
    outlinedRect(p, QRectF(9, 17, 14, 12), P::Paper, 1.5);
    // The bar code of the label.
    for (const auto& [x, w] : {std::pair{12, 2}, {15, 1}, {17, 2}, {20, 1}})
        fillRect(p, QRectF(x, 20, w, 6), P::Ink);
}

// Toolbar

void enablePolling(QPainter& p)
{
    cycle(p);
    badge(p, Badge::Play);
}

void disablePolling(QPainter& p)
{
    cycle(p);
    badge(p, Badge::Stop);
}

void fileView(QPainter& p)
{
    labelFile(p);
}

// A label set: one label in front of another.
void labelSet(QPainter& p)
{
    p.save();
    p.translate(-4, -2);
    labelFile(p);
    p.translate(7, 4);
    labelFile(p);
    p.restore();
}

void sendToPrinters(QPainter& p)
{
    labelFile(p);
    badge(p, Badge::Send);
}

void clearAssignments(QPainter& p)
{
    labelFile(p);
    badge(p, Badge::Cross);
}

void addGroup(QPainter& p)
{
    folder(p);
    badge(p, Badge::Plus);
}

void addPrinter(QPainter& p)
{
    printer(p);
    badge(p, Badge::Plus);
}

void deleteItem(QPainter& p)
{
    line(p, QPointF(8, 8), QPointF(24, 24), P::Red, 6);
    line(p, QPointF(8, 24), QPointF(24, 8), P::Red, 6);
}

// A window whose rows carry the marks of the print progress log.
void printProgress(QPainter& p)
{
    outlinedRect(p, QRectF(3, 3, 26, 26), P::Paper, 1);
    fillRect(p, QRectF(4, 4, 24, 6), P::Blue);
    const QColor marks[] = {P::Green, P::Steel, P::Red};
    for (int row = 0; row < 3; ++row) {
        const qreal y = 12 + 5 * row;
        fillRect(p, QRectF(6, y, 4, 4), marks[row]);
        fillRect(p, QRectF(12, y + 1, 12, 2), P::Line);
    }
}

void enable(QPainter& p)
{
    printer(p);
    badge(p, Badge::Check);
}

void disable(QPainter& p)
{
    printer(p);
    badge(p, Badge::No);
}

// A clipboard with a form on it.
void properties(QPainter& p)
{
    outlinedRect(p, QRectF(5, 5, 22, 24), P::FolderBack, 2);
    fillRect(p, QRectF(8, 8, 16, 18), P::Paper);
    outlinedRect(p, QRectF(11, 3, 10, 4), P::Steel, 1);
    for (int row = 0; row < 3; ++row) {
        const qreal y = 11 + 5 * row;
        fillRect(p, QRectF(10, y, 3, 3), P::Blue);
        fillRect(p, QRectF(15, y + 0.5, 7, 2), P::Line);
    }
}

void clock(QPainter& p)
{
    QPainterPath face;
    face.addEllipse(QPointF(16, 16), 13, 13);
    outlined(p, face, P::Paper);
    for (int hour = 0; hour < 12; hour += 3) {
        const qreal angle = qDegreesToRadians(hour * 30.0);
        const QPointF direction(qSin(angle), -qCos(angle));
        line(p, QPointF(16, 16) + direction * 9, QPointF(16, 16) + direction * 11, P::Steel, 2,
             Qt::FlatCap);
    }
    line(p, QPointF(16, 16), QPointF(16, 7), P::Ink, 2);    // minutes
    line(p, QPointF(16, 16), QPointF(22, 19), P::Ink, 2.5); // hours
    p.setPen(Qt::NoPen);
    p.setBrush(P::Blue);
    p.drawEllipse(QPointF(16, 16), 2, 2);
}

void options(QPainter& p)
{
    const QPointF centre(16, 16);
    QPolygonF outline;
    constexpr int Teeth = 8;
    for (int tooth = 0; tooth < Teeth; ++tooth) {
        const qreal middle = tooth * 360.0 / Teeth;
        for (const auto& [offset, radius] :
             {std::pair{-22.5, 9.5}, {-13.0, 9.5}, {-8.0, 13.0}, {8.0, 13.0}, {13.0, 9.5}}) {
            const qreal angle = qDegreesToRadians(middle + offset);
            outline << centre + QPointF(qCos(angle), qSin(angle)) * radius;
        }
    }
    QPainterPath gear;
    gear.addPolygon(outline);
    gear.closeSubpath();
    gear.addEllipse(centre, 4, 4);
    gear.setFillRule(Qt::OddEvenFill);
    outlined(p, gear, P::Steel);
}

void help(QPainter& p)
{
    p.setPen(Qt::NoPen);
    p.setBrush(P::Blue);
    p.drawEllipse(QPointF(16, 16), 14, 14);
    QPainterPath mark;
    const QRectF arc(11, 6.5, 10, 10);
    mark.arcMoveTo(arc, 160);
    mark.arcTo(arc, 160, -215);
    mark.quadTo(QPointF(16, 16.5), QPointF(16, 19));
    p.setPen(QPen(P::Paper, 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(mark);
    p.setPen(Qt::NoPen);
    p.setBrush(P::Paper);
    p.drawEllipse(QPointF(16, 24), 2.2, 2.2);
}

// Ink

QPainterPath inkDrop()
{
    return drop(QPointF(14, 2), QPointF(14, 19), 10);
}

void inkOk(QPainter& p)
{
    outlined(p, inkDrop(), P::Blue);
    p.setPen(Qt::NoPen);
    p.setBrush(P::BlueLight);
    p.drawEllipse(QPointF(9.5, 19.5), 2.2, 3.2);
    badge(p, Badge::Check);
}

void inkOut(QPainter& p)
{
    const QPainterPath shape = inkDrop();
    p.save();
    p.setClipPath(shape);
    p.fillRect(QRectF(0, 0, 32, 32), P::Paper);
    p.fillRect(QRectF(0, 24, 32, 8), P::Blue);
    p.restore();
    p.save();
    p.setPen(QPen(P::Ink, 2));
    p.setBrush(Qt::NoBrush);
    p.drawPath(shape);
    p.restore();
    badge(p, Badge::Warning);
}

// An ink bottle, empty, on the left so that the badge leaves it whole.
void bottleOut(QPainter& p)
{
    outlinedRect(p, QRectF(7, 3, 10, 4), P::Ink);
    outlinedRect(p, QRectF(8, 7, 8, 4), P::Body);
    outlinedRect(p, QRectF(3, 11, 18, 18), P::Paper, 3);
    fillRect(p, QRectF(4, 16, 16, 6), P::Body);
    fillRect(p, QRectF(6, 18, 6, 2), P::Blue);
    badge(p, Badge::Cross);
}

// Log rows

void roundSign(QPainter& p, const QColor& colour, Badge kind)
{
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawEllipse(QPointF(16, 16), 14, 14);
    sign(p, kind, QPointF(16, 16), 1.75);
}

void neutral(QPainter& p)
{
    p.setPen(Qt::NoPen);
    p.setBrush(P::Steel);
    p.drawEllipse(QPointF(16, 16), 14, 14);
    p.setBrush(P::Paper);
    for (int x : {9, 16, 23})
        p.drawEllipse(QPointF(x, 16), 2.5, 2.5);
}

void success(QPainter& p)
{
    roundSign(p, P::Green, Badge::Check);
}

void error(QPainter& p)
{
    roundSign(p, P::Red, Badge::Cross);
}

// The program: a watchful eye on the ink of a dark ground.
void vigil(QPainter& p)
{
    p.setPen(Qt::NoPen);
    p.setBrush(P::Ink);
    p.drawRoundedRect(QRectF(1, 1, 30, 30), 6, 6);
    QPainterPath eye;
    eye.moveTo(3, 16);
    eye.quadTo(16, 1, 29, 16);
    eye.quadTo(16, 31, 3, 16);
    p.setBrush(P::Paper);
    p.drawPath(eye);
    p.setBrush(P::Blue);
    p.drawEllipse(QPointF(16, 16), 6, 6);
    p.setBrush(P::Ink);
    p.drawEllipse(QPointF(16, 16), 2.8, 2.8);
    p.setBrush(P::Paper);
    p.drawEllipse(QPointF(14, 14), 1.3, 1.3);
    p.setBrush(P::Green);
    p.drawEllipse(QPointF(26, 26), 3, 3);
}
} // namespace

const QList<IconArt>& allIcons()
{
    static const QList<IconArt> icons = {
        {QStringLiteral("Group"), group},
        {QStringLiteral("Printer_C_Series"), coderC},
        {QStringLiteral("Printer_A_Series"), coderA},
        {QStringLiteral("LocalLabelPrinter"), labelPrinter},
        {QStringLiteral("EnablePolling"), enablePolling},
        {QStringLiteral("DisablePolling"), disablePolling},
        {QStringLiteral("FileView"), fileView},
        {QStringLiteral("LabelSet"), labelSet},
        {QStringLiteral("SendToPrinters"), sendToPrinters},
        {QStringLiteral("ClearPrintAssignments"), clearAssignments},
        {QStringLiteral("AddGroup"), addGroup},
        {QStringLiteral("AddPrinter"), addPrinter},
        {QStringLiteral("Delete"), deleteItem},
        {QStringLiteral("PrintProgress"), printProgress},
        {QStringLiteral("Enable"), enable},
        {QStringLiteral("Disable"), disable},
        {QStringLiteral("Properties"), properties},
        {QStringLiteral("Time"), clock},
        {QStringLiteral("Options"), options},
        {QStringLiteral("Help"), help},
        {QStringLiteral("InkOk"), inkOk},
        {QStringLiteral("InkOut"), inkOut},
        {QStringLiteral("BottleOut"), bottleOut},
        {QStringLiteral("Neutral"), neutral},
        {QStringLiteral("Success"), success},
        {QStringLiteral("Error"), error},
        {QStringLiteral("Vigil"), vigil},
    };
    return icons;
}

QImage render(const IconArt& art, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 32.0, size / 32.0);
    art.draw(painter);
    painter.end();
    return image;
}
