#pragma once
#include "ListColumns.h"
#include "Refusal.h"
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QStringList>
#include <QTest>
#include <QTreeWidget>
#include <QtGlobal>
#include <initializer_list>

// The control of a form by its objectName; a test stops at once when the form has none.
template <class T> T* child(QObject* form, const char* name) {
    T* c = form->findChild<T*>(QLatin1String(name));
    if (!c) qFatal("no control %s", name);
    return c;
}
template <class T> T* child(QObject& form, const char* name) {
    return child<T>(&form, name);
}

// What the named boxes, labels, lists and buttons of a form show, joined by '|': one
// comparison for a whole group of controls.
inline QString texts(QObject* form, std::initializer_list<const char*> names) {
    QStringList out;
    for (const char* name : names) {
        QObject* c = child<QObject>(form, name);
        if (auto* e = qobject_cast<QLineEdit*>(c))
            out << e->text();
        else if (auto* l = qobject_cast<QLabel*>(c))
            out << l->text();
        else if (auto* b = qobject_cast<QComboBox*>(c))
            out << b->currentText();
        else if (auto* a = qobject_cast<QAbstractButton*>(c))
            out << a->text();
        else
            qFatal("no text in control %s", name);
    }
    return out.join(QLatin1Char('|'));
}
inline QString texts(QObject& form, std::initializer_list<const char*> names) {
    return texts(&form, names);
}

// A refusal as its message and the field it points at, or empty when there is none; the
// second form builds the expected one from a table's columns.
inline QString refusal(const Refused& r) {
    return r ? r->message + QStringLiteral(" @") + r->field : QString();
}
inline QString refusal(const QString& message, const QString& field) {
    return message.isEmpty() ? QString() : message + QStringLiteral(" @") + field;
}

// The objectName of the control that has the keyboard focus.
inline QString focused() {
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}
// Shown and active, so typed keys reach it.
inline void showActive(QWidget& w) {
    w.show();
    QVERIFY(QTest::qWaitForWindowActive(&w));
}
// Picks the item of that text as a click does.
inline void choose(QComboBox* c, const QString& text) {
    c->setCurrentIndex(c->findText(text));
    Q_EMIT c->activated(c->currentIndex());
}
// With SINGBOX_SHOTS naming a folder, forms are also saved there as pictures to look at.
inline void look(QWidget& w, const QString& name) {
    const QString dir = qEnvironmentVariable("SINGBOX_SHOTS");
    if (dir.isEmpty()) return;
    QDir().mkpath(dir);
    w.grab().save(QDir(dir).filePath(name + QStringLiteral(".png")));
}

// The texts a list shows under the column of a field, row by row.
inline QStringList column(const QTreeWidget* list, const QString& field) {
    QStringList out;
    const int c = ListColumn(list, field);
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    return out;
}
// The keys of a list's rows, as ShowList stores them.
inline QStringList keys(const QTreeWidget* list) {
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->data(0, Qt::UserRole).toString();
    return out;
}
// Makes the row showing `text` under the column of `field` the current one.
inline void selectRow(QTreeWidget* list, const QString& field, const QString& text) {
    const QList<QTreeWidgetItem*> found = list->findItems(text, Qt::MatchExactly, ListColumn(list, field));
    QVERIFY(!found.isEmpty());
    list->setCurrentItem(found.first());
}
