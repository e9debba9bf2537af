// SPDX-License-Identifier: MIT
// Opening and first painting the user list on 100,000 users and the groups
// dialog on 1,000 and 10,000 groups, beside plain views over a
// QSqlQueryModel of the same query, and the groups dialog beside the same
// dialog of plain Qt widgets; a logon with the strong password store
// beside libsodium's own verification; and a logon through a locked server
// beside the same logon on the same server unlocked.
#include "BenchMain.h"
#include "ServerLock.h"

#include "core/database/Database.h"
#include "core/logon/LockedServer.h"
#include "core/logon/PasswordStore.h"
#include "servers/TestServer.h"
#include "widgets/logon/FmGrp.h"
#include "widgets/logon/FrmMenu.h"

#include <zolt/Error.h>
#include <zolt/Schema.h>

#include <sodium.h>

#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSqlRecord>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QSize>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <QTableView>
#include <QVariant>

#include <benchmark/benchmark.h>

using namespace zolt;

namespace {

// One SQLite file with the library's own tables (their indexes and Options
// as a host has them) holding users and groups of the given counts.
QSqlDatabase staff(int users, int groups)
{
    const QString name = QStringLiteral("staff%1-%2").arg(users).arg(groups);
    if (QSqlDatabase::contains(name))
        return QSqlDatabase::database(name);
    QSqlDatabase db = bench::Database(name, [](QSqlQuery &) {});
    CreateTables(db);
    db.transaction();
    QSqlQuery query(db);
    query.prepare(QStringLiteral("Insert Into [User](Code, [Name], Dec, [Password], IdGroup) Values(?, ?, ?, 1065, ?)"));
    for (int i = 1; i <= users; ++i) {
        query.addBindValue(i);
        query.addBindValue(QStringLiteral("nhanvien%1").arg(i));
        query.addBindValue(QStringLiteral("Nhân viên quầy số %1").arg(i));
        query.addBindValue(1 + i % groups);
        query.exec();
    }
    query.prepare(QStringLiteral("Insert Into Groups(Code, [Name], Des) Values(?, ?, ?)"));
    for (int i = 1; i <= groups; ++i) {
        query.addBindValue(i);
        query.addBindValue(QStringLiteral("Nhóm %1").arg(i));
        query.addBindValue(QStringLiteral("Bộ phận bán hàng %1").arg(i));
        query.exec();
    }
    db.commit();
    return db;
}

// The dialog opened and painted for the first time, beside a plain view
// over a QSqlQueryModel of the same query, shown and painted the same way.
template <typename Dialog, typename View>
void firstPaint(benchmark::State &state, const std::string &name, const QSqlDatabase &db, const QString &sql,
                const std::function<void(View &)> &shaped = {})
{
    SetCurrentConnection(db);
    const auto library = [] {
        Dialog dialog;
        dialog.show();
        benchmark::DoNotOptimize(dialog.grab());
    };
    const auto baseline = [&] {
        QSqlQueryModel model;
        model.setQuery(sql, db);
        View view;
        view.setModel(&model);
        if (shaped)
            shaped(view);
        view.show();
        benchmark::DoNotOptimize(view.grab());
    };
    bench::InTurn(state, name, library, baseline);
    bench::Memory(name, library, baseline);
}

void BM_UserList(benchmark::State &state)
{
    firstPaint<FrmMenu, QTableView>(state, "user_list_100k", staff(100000, 100),
                                    QStringLiteral("Select Code,Name,Dec from [user] Order by Code"));
}

// The size of the groups dialog's list, shown on db's groups.
QSize groupsListSize(const QSqlDatabase &db)
{
    SetCurrentConnection(db);
    FmGrp dialog;
    dialog.show();
    return dialog.findChild<QListView *>(QStringLiteral("Lv1"))->size();
}

void BM_Groups(benchmark::State &state)
{
    const int groups = int(state.range(0));
    const QSqlDatabase db = staff(20000, groups);
    const QSize listSize = groupsListSize(db);
    // The group names in a list the size of the dialog's: the same rows painted.
    firstPaint<FmGrp, QListView>(state, groups == 10000 ? "groups_10k" : "groups_1k", db,
                                 QStringLiteral("Select * From [Groups]"), [=](QListView &view) {
                                     view.setModelColumn(1);
                                     view.resize(listSize);
                                 });
}

// The groups dialog's controls as plain Qt widgets in the same layout: the
// groups through a QSqlQueryModel, the first group's boxes and members
// through QSqlQuery. Beside it the library's dialog shows what it adds to
// the same dialog, where the bare list above shows what the dialog costs.
void plainGroupsDialog(const QSqlDatabase &db, const QSize &listSize)
{
    QDialog dialog;
    QSqlQueryModel groups;
    groups.setQuery(QStringLiteral("Select * From [Groups]"), db);
    auto *list = new QListView(&dialog);
    list->setModel(&groups);
    list->setModelColumn(1);
    list->setUniformItemSizes(true);
    list->setFixedSize(listSize);
    auto *info = new QGroupBox(QStringLiteral("Thông tin"), &dialog);
    auto *name = new QLineEdit(info), *description = new QLineEdit(info);
    auto *infoLayout = new QGridLayout(info);
    infoLayout->addWidget(new QLabel(QStringLiteral("Tên nhóm"), info), 0, 0);
    infoLayout->addWidget(name, 0, 1);
    infoLayout->addWidget(new QLabel(QStringLiteral("Diễn giải"), info), 1, 0);
    infoLayout->addWidget(description, 1, 1);
    infoLayout->setColumnMinimumWidth(1, 260);
    auto *detail = new QGroupBox(QStringLiteral("Danh sách"), &dialog);
    auto *members = new QTreeWidget(detail);
    members->setHeaderLabels({QStringLiteral("Tên"), QStringLiteral("Diễn giải")});
    members->setRootIsDecorated(false);
    members->setColumnWidth(0, 140);
    auto *detailLayout = new QVBoxLayout(detail);
    detailLayout->addWidget(members);
    auto *rights = new QPushButton(QStringLiteral("&Phân quyền"), detail);
    rights->setMinimumWidth(110);
    detailLayout->addWidget(rights, 0, Qt::AlignRight);
    auto *right = new QVBoxLayout;
    right->addWidget(info);
    right->addWidget(detail);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (const QString &caption : {QStringLiteral("T&hêm"), QStringLiteral("&Ghi"), QStringLiteral("&Xoá"), QStringLiteral("&Thoát")}) {
        auto *button = new QPushButton(caption, &dialog);
        button->setMinimumWidth(90);
        buttons->addWidget(button);
    }
    auto *layout = new QGridLayout(&dialog);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addWidget(list, 0, 0);
    layout->addLayout(right, 0, 1);
    layout->addLayout(buttons, 1, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    const QString code = groups.record(0).value(0).toString();
    QSqlQuery query(db);
    query.exec(QStringLiteral("Select * From Groups Where Code=") + code);
    if (query.next()) {
        name->setText(query.value(1).toString());
        description->setText(query.value(2).toString());
    }
    query.exec(QStringLiteral("Select [Name],[Dec] From [User] Where IdGroup=") + code);
    while (query.next())
        new QTreeWidgetItem(members, {query.value(0).toString(), query.value(1).toString()});
    list->setCurrentIndex(groups.index(0, 1));
    dialog.show();
    benchmark::DoNotOptimize(dialog.grab());
}

void BM_GroupsDialog(benchmark::State &state)
{
    const int groups = int(state.range(0));
    const QSqlDatabase db = staff(20000, groups);
    const QSize listSize = groupsListSize(db);
    bench::InTurn(state, groups == 10000 ? "groups_dialog_10k" : "groups_dialog_1k", [] {
        FmGrp dialog;
        dialog.show();
        benchmark::DoNotOptimize(dialog.grab());
    }, [&] { plainGroupsDialog(db, listSize); });
}

// A logon with the strong store, through the library (options, the user's
// row, the verification), beside libsodium's bare verification of the same
// hash.
void BM_LogonArgon2id(benchmark::State &state)
{
    const QSqlDatabase db = bench::Database(QStringLiteral("strong"), [](QSqlQuery &) {});
    CreateTables(db);
    SeedTables(db, QStringLiteral("admin"), QStringLiteral("admin"));
    Execute(QStringLiteral("Delete From Options Where KeyName='PasswordStore'"));
    Execute(QStringLiteral("Insert Into Options Values('Config', 'PasswordStore', 'argon2id', Null)"));
    const PasswordPolicy policy = ReadPasswordPolicy();
    StrongLogon(QStringLiteral("admin"), QStringLiteral("admin"), policy);   // the legacy digest gives way to a hash
    QSqlQuery read(db);
    read.exec(DriverSql(db, QStringLiteral("Select PasswordHash From [User] Where [Name]='admin'")));
    read.next();
    const QByteArray hash = read.value(0).toString().toLatin1();
    bench::InTurn(state, "logon_argon2id",
                  [] { benchmark::DoNotOptimize(StrongLogon(QStringLiteral("admin"), QStringLiteral("admin"), ReadPasswordPolicy())); },
                  [&] { benchmark::DoNotOptimize(crypto_pwhash_str_verify(hash.constData(), "ADMIN", 5)); });
}

// A shop's database on the benchmarks' server, made by the owner role with
// the strong store, attempt limits and the logon record; open as the owner.
QSqlDatabase shopDatabase(const QString &name)
{
    const QString folder = qEnvironmentVariable("ZOLT_BENCH_SERVERS");
    {
        QSqlDatabase admin = test::addServerDatabase(QStringLiteral("QPSQL"), QStringLiteral("bench-admin"), folder);
        admin.open();
        QSqlQuery(admin).exec(QStringLiteral("CREATE ROLE bench_owner LOGIN CREATEROLE"));
        QSqlQuery(admin).exec(QStringLiteral("CREATE DATABASE %1 OWNER bench_owner").arg(name));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("bench-admin"));
    QSqlDatabase db = test::addServerDatabase(QStringLiteral("QPSQL"), name, folder);
    db.setUserName(QStringLiteral("bench_owner"));
    db.setDatabaseName(name);
    db.open();
    CreateTables(db);
    SeedTables(db, QStringLiteral("admin"), QStringLiteral("admin"));
    Execute(QStringLiteral("Insert Into Options Values('Config', 'PasswordStore', 'argon2id', Null), "
                           "('Config', 'LogonAttempts', '5', Null), ('Config', 'LogonLogDays', '30', Null)"));
    return db;
}

// The same logon of the same administrator, with the same store: through a
// locked server's functions (as a desk's login), beside the library's own
// logon on the same server unlocked.
struct Shops {
    QSqlDatabase open, locked;   // the second as a desk's login
    QString error;
};

Shops lockedAndOpen()
{
    Shops shops{shopDatabase(QStringLiteral("bench_open")), QSqlDatabase(), QString()};
    StrongLogon(QStringLiteral("admin"), QStringLiteral("admin"), ReadPasswordPolicy());   // the digest gives way to a hash
    try {
        server::Lock(shopDatabase(QStringLiteral("bench_locked")), QStringLiteral("bench_desk"));
    } catch (const Error &e) {
        shops.error = e.description();
        return shops;
    }
    Execute(QStringLiteral("CREATE ROLE bench_counter LOGIN IN ROLE bench_desk"));
    shops.locked = test::addServerDatabase(QStringLiteral("QPSQL"), QStringLiteral("bench-counter"),
                                           qEnvironmentVariable("ZOLT_BENCH_SERVERS"));
    shops.locked.setUserName(QStringLiteral("bench_counter"));
    shops.locked.setDatabaseName(QStringLiteral("bench_locked"));
    shops.locked.open();
    SetCurrentConnection(shops.locked);
    LockedLogon(QStringLiteral("admin"), QStringLiteral("admin"), ReadPasswordPolicy(), QStringLiteral("quay1"));   // likewise
    return shops;
}

void BM_LogonLocked(benchmark::State &state)
{
    static const Shops shops = lockedAndOpen();
    if (!shops.error.isEmpty())
        return state.SkipWithError(qPrintable(shops.error));
    bench::InTurn(state, "logon_locked", [&] {
        SetCurrentConnection(shops.locked);
        benchmark::DoNotOptimize(LockedLogon(QStringLiteral("admin"), QStringLiteral("admin"), ReadPasswordPolicy(), QStringLiteral("quay1")));
    }, [&] {
        SetCurrentConnection(shops.open);
        benchmark::DoNotOptimize(StrongLogon(QStringLiteral("admin"), QStringLiteral("admin"), ReadPasswordPolicy()));
    });
}

BENCHMARK(BM_LogonLocked)->MinTime(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LogonArgon2id)->MinTime(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UserList)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Groups)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GroupsDialog)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
