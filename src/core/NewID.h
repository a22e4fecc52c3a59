#pragma once
#include <QString>

// A new row key: the present time "yyyyMMddHHmmss" and a process counter "00" that runs
// 01..100 and starts again, so the hundredth key of a run has seventeen digits.
// Keys made on two workstations in the same second can meet; inserts retry on that.
QString NewID();

// The text from its second character on: list keys are "K" + id.
QString StripKey(const QString& key);
