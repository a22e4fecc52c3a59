#include "ScreenFit.h"
#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QWidget>

namespace {
// A title bar and borders the window system adds, when the window has none yet to measure.
const QSize LeastFrame(16, 40);

QScreen* screenOf(const QWidget* window) {
    if (const QWidget* p = window->parentWidget())
        if (QScreen* s = p->window()->screen()) return s;
    if (QScreen* s = window->screen()) return s;
    return QApplication::primaryScreen();
}

bool fits(const QWidget* w) {
    return w->isWindow() && !w->isMaximized() && !w->isFullScreen() &&
           (w->windowType() == Qt::Dialog || w->windowType() == Qt::Window || w->windowType() == Qt::Sheet);
}

void fitWindow(QWidget* window, const QSize& preferred) {
    const QScreen* screen = screenOf(window);
    if (!screen) return;
    const QRect avail = screen->availableGeometry();
    const QSize room = ScreenFit::room(window);
    // The preferred size, or what the layout asks for where that is more, as far as it fits.
    const QSize want =
        (preferred.isValid() ? preferred.expandedTo(window->sizeHint()) : window->size()).boundedTo(room);
    window->resize(want.expandedTo(window->minimumSizeHint().boundedTo(room)));
    // Inside the screen, frame included; over the middle of the parent where it has one.
    const QSize frame = (window->frameGeometry().size() - window->geometry().size()).expandedTo(LeastFrame);
    QRect r(window->pos(), window->size() + frame);
    if (const QWidget* p = window->parentWidget()) r.moveCenter(p->window()->frameGeometry().center());
    if (r.right() > avail.right()) r.moveRight(avail.right());
    if (r.bottom() > avail.bottom()) r.moveBottom(avail.bottom());
    if (r.left() < avail.left()) r.moveLeft(avail.left());
    if (r.top() < avail.top()) r.moveTop(avail.top());
    window->move(r.topLeft());
}

class Fitter : public QObject {
  public:
    Fitter(QWidget* window, const QSize& preferred)
        : QObject(window), m_window(window), m_preferred(preferred) {
        window->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == m_window && event->type() == QEvent::Show && fits(m_window))
            fitWindow(m_window, m_preferred);
        return false;
    }

  private:
    QWidget* m_window;
    QSize m_preferred;
};

// Fits whatever window is shown, at its own size.
class AllWindows : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->isWidgetType()) {
            auto* w = static_cast<QWidget*>(watched);
            if (fits(w)) fitWindow(w, {});
        }
        return false;
    }
};
} // namespace

namespace ScreenFit {
void installForAllWindows() {
    static AllWindows* filter = nullptr;
    if (filter) return;
    filter = new AllWindows(qApp);
    qApp->installEventFilter(filter);
}

void install(QWidget* window, const QSize& preferred) {
    new Fitter(window, preferred);
}

QSize room(const QWidget* window) {
    const QScreen* screen = screenOf(window);
    if (!screen) return QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    const QSize frame = (window->frameGeometry().size() - window->geometry().size()).expandedTo(LeastFrame);
    return screen->availableGeometry().size() - frame;
}

QScrollArea* scrollable(QWidget* content, QWidget* parent) {
    auto* area = new QScrollArea(parent);
    area->setObjectName(content->objectName() + QStringLiteral("Scroll"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus); // Tab and Enter go from box to box, not to the frame
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(content);
    // As tall as its content where there is room, and it gives way first where there is not.
    // At least a line of boxes, however little room there is.
    area->setMinimumHeight(area->fontMetrics().height() * 2);
    // Only up and down: never narrower than the content with room for the scroll bar.
    area->setMinimumWidth(content->minimumSizeHint().width() + area->verticalScrollBar()->sizeHint().width());
    area->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    // The box that gets the focus scrolls into sight, however it got there.
    QObject::connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* now) {
        if (now && area->widget() && area->widget()->isAncestorOf(now)) area->ensureWidgetVisible(now, 4, 4);
    });
    return area;
}
} // namespace ScreenFit

namespace ScreenFit {
QScrollArea* scrollItems(QBoxLayout* layout, int first, int end, const QString& name) {
    if (end < 0) end = layout->count();
    auto* content = new QWidget(layout->parentWidget());
    content->setObjectName(name);
    auto* lay = new QVBoxLayout(content);
    lay->setContentsMargins(0, 0, 0, 0);
    lay->setSpacing(layout->spacing());
    for (int i = first; i < end; ++i) {
        QLayoutItem* item = layout->takeAt(first);
        if (QWidget* w = item->widget()) {
            lay->addWidget(w, 0, item->alignment());
            delete item;
        } else if (QLayout* l = item->layout()) {
            lay->addLayout(l);
        } else {
            lay->addItem(item);
        }
    }
    QScrollArea* area = scrollable(content, layout->parentWidget());
    layout->insertWidget(first, area, 1);
    return area;
}
} // namespace ScreenFit
