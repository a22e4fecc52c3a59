#pragma once
#include "Db.h"
#include <QDateTime>
#include <QString>
#include <QTemporaryDir>

// A fresh venue for one test: temporary folder, seeded database on the backend the test
// run asks for (SINGBOX_TEST_BACKEND=sqlite|pg), a fixed clock, and the built-in
// administrator signed in. On PostgreSQL each test process works in its own schema.
class TestVenue {
  public:
    TestVenue();
    ~TestVenue();
    // False when the run asks for PostgreSQL and no server is configured.
    bool open(Db& db = DB());
    DbConfig config() const { return m_config; }
    QString home() const { return m_dir.path(); }
    static QDateTime fixedNow() { return QDateTime(QDate(2026, 11, 21), QTime(20, 0)); }
    static bool isPg();

  private:
    QTemporaryDir m_dir;
    DbConfig m_config;
};

#define OPEN_VENUE(venue)                                                                                    \
    do {                                                                                                     \
        if (!(venue).open()) QSKIP("PostgreSQL test server not configured (SINGBOX_TEST_PG)");               \
    } while (0)

// Declares and opens a venue in one go, skipping the test where OPEN_VENUE would.
#define NEW_VENUE(venue)                                                                                     \
    TestVenue venue;                                                                                         \
    OPEN_VENUE(venue)

// The texts of the messages shown since the last call.
QStringList messages();
