#pragma once
#include <QDateTime>

class Db;

// Fills a seeded database with a large venue for benchmarks: room types, rooms, goods
// types, goods, member classes, members, a span of settled bills with their lines,
// top-ups and stock receipts, and optionally open bills. Deterministic for one seed.
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
};

GeneratedVenue GenerateVenue(Db& db, const VenueSize& size = {});
