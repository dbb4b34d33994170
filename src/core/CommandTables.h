#pragma once

#include <QStringList>

// The commands the control offers its host: one row a command, fields joined by line feeds,
// built anew at each call so that the texts follow the catalogue.

// 14 rows: command, caption, key, tip, status text, flag, icon, number.
QStringList GetToolbarConfiguration();
// 12 rows: marks that divide the host's menus, and command rows as the toolbar's behind a
// leading "0".
QStringList GetMenuConfiguration();
