#pragma once
#include <QDateTime>

class Db;

// Fills a seeded database with a large venue for benchmarks: room types, rooms, goods
// types, goods, member classes, members, a span of settled bills with their lines,
// top-ups and stock receipts, and optionally open bills. Deterministic for one seed. Each
// day is written in a transaction of its own, so a year of millions of lines stays small
// in the write-ahead log.
struct VenueSize {
    int roomTypes = 12;
    int rooms = 300;
    int wareTypes = 40;
    int wares = 2000;
    int members = 2000;
    int days = 365;
    int billsPerDay = 60;
    int linesPerBill = 8;
    int openBills = 0;       // rooms left in use, each with `openLines` lines
    int openLines = 20;
    // A busy venue's year: counter sales of three lines a day, bills free (1 in 20) and
    // deferred (1 in 15) besides paid ones, lines credited to `employees` staff with their
    // commission, each day's takings reconciled at its end.
    int salesPerDay = 0;
    bool mixedSettlements = false;
    int employees = 0;
    bool reconcileDaily = false;
    QDateTime end = QDateTime(QDate(2026, 11, 21), QTime(20, 0));
    quint32 seed = 20261121;
};

struct GeneratedVenue {
    QStringList roomIds;
    QStringList openBillIds;
    QStringList wareIds;
    QStringList memberCodes;
    int settledBills = 0;
    int lines = 0;
    int sales = 0;
};

GeneratedVenue GenerateVenue(Db& db, const VenueSize& size = {});
