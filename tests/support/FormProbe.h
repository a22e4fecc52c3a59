#pragma once
#include <QObject>
#include <QtGlobal>

// The control of a form by its objectName; a test stops at once when the form has none.
template <class T> T* child(QObject* form, const char* name) {
    T* c = form->findChild<T*>(QLatin1String(name));
    if (!c) qFatal("no control %s", name);
    return c;
}
template <class T> T* child(QObject& form, const char* name) {
    return child<T>(&form, name);
}
