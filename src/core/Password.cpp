#include "Password.h"
#include <sodium.h>
#include <stdexcept>

namespace {
void ensureInit() {
    static const bool ok = sodium_init() >= 0;
    if (!ok) throw std::runtime_error("libsodium could not be initialised");
}
} // namespace

namespace Password {
QString hash(const QString& plain) {
    ensureInit();
    const QByteArray p = plain.toUtf8();
    char out[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(out, p.constData(), quint64(p.size()), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw std::runtime_error("out of memory while hashing a password");
    return QString::fromLatin1(out);
}

bool verify(const QString& stored, const QString& plain) {
    ensureInit();
    const QByteArray s = stored.toLatin1();
    if (!s.startsWith("$argon2")) return false;
    const QByteArray p = plain.toUtf8();
    return crypto_pwhash_str_verify(s.constData(), p.constData(), quint64(p.size())) == 0;
}

bool needsRehash(const QString& stored) {
    ensureInit();
    const QByteArray s = stored.toLatin1();
    return crypto_pwhash_str_needs_rehash(s.constData(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0;
}
} // namespace Password
