#pragma once
#include <QString>
#include <QList>
#include <QStringList>

// The commands of the main window, one table for the menus, the toolbar and the home page's
// "#" links: name, caption, shortcut, the right that guards it and the home page's words for
// it. A command with no menu caption is reached from the home page (or the toolbar) only.
struct MenuCommand {
    QString menu;     // top-level menu caption; empty: not in the menus
    QString name;     // mnu... objectName; empty for a separator
    QString caption;
    QString shortcut; // "F2" ...
    QString right;    // permission code, empty when unguarded
    bool checkable = false;
    QStringList words = {}; // the home page's command words, lower case
};

const QList<MenuCommand>& MenuCommands();
// The command a home page word names, letter case aside; nothing for an unknown word.
const MenuCommand* CommandForWord(const QString& word);

struct ToolCommand {
    QString key;     // compared in upper case
    QString caption;
    QString glyph;
    QString color;
};

const QList<ToolCommand>& ToolCommands();
