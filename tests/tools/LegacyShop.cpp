// SPDX-License-Identifier: MIT
#include "tools/LegacyShop.h"

#include <zolt/LegacyText.h>
#include <zolt/Password.h>

#include <QFile>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace zolt::test {

namespace {

const QStringList GoodsNames{u"Gạo tám thơm"_s,   u"Đường kính trắng"_s, u"Sữa đặc có đường"_s, u"Mì ăn liền"_s,
                             u"Dầu ăn Tường An"_s, u"Nước mắm Phú Quốc"_s, u"Chè xanh Thái Nguyên"_s,
                             u"Cà phê Buôn Ma Thuột"_s, u"Muối iốt"_s, u"Bột giặt"_s, u"Xà phòng thơm"_s,
                             u"Kẹo lạc"_s, u"Bánh quy bơ"_s, u"Nước ngọt có ga"_s};
const QStringList CustomerNames{u"Công ty Hoàng Long"_s, u"Cửa hàng Bình Minh"_s, u"Chị Nguyễn Thị Thuỷ"_s,
                                u"Anh Trần Văn Đức"_s, u"Siêu thị Hạ Long"_s};
// Shelf headings, typed for a capitals font (".VnTimeH").
const QStringList Shelves{u"BÁNH KẸO"_s, u"ĐỒ UỐNG"_s, u"GIA VỊ"_s, u"HÀNG KHÔ"_s};
const QStringList Notes{u"Giao hàng buổi sáng"_s, u"Thanh toán cuối tháng"_s, u"Khách quen, giảm giá"_s,
                        u"Gọi trước khi giao"_s};

struct Statements {
    QSqlQuery query;
    QString *error;

    bool operator()(const QString &sql, const QVariantList &values = {})
    {
        query.prepare(sql);
        for (const QVariant &value : values)
            query.addBindValue(value);
        if (query.exec())
            return true;
        *error = sql + u": "_s + query.lastError().text();
        return false;
    }
};

// The library's tables as the original program had them (version 1).
bool makeLibraryTables(Statements &run)
{
    QFile script(QStringLiteral(ZOLT_SQLITE_VERSION1));
    if (!script.open(QIODevice::ReadOnly))
        return false;
    QString statement;
    for (const QString &line : QString::fromUtf8(script.readAll()).split(u'\n')) {
        if (line.trimmed().startsWith(u"--"_s))
            continue;
        statement += line + u'\n';
        if (line.trimmed().endsWith(u';')) {
            if (!run(statement.trimmed().chopped(1)))
                return false;
            statement.clear();
        }
    }
    return true;
}

bool addGoods(Statements &run, int goods)
{
    if (!run(u"Create Table Goods(Code Text Primary Key, Name Text, Unit Text, Price Double, Picture Blob, Label Blob, Shelf Text)"_s))
        return false;
    for (int n = 0; n < goods; ++n) {
        QByteArray picture(64, '\0');
        QRandomGenerator(n).fillRange(reinterpret_cast<quint32 *>(picture.data()), 16);
        if (!run(u"Insert Into Goods Values(?, ?, ?, ?, ?, ?, ?)"_s,
                 {u"H%1"_s.arg(n, 6, 10, QChar(u'0')), Tcvn3Ansi(GoodsName(n)), Tcvn3Ansi(n % 2 ? u"hộp"_s : u"cái"_s),
                  1000.5 * n, picture, EncodeTcvn3(u"Hàng nội địa "_s + GoodsName(n)), Tcvn3Ansi(Shelf(n))}))
            return false;
    }
    return true;
}

bool addCustomers(Statements &run)
{
    if (!run(u"Create Table Customers(Id Integer Primary Key, Name Text, Address Text, Note Text, Since Text)"_s))
        return false;
    for (int n = 0; n < 40; ++n) {
        if (!run(u"Insert Into Customers Values(?, ?, ?, ?, ?)"_s,
                 {n + 1, VniAnsi(CustomerName(n)), u"Số %1 đường Lê Lợi, Hà Nội"_s.arg(n),
                  n % 2 ? CustomerNote(n) : Tcvn3Ansi(CustomerNote(n)), u"2024-01-%1"_s.arg(n % 28 + 1, 2, 10, QChar(u'0'))}))
            return false;
    }
    return true;
}

} // namespace

QString Tcvn3Ansi(const QString &text) { return AnsiText(EncodeTcvn3(text)); }
QString VniAnsi(const QString &text) { return AnsiText(EncodeVni(text)); }
QString GoodsName(int n) { return GoodsNames[n % GoodsNames.size()] + u' ' + QString::number(n); }
QString Shelf(int n) { return Shelves[n % Shelves.size()]; }
QString CustomerName(int n) { return CustomerNames[n % CustomerNames.size()]; }
QString CustomerNote(int n) { return Notes[n % Notes.size()]; }

bool MakeLegacyShop(const QSqlDatabase &db, int goods, QString *error)
{
    Statements run{QSqlQuery(db), error};
    QSqlDatabase(db).transaction();
    const bool made = makeLibraryTables(run)
        && run(u"Insert Into [User] Values(?, ?, ?, ?, ?)"_s,
               {1, Tcvn3Ansi(u"Quản trị"_s), Tcvn3Ansi(u"Người quản trị hệ thống"_s), EncodePassword(u"admin"_s), 1})
        && run(u"Insert Into [User] Values(?, ?, ?, ?, ?)"_s,
               {2, Tcvn3Ansi(u"Nguyễn Văn Bình"_s), Tcvn3Ansi(u"Kế toán trưởng"_s), EncodePassword(u"binh123"_s), 8})
        && run(u"Insert Into Groups Values(1, ?, ''), (8, ?, '')"_s,
               {Tcvn3Ansi(u"Quản trị hệ thống"_s), Tcvn3Ansi(u"Người sử dụng"_s)})
        && run(u"Insert Into Options Values('Config', 'DefaultFont', '.VnTime', ''), ('Kho', 'TenKho', ?, '')"_s,
               {Tcvn3Ansi(u"Kho chính"_s)})
        && run(u"Insert Into LstFld Values(1, 'Name', ?, 'Goods', Null, 10), (2, 'Price', ?, 'Goods', Null, 3)"_s,
               {Tcvn3Ansi(u"Tên hàng"_s), Tcvn3Ansi(u"Giá bán"_s)})
        && run(u"Insert Into Operator Values(1, 'LIKE', ?, 10), (2, '>', ?, 3)"_s,
               {Tcvn3Ansi(u"Bắt đầu bằng"_s), Tcvn3Ansi(u"Lớn hơn"_s)})
        && addGoods(run, goods) && addCustomers(run);
    return made ? QSqlDatabase(db).commit() : (QSqlDatabase(db).rollback(), false);
}

} // namespace zolt::test
