#pragma once
#include <QString>

class Db;

namespace Schema {
// The newest database version this program knows.
int latestVersion();
// The version a database holds (0 for an empty one).
int currentVersion(Db& db);
// Brings the database to the newest version, each step in one transaction, and makes sure
// the built-in administrator exists with every right. Returns the steps applied.
int migrate(Db& db);
} // namespace Schema
