#pragma once
#include <QTest>
#include <tuple>

// The columns of a data-driven test in one line: columns<QString, int>("name", "count").
template <class... T, class... N> void columns(N... names) {
    static_assert(sizeof...(T) == sizeof...(N), "one name per column");
    (QTest::addColumn<T>(names), ...);
}

// Their values in the test, as QFETCH gives them: auto [name, count] = fetch<QString, int>("name", "count").
template <class... T, class... N> std::tuple<T...> fetch(N... names) {
    static_assert(sizeof...(T) == sizeof...(N), "one name per column");
    return {*static_cast<T*>(QTest::qData(names, ::qMetaTypeId<T>()))...};
}
