#pragma once
#include <QString>

// Operator and member card passwords are kept as Argon2id hashes (libsodium, interactive
// limits). An empty password is hashed too. Matching is exact and case-sensitive.
namespace Password {
QString hash(const QString& plain);
bool verify(const QString& stored, const QString& plain);
// True when the stored hash was made with other limits and should be made anew.
bool needsRehash(const QString& stored);
} // namespace Password
