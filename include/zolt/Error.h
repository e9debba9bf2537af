// SPDX-License-Identifier: MIT
#pragma once

#include <zolt/zolt_export.h>

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <exception>

namespace zolt {

// The one error type the library raises: a number and a description, as the
// classic runtime's Err object carried them.
class ZOLT_EXPORT Error : public std::exception {
public:
    enum Number : qint32 {
        InvalidArgument = 5,        // invalid procedure call or argument
        Overflow = 6,
        TypeMismatch = 13,
        InvalidPropertyValue = 380,
        InvalidPropertyIndex = 381,
        NoCurrentRecord = 3021,     // a field read while the record set is at its end
        ItemNotFound = 3265,        // a field name or position the record set does not have
        DuplicateKey = 457,         // key already associated with an element of a collection
        DatabaseFailure = -2147217900,
        ServerUnreachable = -2147467259   // the server went away; the library opens the connection again when it can
    };

    // An error with the runtime's own description of the number.
    explicit Error(qint32 number);
    Error(qint32 number, const QString &description);

    qint32 number() const noexcept { return m_number; }
    QString description() const { return m_description; }
    const char *what() const noexcept override { return m_what.constData(); }

    static QString standardDescription(qint32 number);

private:
    qint32 m_number;
    QString m_description;
    QByteArray m_what;
};

} // namespace zolt
