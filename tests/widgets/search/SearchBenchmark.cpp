// SPDX-License-Identifier: MIT
// The search wizard on large catalogues, each beside the plainest way to do
// the same work: the pick list opening and narrowing on a million goods, and
// the search dialog opening on a catalogue of 200 fields.
#include "BenchMain.h"

#include "core/database/Database.h"
#include "widgets/controls/FmSelHang.h"
#include "widgets/search/FrmFind.h"

#include <QComboBox>
#include <QDialog>
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

// The same forward-only read into two string lists.
void readGoods(const QSqlDatabase &db)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.exec(GoodsSql);
    QStringList codes, names;
    while (query.next()) {
        codes.append(query.value(0).toString());
        names.append(query.value(1).toString());
    }
    benchmark::DoNotOptimize(names.size() + codes.size());
}

void BM_PickListOpen(benchmark::State &state)
{
    const int rows = int(state.range(0));
    const QSqlDatabase db = catalogue(rows);
    SetCurrentConnection(db);
    const auto open = [](bool indexed) {
        FmSelHang pick;
        pick.ListSql = GoodsSql;
        pick.Load();
        pick.show();
        benchmark::DoNotOptimize(pick.grab());
        if (indexed)
            pick.WaitUntilIndexed();
    };
    const auto baseline = [&] { readGoods(db); };
    const std::string name = rows == 1000000 ? "pick_list_open_1m" : "pick_list_open_100k";
    bench::InTurn(state, name, [&] { open(false); }, baseline);
    // The memory of a list a clerk types in: with the index built once it shows.
    bench::Memory(name, [&] { open(true); }, baseline, rows);
}

// The worst case: only the last of a million names begins with the text
// typed. The baseline scans the same names with an allocation-free
// case-blind startsWith.
void BM_Narrow(benchmark::State &state)
{
    const QSqlDatabase db = catalogue(1000000);
    SetCurrentConnection(db);
    FmSelHang pick;
    pick.ListSql = GoodsSql;
    pick.Load();
    pick.WaitUntilIndexed();
    QStringList names;
    QSqlQuery query(db);
    query.exec(GoodsSql);
    while (query.next())
        names.append(query.value(1).toString().normalized(QString::NormalizationForm_C));
    const QString typed = names.last();
    if (pick.FindString(typed) != names.size() - 1)
        throw std::runtime_error("the typed text must find the last name only");
    bench::InTurn(state, "narrow_1m", [&] { benchmark::DoNotOptimize(pick.FindString(typed)); }, [&] {
        qsizetype found = -1;
        for (qsizetype i = 0; i < names.size() && found < 0; ++i) {
            if (names[i].startsWith(typed, Qt::CaseInsensitive))
                found = i;
        }
        benchmark::DoNotOptimize(found);
    });
}

// The search dialog beside the same controls as plain Qt widgets in a bare
// dialog, filled from the same queries by hand.
void BM_SearchDialogOpen(benchmark::State &state)
{
    const QSqlDatabase db = catalogue(1);
    SetCurrentConnection(db);
    bench::InTurn(state, "search_dialog_open_200", [] {
        FrmFind find;
        find.TableName = QStringLiteral("Hang");
        find.Load();
        benchmark::DoNotOptimize(&find);
    }, [&] {
        QDialog dialog;
        QList<QComboBox *> fields, operators;
        for (int i = 0; i < FrmFind::Rows; ++i) {
            fields << new QComboBox(&dialog);
            operators << new QComboBox(&dialog);
            new QLineEdit(&dialog);
            if (i > 0) {
                auto *joins = new QComboBox(&dialog);
                joins->addItem(QStringLiteral("và"), QStringLiteral("and"));
                joins->addItem(QStringLiteral("hoặc"), QStringLiteral("or"));
            }
        }
        new QPlainTextEdit(&dialog);
        const auto fill = [&](QComboBox *box, const QString &sql) {
            QSqlQuery query(db);
            query.exec(sql);
            while (query.next())
                box->addItem(query.value(1).toString(), query.value(0));
        };
        for (QComboBox *field : fields)
            fill(field, QStringLiteral("Select [Name],[Desc] From LstFld Where [InTable]='Hang' Order By [code]"));
        fill(operators[0], QStringLiteral("Select [Name],[Des] from [Operator] Where [Type]=10  Order By [Code]"));
        benchmark::DoNotOptimize(&dialog);
    });
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
// (which the library never touched).
void BM_LikePrefixAccentBlind(benchmark::State &state)
{
    const QSqlDatabase library = catalogue(1000000);
    SetCurrentConnection(library);
    const QString name = QStringLiteral("plain-sqlite");
    QSqlDatabase plain = QSqlDatabase::contains(name) ? QSqlDatabase::database(name)
                                                      : QSqlDatabase::cloneDatabase(library, name);
    plain.open();
    const QString condition = ConditionSql(library, QStringLiteral("(Ten  LIKE  'banh%')"));
    bench::InTurn(state, "like_prefix_accent_blind_1m", [&] { benchmark::DoNotOptimize(countWhere(library, condition)); },
                  [&] { benchmark::DoNotOptimize(countWhere(plain, QStringLiteral("Ten LIKE 'banh%'"))); });
}

// Several runs even at a million rows: the first pays for fresh memory.
BENCHMARK(BM_PickListOpen)->Arg(100000)->Arg(1000000)->MinTime(10)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Narrow)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchDialogOpen)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LikePrefixAccentBlind)->MinTime(3)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
