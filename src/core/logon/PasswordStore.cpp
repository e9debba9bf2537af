// SPDX-License-Identifier: MIT
#include "core/logon/PasswordStore.h"

#include "core/base/Conversions.h"
#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/database/Recordset.h"
#include "core/logon/MdlLogon.h"

#include <zolt/Error.h>

#include <QRegularExpression>

#include <sodium.h>

namespace zolt {

namespace {

QByteArray secretOf(const QString &password, const PasswordPolicy &policy)
{
    return (policy.caseSensitive ? password : UCase(password)).toUtf8();
}

// The prefix by which a locked server marks what it keeps of a hash: the
// parameters and salt, then the SHA-256 of the hash in hexadecimal.
const QString LockedPrefix = QStringLiteral("$zolt-sha256");

QString sha256Hex(const QByteArray &bytes)
{
    unsigned char digest[crypto_hash_sha256_BYTES];
    crypto_hash_sha256(digest, reinterpret_cast<const unsigned char *>(bytes.constData()), quint64(bytes.size()));
    return QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(digest), sizeof digest).toHex());
}

bool verify(const QString &hash, const QString &password, const PasswordPolicy &policy)
{
    if (hash.startsWith(LockedPrefix)) {
        const qsizetype cut = hash.lastIndexOf(u'$');
        const QString derived = DerivedHash(password, policy, hash.mid(LockedPrefix.size(), cut - LockedPrefix.size()));
        return !derived.isEmpty() && sha256Hex(QByteArray::fromHex(derived.toLatin1())) == hash.mid(cut + 1);
    }
    const QByteArray stored = hash.toLatin1();
    const QByteArray secret = secretOf(password, policy);
    return crypto_pwhash_str_verify(stored.constData(), secret.constData(), quint64(secret.size())) == 0;
}

// A hash that no typed password opens, verified for a name that has none, so
// that an unknown name takes as long as a wrong password.
const QString &dummyHash()
{
    static const QString hash = [] {
        unsigned char random[32];
        randombytes_buf(random, sizeof random);
        return HashPassword(QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(random), sizeof random).toHex()),
                            PasswordPolicy{true, true});
    }();
    return hash;
}

bool legacyDigestOpens(double digest, const QString &password)
{
    try {
        return digest == EncodePassword(password);
    } catch (const Error &) {
        return false;   // too long to have a digest
    }
}

// Stores the hash, and NoDigest in place of the digest, only while the row
// still holds what was read: one statement, so a failure leaves it whole.
void storeHash(qint32 code, const QString &readDigest, const QString &hash)
{
    Execute(QStringLiteral("UPDATE [User] Set [Password]=") + DoubleToText(NoDigest) + QStringLiteral(",PasswordHash='")
            + hash + QStringLiteral("' Where Code=") + QString::number(code) + QStringLiteral(" And [Password]=")
            + readDigest);
}

} // namespace

PasswordPolicy ReadPasswordPolicy()
{
    PasswordPolicy policy;
    policy.strong = ReadOption(QStringLiteral("Config"), QStringLiteral("PasswordStore"), QStringLiteral("legacy"))
                        .compare(QLatin1String("argon2id"), Qt::CaseInsensitive) == 0;
    policy.caseSensitive = ReadOption(QStringLiteral("Config"), QStringLiteral("PasswordCaseSensitive"), QString()) == u'1';
    return policy;
}

QString HashPassword(const QString &password, const PasswordPolicy &policy)
{
    if (sodium_init() < 0)
        throw Error(Error::OutOfMemory, QStringLiteral("libsodium could not start"));
    const QByteArray secret = secretOf(password, policy);
    char hash[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(hash, secret.constData(), quint64(secret.size()), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw Error(Error::OutOfMemory);
    return QString::fromLatin1(hash);
}

QString DerivedHash(const QString &password, const PasswordPolicy &policy, const QString &params)
{
    static const QRegularExpression shape(QStringLiteral(R"(^\$argon2id\$v=19\$m=(\d{1,9}),t=(\d{1,4}),p=1\$([A-Za-z0-9+/]{16,64})$)"));
    const QRegularExpressionMatch match = shape.match(params);
    if (!match.hasMatch())
        return {};
    const QByteArray saltText = match.captured(3).toLatin1();
    unsigned char salt[crypto_pwhash_SALTBYTES];
    size_t saltSize = 0;
    if (sodium_base642bin(salt, sizeof salt, saltText.constData(), size_t(saltText.size()), nullptr, &saltSize, nullptr,
                          sodium_base64_VARIANT_ORIGINAL_NO_PADDING) != 0
        || saltSize != sizeof salt)
        return {};
    const QByteArray secret = secretOf(password, policy);
    unsigned char derived[32];
    if (sodium_init() < 0
        || crypto_pwhash(derived, sizeof derived, secret.constData(), quint64(secret.size()), salt,
                         match.captured(2).toULongLong(), size_t(match.captured(1).toULongLong()) * 1024,
                         crypto_pwhash_ALG_ARGON2ID13) != 0)
        throw Error(Error::OutOfMemory);
    return QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(derived), sizeof derived).toHex());
}

QString NewPasswordProof(const QString &password, const PasswordPolicy &policy)
{
    if (sodium_init() < 0)
        throw Error(Error::OutOfMemory, QStringLiteral("libsodium could not start"));
    unsigned char salt[crypto_pwhash_SALTBYTES];
    randombytes_buf(salt, sizeof salt);
    char saltText[sodium_base64_ENCODED_LEN(crypto_pwhash_SALTBYTES, sodium_base64_VARIANT_ORIGINAL_NO_PADDING)];
    sodium_bin2base64(saltText, sizeof saltText, salt, sizeof salt, sodium_base64_VARIANT_ORIGINAL_NO_PADDING);
    const QString params = QStringLiteral("$argon2id$v=19$m=%1,t=%2,p=1$%3")
                               .arg(crypto_pwhash_MEMLIMIT_INTERACTIVE / 1024)
                               .arg(crypto_pwhash_OPSLIMIT_INTERACTIVE)
                               .arg(QLatin1String(saltText));
    return params + u'$' + DerivedHash(password, policy, params);
}

qint32 StrongLogon(const QString &name, const QString &password, const PasswordPolicy &policy)
{
    Recordset rs;
    if (rs.Open(QStringLiteral("SELECT Code,[Password],PasswordHash FROM [User] WHERE [Name]='") + name
                + QLatin1Char('\'')) != 0)
        throw Error(Error::DatabaseFailure, rs.LastErrorText());
    const bool found = !rs.Eof();
    const QString hash = found ? NullToStr(rs.Value(2)) : QString();
    if (hash.isEmpty()) {
        // No hash yet: the legacy digest opens the account once, and the hash takes its place.
        verify(dummyHash(), password, policy);
        const double digest = found ? rs.Value(1).toDouble() : NoDigest;
        if (digest == NoDigest || !legacyDigestOpens(digest, password))
            return 0;
        const qint32 code = RoundToLong(ToDouble(rs.Value(0)));
        storeHash(code, DoubleToText(digest), HashPassword(password, policy));
        return code;
    }
    if (!verify(hash, password, policy))
        return 0;
    const qint32 code = RoundToLong(ToDouble(rs.Value(0)));
    if (hash.startsWith(LockedPrefix)
        || crypto_pwhash_str_needs_rehash(hash.toLatin1().constData(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        Execute(QStringLiteral("UPDATE [User] Set PasswordHash='") + HashPassword(password, policy)
                + QStringLiteral("' Where Code=") + QString::number(code));
    return code;
}

} // namespace zolt
