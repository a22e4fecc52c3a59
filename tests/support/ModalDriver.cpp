#include "ModalDriver.h"
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>

namespace {
void watch(const QString& name, bool closeAfter, std::function<void(QDialog*)> act) {
    auto* timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, name, closeAfter, act] {
        auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!d || (!name.isEmpty() && d->objectName() != name)) return;
        timer->stop();
        timer->deleteLater();
        // Keys typed into a named dialog need it to be the active window.
        if (closeAfter && !QTest::qWaitForWindowActive(d))
            qWarning("dialog %s did not become active", qPrintable(name));
        act(d);
        // A failed check inside `act` must not leave the test waiting on the dialog.
        if ((closeAfter || QTest::currentTestFailed()) && d->isVisible()) d->reject();
    });
    timer->start();
}
} // namespace

void onModal(std::function<void(QDialog*)> act) {
    watch({}, false, std::move(act));
}

void onModal(const QString& name, std::function<void(QDialog*)> act) {
    watch(name, true, std::move(act));
}
