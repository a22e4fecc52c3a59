#pragma once
#include <QString>
#include <QList>

// The menu items of the main window: name, caption, shortcut and the right that guards it.
struct MenuCommand {
    QString menu;     // top-level menu caption
    QString name;     // mnu... objectName; empty for a separator
    QString caption;
    QString shortcut; // "F2" ...
    QString right;    // permission code, empty when unguarded
    bool checkable = false;
};

const QList<MenuCommand>& MenuCommands();

struct ToolCommand {
    QString key;     // compared in upper case
    QString caption;
    QString glyph;
    QString color;
};

const QList<ToolCommand>& ToolCommands();
