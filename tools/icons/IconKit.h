#pragma once

// The shapes every icon is made of, drawn on a 32 by 32 grid. Outlined shapes have their
// centre line on odd coordinates with a 2-unit pen, so that an outline covers whole pixels at
// 32 px and, halved, one whole pixel at 16 px; filled details lie on even coordinates.

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>

namespace Palette {
inline const QColor Ink{0x26, 0x32, 0x3f};       // outlines, hands, text on light
inline const QColor Steel{0x8a, 0x99, 0xa8};     // machine parts in shade
inline const QColor Body{0xdd, 0xe4, 0xeb};      // machine bodies
inline const QColor Paper{0xff, 0xff, 0xff};     // paper, labels, faces
inline const QColor Line{0xa8, 0xb4, 0xc0};      // lines printed on paper
inline const QColor Screen{0x2f, 0x4f, 0x70};    // a coder's display
inline const QColor Blue{0x1e, 0x78, 0xd2};      // ink, information, actions
inline const QColor BlueLight{0x8c, 0xc3, 0xf5}; // a highlight on blue
inline const QColor Green{0x2a, 0x9d, 0x45};     // good, add, start
inline const QColor Red{0xd7, 0x34, 0x34};       // fault, delete, stop
inline const QColor Amber{0xf2, 0xaa, 0x1c};     // warning
inline const QColor Folder{0xf5, 0xc4, 0x52};    // groups
inline const QColor FolderBack{0xdb, 0x9c, 0x27};
} // namespace Palette

// A small round sign in the lower right corner, cut free of the shape below it.
enum class Badge { Plus, Check, Cross, Play, Stop, No, Warning, Send };

namespace Kit {
// Fills `path` with `fill` and draws its outline in ink.
void outlined(QPainter& p, const QPainterPath& path, const QColor& fill);
void outlinedRect(QPainter& p, const QRectF& centreLine, const QColor& fill, qreal radius = 0);
void fillRect(QPainter& p, const QRectF& rect, const QColor& colour);
void line(QPainter& p, QPointF from, QPointF to, const QColor& colour, qreal width,
          Qt::PenCapStyle cap = Qt::RoundCap);

// A drop with its point at `tip`, its round part about `centre` with `radius`.
QPainterPath drop(QPointF tip, QPointF centre, qreal radius);

void folder(QPainter& p);
void printer(QPainter& p);
void labelFile(QPainter& p);
void cycle(QPainter& p);

// A white sign of the given kind, centred on `centre`, `scale` 1 for a badge 16 units across.
void sign(QPainter& p, Badge kind, QPointF centre, qreal scale);
void badge(QPainter& p, Badge kind);
} // namespace Kit
