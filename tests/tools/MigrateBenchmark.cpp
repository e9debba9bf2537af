// SPDX-License-Identifier: MIT
// zolt-migrate's conversion beside a plain copy of the same rows, and the
// TCVN3 decoder beside reading the same bytes as Latin-1.
#include "BenchMain.h"

#include "MigrateDatabase.h"
#include "TableCopy.h"

#include <zolt/LegacyText.h>

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>

#include <stdexcept>
#include <vector>

#include <mdbtools.h>

using namespace zolt;
using namespace zolt::migrate;

namespace {

constexpr int Rows = 1000000;

const QStringList Words{QStringLiteral("Gạo tám thơm"), QStringLiteral("Đường kính trắng"), QStringLiteral("Sữa đặc có đường"),
                        QStringLiteral("Nước mắm Phú Quốc"), QStringLiteral("Chè xanh Thái Nguyên"),
                        QStringLiteral("Cà phê Buôn Ma Thuột"), QStringLiteral("Bánh quy bơ")};

QByteArray tcvn3(int n) { return EncodeTcvn3(Words[n % Words.size()] + u' ' + QString::number(n)); }

Database open(const QString &name, const std::function<void(QSqlQuery &)> &fill)
{
    return {bench::Database(name, fill), Engine::SQLite, name};
}

// Goods of the old platform: three text columns in TCVN3 read as Windows-1252.
const Database &source()
{
    static const Database d = open(QStringLiteral("migrate-source"), [](QSqlQuery &query) {
        query.exec(QStringLiteral("Create Table Goods(Id Integer Primary Key, Name Text, Unit Text, Note Text)"));
        query.prepare(QStringLiteral("Insert Into Goods Values(?, ?, ?, ?)"));
        for (int n = 0; n < Rows; ++n) {
            query.addBindValue(n);
            query.addBindValue(AnsiText(tcvn3(n)));
            query.addBindValue(AnsiText(EncodeTcvn3(n % 2 ? QStringLiteral("hộp") : QStringLiteral("cái"))));
            query.addBindValue(AnsiText(EncodeTcvn3(QStringLiteral("Giao hàng buổi sáng"))));
            query.exec();
        }
    });
    return d;
}

const Database &target()
{
    static const Database d = open(QStringLiteral("migrate-target"), [](QSqlQuery &) {});
    return d;
}

void run(const QString &sql)
{
    QSqlQuery query(target().db);
    if (!query.exec(sql))
        throw std::runtime_error(query.lastError().text().toStdString());
}

// The same rows copied by the same connections the plainest way: a
// forward-only read, one prepared insert, one transaction.
void plainCopy()
{
    run(QStringLiteral("Create Table Goods(Id Integer, Name Text, Unit Text, Note Text, Primary Key(Id))"));
    QSqlQuery read(source().db);
    read.setForwardOnly(true);
    read.exec(QStringLiteral("Select * From Goods"));
    target().db.transaction();
    QSqlQuery write(target().db);
    write.prepare(QStringLiteral("Insert Into Goods (Id, Name, Unit, Note) Values (?, ?, ?, ?)"));
    while (read.next()) {
        for (int i = 0; i < 4; ++i)
            write.bindValue(i, read.value(i));
        write.exec();
    }
    target().db.commit();
}

TableReport goodsInTcvn3()
{
    TableReport table{QStringLiteral("Goods"), Rows, {}};
    for (const char *name : {"Name", "Unit", "Note"}) {
        ColumnReport column;
        column.table = table.table;
        column.column = QLatin1String(name);
        column.encoding = TextEncoding::Tcvn3Ansi;
        table.columns << column;
    }
    return table;
}

void migrate_1m(benchmark::State &state)
{
    const TableReport goods = goodsInTcvn3();
    QString made, error;
    QStringList notes;
    const auto convert = [&] {
        if (!CopyTable(source(), target(), goods, {}, [](const QString &, qint64) {}, &made, &notes, &error))
            throw std::runtime_error(error.toStdString());
    };
    bench::InTurn(state, "migrate_1m", convert, plainCopy, [] { run(QStringLiteral("Drop Table If Exists Goods")); });
}
BENCHMARK(migrate_1m)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(8);

void decode_tcvn3(benchmark::State &state)
{
    QList<QByteArray> texts;
    for (int n = 0; n < 100000; ++n)
        texts << tcvn3(n);
    const auto decode = [&](QString (*read)(QByteArrayView)) {
        qsizetype length = 0;
        for (const QByteArray &text : texts)
            length += read(text).size();
        benchmark::DoNotOptimize(length);
    };
    bench::InTurn(
        state, "decode_tcvn3", [&] { decode([](QByteArrayView bytes) { return DecodeTcvn3(bytes); }); },
        [&] { decode([](QByteArrayView bytes) { return QString::fromLatin1(bytes); }); });
}
BENCHMARK(decode_tcvn3)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2);

// Every row of the largest table of a shipped Access file (512 rows of a
// number and two texts), read through the tool's Access driver as the tool
// reads a source, beside libmdb's own loop that mdb-export runs: every column
// bound, every row fetched.
void migrate_mdb_read(benchmark::State &state)
{
    constexpr int Passes = 200;
    const QByteArray file = ZOLT_ACCESS_DATA "/compIndexTestV1997.mdb";
    Database access;
    QString error;
    if (!OpenDatabase(QString::fromUtf8(file), QStringLiteral("access"), false, &access, &error))
        throw std::runtime_error(error.toStdString());
    const auto throughTheTool = [&] {
        qsizetype length = 0;
        for (int pass = 0; pass < Passes; ++pass) {
            QSqlQuery rows(access.db);
            rows.setForwardOnly(true);
            rows.exec(QStringLiteral("SELECT * FROM \"Table1\""));
            while (rows.next()) {
                for (int i = 0; i < 3; ++i)
                    length += rows.value(i).toString().size();
            }
        }
        benchmark::DoNotOptimize(length);
    };
    const auto plainLibmdb = [&] {
        MdbHandle *mdb = mdb_open(file.constData(), MDB_NOFLAGS);
        mdb_read_catalog(mdb, MDB_TABLE);
        qsizetype length = 0;
        for (int pass = 0; pass < Passes; ++pass) {
            char name[] = "Table1";
            MdbTableDef *table = mdb_read_table_by_name(mdb, name, MDB_TABLE);
            mdb_read_columns(table);
            mdb_rewind_table(table);
            std::vector<std::vector<char>> values(table->num_cols, std::vector<char>(MDB_BIND_SIZE));
            std::vector<int> lengths(table->num_cols);
            for (unsigned i = 0; i < table->num_cols; ++i)
                mdb_bind_column(table, int(i + 1), values[i].data(), &lengths[i]);
            while (mdb_fetch_row(table)) {
                for (unsigned i = 0; i < table->num_cols; ++i)
                    length += lengths[i];
            }
            mdb_free_tabledef(table);
        }
        mdb_close(mdb);
        benchmark::DoNotOptimize(length);
    };
    bench::InTurn(state, "migrate_mdb_read", throughTheTool, plainLibmdb);
}
BENCHMARK(migrate_mdb_read)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2);

} // namespace
