// SPDX-License-Identifier: MIT
// The search wizard on large catalogues, each beside the plainest way to do
// the same work: the pick list opening and narrowing on a million goods, and
// the search dialog opening on a catalogue of 200 fields.
#include "BenchMain.h"

#include "controls/DataCombo1.h"
#include "controls/FmSelHang.h"
#include "data/Database.h"
#include "search/FrmFind.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSqlQuery>
#include <QVariant>

#include <stdexcept>

#include <benchmark/benchmark.h>

using namespace zolt;

namespace {

const QString GoodsSql = QStringLiteral("Select Ma, Ten From Hang");

// Goods of the given count, with and without accents, and a catalogue of 200
// fields for table Hang, in one SQLite file per count.
QSqlDatabase catalogue(int goods)
{
    return bench::Database(QStringLiteral("search%1").arg(goods), [goods](QSqlQuery &query) {
        query.exec(QStringLiteral("Create Table Hang(Ma Text, Ten Text)"));
        query.exec(QStringLiteral("Create Table LstFld(code Integer, [Name] Text, [Desc] Text, InTable Text, Relation Text, [Type] Integer)"));
        query.exec(QStringLiteral("Create Table Operator(Code Integer, [Name] Text, Des Text, [Type] Integer)"));
        query.exec(QStringLiteral("Insert Into Operator Values(1, 'LIKE', 'Bắt đầu bằng', 10), (2, '=', 'Bằng', 10)"));
        const QStringList names = {QStringLiteral("Nguyễn Văn"), QStringLiteral("Tran Thi"), QStringLiteral("Đường cát"),
                                   QStringLiteral("Banh quy"), QStringLiteral("Cà phê")};
        query.prepare(QStringLiteral("Insert Into Hang Values(?, ?)"));
        for (int i = 0; i < goods; ++i) {
            query.addBindValue(QStringLiteral("MH%1").arg(i, 7, 10, QLatin1Char('0')));
            query.addBindValue(names.at(i % names.size()) + QStringLiteral(" số %1").arg(i));
            query.exec();
        }
        query.prepare(QStringLiteral("Insert Into LstFld Values(?, ?, ?, 'Hang', Null, 10)"));
        for (int i = 0; i < 200; ++i) {
            query.addBindValue(i);
            query.addBindValue(QStringLiteral("Truong%1").arg(i));
            query.addBindValue(QStringLiteral("Trường số %1").arg(i));
            query.exec();
        }
    });
}

void BM_PickListOpen(benchmark::State &state)
{
    SetCurrentConnection(catalogue(int(state.range(0))));
    for (auto _ : state) {
        FmSelHang pick;
        pick.ListSql = GoodsSql;
        pick.Load();
        benchmark::DoNotOptimize(&pick);
    }
}

void BM_QueryStep(benchmark::State &state)
{
    const QSqlDatabase db = catalogue(int(state.range(0)));
    for (auto _ : state) {
        QSqlQuery query(db);
        query.exec(GoodsSql);
        QStringList codes, names;
        while (query.next()) {
            codes.append(query.value(0).toString());
            names.append(query.value(1).toString());
        }
        benchmark::DoNotOptimize(names.size() + codes.size());
    }
}

// A text that no name begins with: every row is looked at.
const QString Typed = QStringLiteral("nguyen van x");

void BM_Narrow(benchmark::State &state)
{
    SetCurrentConnection(catalogue(1000000));
    FmSelHang pick;
    pick.ListSql = GoodsSql;
    pick.Load();
    for (auto _ : state)
        benchmark::DoNotOptimize(pick.FindString(Typed));
}

void BM_UpperPrefixLoop(benchmark::State &state)
{
    QStringList names;
    QSqlQuery query(catalogue(1000000));
    query.exec(GoodsSql);
    while (query.next())
        names.append(query.value(1).toString());
    const QString typed = Typed.toUpper();
    for (auto _ : state) {
        qsizetype found = -1;
        for (qsizetype i = 0; i < names.size() && found < 0; ++i) {
            if (names[i].left(typed.size()).toUpper() == typed)
                found = i;
        }
        benchmark::DoNotOptimize(found);
    }
}

void BM_SearchDialogOpen(benchmark::State &state)
{
    SetCurrentConnection(catalogue(1));
    for (auto _ : state) {
        FrmFind find;
        find.TableName = QStringLiteral("Hang");
        find.Load();
        benchmark::DoNotOptimize(&find);
    }
}

// The same controls in a bare dialog without layout or settings, filled
// from the same queries by hand.
void BM_BareDialog(benchmark::State &state)
{
    const QSqlDatabase db = catalogue(1);
    for (auto _ : state) {
        QDialog dialog;
        QList<DataCombo1 *> fields, operators;
        for (int i = 0; i < FrmFind::Rows; ++i) {
            fields << new DataCombo1(&dialog);
            operators << new DataCombo1(&dialog);
            new QLineEdit(&dialog);
            if (i > 0)
                (new DataCombo1(&dialog))->AppendItems({QStringLiteral("và"), QStringLiteral("hoặc")}, {QStringLiteral("and"), QStringLiteral("or")});
        }
        new QPlainTextEdit(&dialog);
        QSqlQuery query(db);
        QStringList texts, data;
        query.exec(QStringLiteral("Select [Name],[Desc] From LstFld Where [InTable]='Hang' Order By [code]"));
        while (query.next()) {
            data << query.value(0).toString();
            texts << query.value(1).toString();
        }
        for (DataCombo1 *field : fields)
            field->AppendItems(texts, data);
        texts.clear();
        data.clear();
        query.exec(QStringLiteral("Select [Name],[Des] from [Operator] Where [Type]=10  Order By [Code]"));
        while (query.next()) {
            data << query.value(0).toString();
            texts << query.value(1).toString();
        }
        operators[0]->AppendItems(texts, data);
        benchmark::DoNotOptimize(&dialog);
    }
}

qint64 countWhere(const QSqlDatabase &db, const QString &condition)
{
    QSqlQuery query(db);
    if (!query.exec(QStringLiteral("Select Count(*) From Hang Where ") + condition) || !query.next())
        throw std::runtime_error("the count failed");
    return query.value(0).toLongLong();
}

// A clerk's "banh" over a million names, through the library's accent-blind
// LIKE, beside SQLite's own LIKE on the same column of another connection
// (which the library never touched), timed in turn within each iteration.
void BM_LikePrefixAccentBlind(benchmark::State &state)
{
    const QSqlDatabase library = catalogue(1000000);
    SetCurrentConnection(library);
    const QString name = QStringLiteral("plain-sqlite");
    QSqlDatabase plain = QSqlDatabase::contains(name) ? QSqlDatabase::database(name)
                                                      : QSqlDatabase::cloneDatabase(library, name);
    plain.open();
    const QString condition = ConditionSql(library, QStringLiteral("(Ten  LIKE  'banh%')"));
    qint64 ours = 0, sqlite = 0;
    QElapsedTimer clock;
    for (auto _ : state) {
        clock.start();
        benchmark::DoNotOptimize(countWhere(library, condition));
        ours += clock.nsecsElapsed();
        clock.start();
        benchmark::DoNotOptimize(countWhere(plain, QStringLiteral("Ten LIKE 'banh%'")));
        sqlite += clock.nsecsElapsed();
    }
    bench::MeasuredRatio("like_prefix_accent_blind_1m", double(ours) / double(sqlite));
}

// Several runs even at a million rows: the first pays for fresh memory.
BENCHMARK(BM_PickListOpen)->Arg(100000)->Arg(1000000)->MinTime(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QueryStep)->Arg(100000)->Arg(1000000)->MinTime(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Narrow)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UpperPrefixLoop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchDialogOpen)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BareDialog)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LikePrefixAccentBlind)->MinTime(3)->UseRealTime()->Unit(benchmark::kMillisecond);

const bench::Ratio ratios[] = {
    {"pick_list_open_100k", "BM_PickListOpen/100000/min_time:3.000", "BM_QueryStep/100000/min_time:3.000"},
    {"pick_list_open_1m", "BM_PickListOpen/1000000/min_time:3.000", "BM_QueryStep/1000000/min_time:3.000"},
    {"narrow_1m", "BM_Narrow", "BM_UpperPrefixLoop"},
    {"search_dialog_open_200", "BM_SearchDialogOpen", "BM_BareDialog"},
};

} // namespace
