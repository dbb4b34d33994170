#pragma once

#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>

class clsComponent;

// Where a dashboard keeps its shortcuts: in its node's stored settings, four keys a printer,
// "Shortcut:", the printer's id, "." and "top", "left", "width" or "height", each the edge or
// size in twips as decimal text. The size is stored for the record; a shortcut's size always
// comes from its contents.
class ShortcutKeys
{
public:
    inline static const QString Prefix = QStringLiteral("Shortcut:");

    explicit ShortcutKeys(clsComponent& dashboard);

    void write(const QString& sID, const QRect& twips) const;
    void remove(const QString& sID) const;
    // The stored top left corner, rounded to whole twips; a value that isn't a number
    // counts as 0.
    QPoint topLeft(const QString& sID) const;
    // The printers with keys, in the order of their first key.
    QStringList ids() const;

private:
    static QString keyOf(const QString& sID, const char* edge);

    clsComponent& m_dashboard;
};
