#pragma once

#include <QImage>
#include <QList>
#include <QString>

// One picture of the program: its file name without ".ico", and how it is drawn on the grid
// of 32 units.
struct IconArt
{
    QString name;
    void (*draw)(QPainter&);
};

// Every icon, in the order of the contact sheet: tree and printers, toolbar, ink, log, program.
const QList<IconArt>& allIcons();

// The picture drawn at `size` pixels square, on a transparent ground.
QImage render(const IconArt& art, int size);
