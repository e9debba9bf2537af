// SPDX-License-Identifier: MIT
// SeedTables (<zolt/Schema.h>): the first rows of the library's tables, the
// first administrator among them.
#include <zolt/Schema.h>

#include "core/base/Conversions.h"
#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/database/Recordset.h"
#include "core/database/SqlFunc.h"
#include "core/logon/MdlLogon.h"

#include <zolt/Error.h>

namespace zolt {

namespace {

bool exists(const QString &sql)
{
    Recordset rs;
    if (const qint32 n = rs.Open(sql); n != 0)
        throw Error(n, rs.LastErrorText());
    return !rs.Eof();
}

// The comparisons the search wizard offers for each value type.
struct OperatorRow {
    qint32 type;
    const char *name, *words;
};
const OperatorRow Operators[] = {
    {10, "LIKE", "Bắt đầu bằng"}, {10, "=", "Bằng"}, {10, "<>", "Khác"}, {10, "IN", "Thuộc danh sách"},
    {11, "=", "Bằng"}, {11, "LIKE", "Bắt đầu bằng"}, {11, "IN", "Thuộc danh sách"},
    {1, "=", "Bằng"}, {1, "IN", "Thuộc danh sách"},
    {3, "=", "Bằng"}, {3, ">", "Lớn hơn"}, {3, ">=", "Từ"}, {3, "<", "Nhỏ hơn"}, {3, "<=", "Đến"}, {3, "<>", "Khác"},
    {13, "=", "Bằng"}, {13, ">", "Lớn hơn"}, {13, "<", "Nhỏ hơn"},
    {8, "=", "Đúng ngày"}, {8, ">=", "Từ ngày"}, {8, "<=", "Đến ngày"}, {8, ">", "Sau ngày"}, {8, "<", "Trước ngày"},
};

void seedOperators()
{
    Recordset codes;
    codes.Open(QStringLiteral("Select Max(Code) From [Operator]"));
    qint32 code = codes.Eof() ? 0 : codes.Value(0).toInt();
    qint32 typeSeeded = -1;
    for (const OperatorRow &row : Operators) {
        if (row.type != typeSeeded
            && exists(QStringLiteral("Select * From [Operator] Where [Type]=%1").arg(row.type)))
            continue;
        typeSeeded = row.type;
        Execute(QStringLiteral("Insert Into [Operator](Code,[Name],Des,[Type]) Values(%1,%2,%3,%4)")
                    .arg(++code)
                    .arg(SqlValue(QLatin1String(row.name), QStringLiteral("S")),
                         SqlValue(QString::fromUtf8(row.words), QStringLiteral("S")))
                    .arg(row.type));
    }
}

void seedGroup(qint32 code, const QString &name, const QString &description)
{
    if (!exists(QStringLiteral("Select * From [Groups] Where Code=%1").arg(code)))
        Execute(QStringLiteral("Insert Into [Groups](Code,[Name],Des) Values(%1,%2,%3)")
                    .arg(code)
                    .arg(SqlValue(name, QStringLiteral("S")), SqlValue(description, QStringLiteral("S"))));
}

} // namespace

void SeedTables(const QSqlDatabase &db, const QString &adminName, const QString &adminPassword)
{
    UseConnection(db);
    if (BreaksQuotedLiteral(adminName))
        throw Error(Error::InvalidArgument, QStringLiteral("A user's name holds no apostrophe"));
    if (ServerLocked())
        return;   // a locked server was seeded before its owner locked it
    InTransaction(db, [&] {
        seedOperators();
        seedGroup(1, QStringLiteral("Quản trị hệ thống"), QStringLiteral("Mọi quyền"));
        seedGroup(8, QStringLiteral("Người sử dụng"), QStringLiteral("Nhóm của người sử dụng mới"));
        if (!exists(QStringLiteral("Select * From [User] Where [Name]=") + SqlValue(adminName, QStringLiteral("S"))))
            Execute(QStringLiteral("Insert Into [User]([Name],[Dec],IdGroup,[Password]) Values(%1,%2,1,%3)")
                        .arg(SqlValue(adminName, QStringLiteral("S")), SqlValue(QStringLiteral("Quản trị viên"), QStringLiteral("S")),
                             DoubleToText(EncodePassword(adminPassword))));
    });
}

} // namespace zolt
