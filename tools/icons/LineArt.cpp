#include "LineArt.h"

#include "IconKit.h"

#include <QPainter>

namespace LineArt {
namespace {
constexpr int Width = 740;
constexpr int Height = 440;
constexpr int BeltTop = 214;
constexpr int BeltHeight = 22;
constexpr int BottleSpacing = 34;

struct Station
{
    QString name;
    QRect machine;
};

const Station Stations[] = {
    {QStringLiteral("Filling"), QRect(20, 120, 170, 56)},
    {QStringLiteral("Capping"), QRect(215, 120, 170, 56)},
    {QStringLiteral("Labelling"), QRect(410, 120, 170, 56)},
};
const QRect PalletArea(600, 120, 135, 56);

const QColor Floor{0xf3, 0xf6, 0xf9};
const QColor Tile{0xe6, 0xeb, 0xf0};
const QColor Lane{0xfb, 0xe7, 0xb0};

void drawFloor(QPainter& p)
{
    p.fillRect(QRect(0, 0, Width, Height), Floor);
    for (int x = 0; x < Width; x += 40)
        Kit::line(p, QPointF(x, 0), QPointF(x, Height), Tile, 1, Qt::FlatCap);
    for (int y = 0; y < Height; y += 40)
        Kit::line(p, QPointF(0, y), QPointF(Width, y), Tile, 1, Qt::FlatCap);
    // The walkway along the line.
    p.fillRect(QRect(0, BeltTop + BeltHeight + 92, Width, 10), Lane);
}

void drawConveyor(QPainter& p)
{
    Kit::outlinedRect(p, QRectF(10, BeltTop, Width - 20, BeltHeight), Palette::Steel, 4);
    for (int x = 24; x < Width - 20; x += 24)
        Kit::line(p, QPointF(x, BeltTop + 3), QPointF(x, BeltTop + BeltHeight - 3), Palette::Body,
                  2, Qt::FlatCap);
    // Legs under the belt.
    for (int x = 40; x < Width; x += 120)
        Kit::fillRect(p, QRectF(x, BeltTop + BeltHeight + 1, 6, 14), Palette::Steel);
}

void drawBottle(QPainter& p, qreal x, bool capped, bool labelled)
{
    const qreal bottom = BeltTop + 2;
    QPainterPath bottle;
    bottle.moveTo(x - 6, bottom);
    bottle.lineTo(x - 6, bottom - 18);
    bottle.lineTo(x - 3, bottom - 24);
    bottle.lineTo(x - 3, bottom - 28);
    bottle.lineTo(x + 3, bottom - 28);
    bottle.lineTo(x + 3, bottom - 24);
    bottle.lineTo(x + 6, bottom - 18);
    bottle.lineTo(x + 6, bottom);
    bottle.closeSubpath();
    Kit::outlined(p, bottle, Palette::BlueLight);
    if (capped)
        Kit::fillRect(p, QRectF(x - 4, bottom - 32, 8, 5), Palette::Red);
    if (labelled)
        Kit::fillRect(p, QRectF(x - 5, bottom - 14, 10, 8), Palette::Paper);
}

void drawMachine(QPainter& p, const QRect& box, const QString& name)
{
    Kit::outlinedRect(p, box, Palette::Body, 3);
    // A display and a head reaching down to the belt.
    Kit::outlinedRect(p, QRectF(box.left() + 10, box.top() + 10, 34, 20), Palette::Screen, 2);
    Kit::fillRect(p, QRectF(box.left() + 14, box.top() + 16, 20, 2), Palette::BlueLight);
    Kit::fillRect(p, QRectF(box.left() + 14, box.top() + 21, 14, 2), Palette::BlueLight);
    const int headX = box.center().x();
    Kit::outlinedRect(p, QRectF(headX - 8, box.bottom(), 16, BeltTop - 32 - box.bottom()),
                      Palette::Steel, 2);
    Kit::fillRect(p, QRectF(box.right() - 24, box.top() + 12, 8, 8), Palette::Green);
    QFont font = p.font();
    font.setPixelSize(13);
    font.setBold(true);
    p.setFont(font);
    p.setPen(Palette::Ink);
    p.drawText(QRect(box.left() + 50, box.top() + 6, box.width() - 80, 28),
               Qt::AlignLeft | Qt::AlignVCenter, name);
}

void drawPallet(QPainter& p, const QRect& area)
{
    const int base = BeltTop + BeltHeight - 2;
    Kit::fillRect(p, QRectF(area.left() + 10, base, area.width() - 20, 8), Palette::FolderBack);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            Kit::outlinedRect(p,
                              QRectF(area.left() + 14 + column * 36, base - 28 * (row + 1), 34, 26),
                              Palette::Folder, 1);
}

void drawOffice(QPainter& p)
{
    const QRect office(Width - 210, Height - 82, 200, 72);
    Kit::outlinedRect(p, office, Palette::Paper, 3);
    QFont font = p.font();
    font.setPixelSize(13);
    font.setBold(true);
    p.setFont(font);
    p.setPen(Palette::Ink);
    p.drawText(office.adjusted(8, 4, -8, -4), Qt::AlignLeft | Qt::AlignTop,
               QStringLiteral("Office"));
}
} // namespace

QImage draw()
{
    QImage picture(Width, Height, QImage::Format_RGB32);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    drawFloor(p);
    drawConveyor(p);
    for (const Station& station : Stations)
        drawMachine(p, station.machine, station.name);
    drawPallet(p, PalletArea);
    // Bottles get a cap and a label as they pass the stations.
    for (int x = 30; x < PalletArea.left(); x += BottleSpacing)
        drawBottle(p, x, x > Stations[1].machine.center().x(),
                   x > Stations[2].machine.center().x());
    drawOffice(p);
    return picture;
}
} // namespace LineArt
