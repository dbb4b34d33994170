#pragma once

#include <QImage>

// The demo's picture of a packing line, drawn with the icons' shapes and palette: bottles
// running left to right on a conveyor through filling, capping and labelling, to a pallet
// at the end, with the line's office below. Dashboards show it behind their shortcuts; each
// machine leaves room for a shortcut above it and one below the belt.
namespace LineArt {
QImage draw();
} // namespace LineArt
