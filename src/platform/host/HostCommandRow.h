#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// One row of the control's toolbar or menu table, read by the host: a command with what to
// show for it, or a mark that starts a new menu.
struct HostCommandRow
{
    // A command's name; empty for a mark.
    QString command;
    QString caption;
    QString key;
    QString tip;
    QString status;
    bool flag = false;
    QString iconPath;
    int number = 0;
    // A mark's number ("-1", "-3" ...) and its title, if it has one.
    int mark = 0;
    QString markTitle;

    bool isMark() const { return command.isEmpty(); }

    // A toolbar row: eight fields joined by line feeds. None when it can't be read.
    static std::optional<HostCommandRow> fromToolbarRow(const QString& row);
    // A menu row: a mark, or "0" followed by the eight fields of a toolbar row.
    static std::optional<HostCommandRow> fromMenuRow(const QString& row);
};
