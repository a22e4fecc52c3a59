#pragma once
#include <QString>

// What a file chosen for a restore holds.
struct RestoreCheck {
    QString refusal; // why it cannot be restored; empty when it can
    int version = 0; // its dbver
    bool ok() const { return refusal.isEmpty(); }
};

// Reads the file without changing it: an undamaged SQLite database, complete to its last
// page, with the tables of this system and a dbver from 1 to `newestVersion`.
RestoreCheck CheckRestoreFile(const QString& path, int newestVersion);
