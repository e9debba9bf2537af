// SPDX-License-Identifier: MIT
#pragma once

// Passwords kept so that they protect, for shops whose every desk runs this
// library: with the option Config/PasswordStore "argon2id", [User] keeps an
// Argon2id hash (libsodium's crypto_pwhash_str, interactive limits) in its
// column PasswordHash, and the legacy digest of a user who has one is
// NoDigest, which no password digests to. Otherwise ("legacy", the default)
// the digest alone, as the original logon kept it.

#include <QString>

namespace zolt {

// A Password column value that no password digests to (digests are never negative).
inline constexpr double NoDigest = -1;

struct PasswordPolicy {
    bool strong = false;          // Config/PasswordStore is "argon2id"
    bool caseSensitive = false;   // Config/PasswordCaseSensitive is "1"
};

// The policy the options of the library's connection set.
PasswordPolicy ReadPasswordPolicy();

// The stored hash of a password: the password upper-cased unless the policy
// is case-sensitive. zolt::Error 7 when the memory for hashing is missing.
QString HashPassword(const QString &password, const PasswordPolicy &policy);

// Argon2id's parameters and salt as libsodium writes them at the head of a
// hash ("$argon2id$v=19$m=65536,t=2,p=1$<salt>"), which a locked server hands
// a desk: the hash the password derives with them, in hexadecimal; "" when
// the parameters are not such. zolt::Error 7 when the memory is missing.
QString DerivedHash(const QString &password, const PasswordPolicy &policy, const QString &params);
// A new password as a locked server takes it: fresh parameters and salt, then
// the hash derived with them.
QString NewPasswordProof(const QString &password, const PasswordPolicy &policy);

// The code of the user called name when password opens the account, else 0;
// upgrades a legacy digest that opened it to a hash, and a hash made with
// weaker limits to the present ones. As long whether the name exists or not.
// A hash a locked server kept (the digest of the derived hash) opens it too.
// A failing database raises zolt::Error; an upgrade that fails changes nothing.
qint32 StrongLogon(const QString &name, const QString &password, const PasswordPolicy &policy);

} // namespace zolt
