#pragma once
#include "Db.h"
#include <QString>

// Everything a venue owns lives in one folder: Data/dat.db, DBBackup/, config.ini,
// Export/, Other/, Update/.
namespace Venue {
// --home, else SINGBOX_HOME, else the program's folder when writable and not a shared bin
// folder such as /usr/bin, else the platform's application-data folder.
QString resolveHome(const QString& fromCommandLine);
// Creates the folders and a config.ini with the shipped help texts when missing.
void prepare(const QString& home);
QString databaseFile(const QString& home);

// The database link of this workstation, kept in config.ini: DBType 0 embedded file,
// 1 PostgreSQL server with DBServer, DBPort, DBName, DBUser, DBPassword and, for several
// venues on one server, DBSchema.
DbConfig connection(const QString& home);
bool saveConnection(const QString& home, const DbConfig& config);

// Opens `db` on the venue's database and brings it to the newest version. Throws DbError.
void openAndUpgrade(Db& db, const DbConfig& config);
} // namespace Venue
