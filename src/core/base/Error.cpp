// SPDX-License-Identifier: MIT
#include <zolt/Error.h>

namespace zolt {

Error::Error(qint32 number)
    : Error(number, standardDescription(number))
{
}

Error::Error(qint32 number, const QString &description)
    : m_number(number)
    , m_description(description)
    , m_what(description.toUtf8())
{
}

ErrorCode Error::code() const noexcept
{
    switch (m_number) {
    case 0: return ErrorCode::NoError;
    case InvalidArgument: return ErrorCode::InvalidArgument;
    case Overflow: return ErrorCode::Overflow;
    case TypeMismatch: return ErrorCode::TypeMismatch;
    case InvalidPropertyValue: return ErrorCode::InvalidPropertyValue;
    case InvalidPropertyIndex: return ErrorCode::InvalidPropertyIndex;
    case NoCurrentRecord: return ErrorCode::NoCurrentRecord;
    case ItemNotFound: return ErrorCode::ItemNotFound;
    case DuplicateKey: return ErrorCode::DuplicateKey;
    case DatabaseFailure: return ErrorCode::DatabaseFailure;
    case ServerUnreachable: return ErrorCode::ServerUnreachable;
    case OutOfMemory: return ErrorCode::OutOfMemory;
    default: return ErrorCode::Other;
    }
}

QString Error::standardDescription(qint32 number)
{
    switch (number) {
    case InvalidArgument: return QStringLiteral("Invalid procedure call or argument");
    case Overflow: return QStringLiteral("Overflow");
    case OutOfMemory: return QStringLiteral("Out of memory");
    case TypeMismatch: return QStringLiteral("Type mismatch");
    case InvalidPropertyValue: return QStringLiteral("Invalid property value");
    case InvalidPropertyIndex: return QStringLiteral("Invalid property array index");
    case DuplicateKey:
        return QStringLiteral("This key is already associated with an element of this collection");
    case NoCurrentRecord:
        return QStringLiteral("Either BOF or EOF is True, or the current record has been deleted. "
                              "Requested operation requires a current record.");
    case ItemNotFound:
        return QStringLiteral("Item cannot be found in the collection corresponding to the "
                              "requested name or ordinal.");
    default: return QStringLiteral("Application-defined or object-defined error");
    }
}

} // namespace zolt
