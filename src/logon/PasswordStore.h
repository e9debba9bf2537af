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

// The code of the user called name when password opens the account, else 0;
// upgrades a legacy digest that opened it to a hash, and a hash made with
// weaker limits to the present ones. As long whether the name exists or not.
// A failing database raises zolt::Error; an upgrade that fails changes nothing.
qint32 StrongLogon(const QString &name, const QString &password, const PasswordPolicy &policy);

} // namespace zolt
