#pragma once
#include "Db.h"
#include <QString>
#include <QStringList>

// The venue several tills work on at once: named rooms, bills and cards made per round of a
// scenario, the worker's own way to run a scenario's round, and the invariants that must hold
// whatever the tills did.
namespace Race {

// Every scenario the worker knows; "mixed" runs random operations until killed.
QStringList scenarios();
// How many of the workers' attempts in one round may succeed: -1 any number, else exactly.
int expectedWins(const QString& scenario, int workers);

// Makes the rooms, bills and cards of every round of `scenario`.
void prepare(Db& db, const QString& scenario, int rounds, int workers);
// One worker's part of one round. Returns "OK", or the refusal shown to the cashier.
QString play(const QString& scenario, int round, int worker, int workers);
// One random operation of the mixed load (open, order, check out with its slip, top up,
// change room), with its refusal or "OK".
QString playMixed(quint32 seed);
void prepareMixed(Db& db);

// The broken invariants, each as a line; empty when all hold. Each check is one statement,
// so it can run while the tills go on working.
QStringList brokenInvariants(Db& db);
// Whether a refusal text shown to a cashier carries database text.
bool isRawError(const QString& text);

} // namespace Race
