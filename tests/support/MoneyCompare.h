#pragma once
#include "Money.h"
#include <QTest>

// Money in a failed comparison, as plain yuan.
inline char* toString(const Money& m) {
    return QTest::toString(m.toPlain());
}
