#pragma once
#include <QSize>

class QWidget;
class QBoxLayout;
class QScrollArea;
class QString;

// Windows that fit the screen they open on, whatever its size and scaling.
namespace ScreenFit {
// Each time `window` is shown it takes `preferred` (its present size when empty) as far as
// the available screen allows, never more, and is placed inside that screen.
void install(QWidget* window, const QSize& preferred = {});
// Every top-level window of the program fits its screen when shown (a maximized one is
// the window system's business).
void installForAllWindows();
// The screen area a window of `window`'s may use: the available area less the frame.
QSize room(const QWidget* window);
// Puts `content` into a frameless scroll area that scrolls only when the window is too
// small for it; the scroll area takes its place in the caller's layout.
QScrollArea* scrollable(QWidget* content, QWidget* parent);
// Moves the items of `layout` from `first` up to but not including `end` into one scrollable
// part in their place; the items after it (the buttons) stay put. `end` -1 is the end.
QScrollArea* scrollItems(QBoxLayout* layout, int first, int end, const QString& name);
} // namespace ScreenFit
