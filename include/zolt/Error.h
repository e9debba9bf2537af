// SPDX-License-Identifier: MIT
#pragma once

#include <zolt/zolt_export.h>

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <exception>

namespace zolt {

/// The kinds of error the library reports, one enumeration for all of them:
/// what a host's code tells apart. zolt::Error::code() gives the kind of an
/// error raised; the classic numbers ported code expects stay in number().
enum class ErrorCode : qint32 {
    NoError = 0,           ///< no error
    InvalidArgument,       ///< an argument the call cannot take (number 5)
    Overflow,              ///< a number beyond its type (6)
    TypeMismatch,          ///< a value of the wrong type, a connection without a driver (13)
    InvalidPropertyValue,  ///< a property set to a value it cannot take (380)
    InvalidPropertyIndex,  ///< a list index out of range (381)
    NoCurrentRecord,       ///< a field read while the record set is at its end (3021)
    ItemNotFound,          ///< a field name or position the record set does not have (3265)
    DuplicateKey,          ///< a key already in a collection (457)
    DatabaseFailure,       ///< a statement the engine refused (-2147217900), with the engine's words
    ServerUnreachable,     ///< the server went away (-2147467259); the library opens the connection again when it can
    OutOfMemory,           ///< memory for a password's hash could not be had, or libsodium could not start (7)
    Other                  ///< a number of the host's own or of no kind above
};

/// The one error type the library raises: a number and a description, as the
/// classic runtime's Err object carried them, and the kind of error.
class ZOLT_EXPORT Error : public std::exception {
public:
    /// The classic runtime's numbers of the errors the library raises.
    enum Number : qint32 {
        InvalidArgument = 5,        ///< invalid procedure call or argument
        Overflow = 6,               ///< a number beyond its type
        OutOfMemory = 7,            ///< memory could not be had
        TypeMismatch = 13,          ///< a value of the wrong type
        InvalidPropertyValue = 380, ///< a property set to a value it cannot take
        InvalidPropertyIndex = 381, ///< a list index out of range
        NoCurrentRecord = 3021,     ///< a field read while the record set is at its end
        ItemNotFound = 3265,        ///< a field name or position the record set does not have
        DuplicateKey = 457,         ///< key already associated with an element of a collection
        DatabaseFailure = -2147217900,    ///< a statement the engine refused
        ServerUnreachable = -2147467259   ///< the server went away; the library opens the connection again when it can
    };

    /// An error with the runtime's own description of the number.
    explicit Error(qint32 number);
    /// An error with a description of its own (the engine's words, a sentence for the clerk).
    Error(qint32 number, const QString &description);

    /// The classic number, as code ported from the original program tests it.
    qint32 number() const noexcept { return m_number; }
    /// The kind of error, for a switch; Other for a number of no known kind.
    ErrorCode code() const noexcept;
    /// What went wrong, as the user may be told.
    QString description() const { return m_description; }
    /// The description in UTF-8.
    const char *what() const noexcept override { return m_what.constData(); }

    /// The classic runtime's own description of a number ("Type mismatch").
    static QString standardDescription(qint32 number);

private:
    qint32 m_number;
    QString m_description;
    QByteArray m_what;
};

} // namespace zolt
