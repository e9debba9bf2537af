// SPDX-License-Identifier: MIT
// Several desks on one database, each a process of its own working through
// the library's dialogs (desk_day): at the end no update is lost, no row is
// there twice or half-written, every write that did not go through was told
// to its desk, and after a server restart every desk works again at once.
#include "core/database/Database.h"
#include "DialogSupport.h"
#include "servers/LockedShop.h"
#include "servers/TestServer.h"
#include "TestSupport.h"
#include "widgets/logon/FrPms.h"

#include <zolt/DriverSql.h>
#include <zolt/Error.h>
#include <zolt/Options.h>
#include <zolt/Schema.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QMessageBox>
#include <QProcess>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <memory>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

constexpr int Bars = 5, ItemsPerBar = 31;

// Runs sql written as the library writes it ([User] and all).
QSqlQuery run(const QSqlDatabase &db, const QString &sql)
{
    QSqlQuery query(db);
    EXPECT_TRUE(query.exec(DriverSql(db, sql))) << sql.toStdString() << ": " << query.lastError().text().toStdString();
    return query;
}

QVariant value(const QSqlDatabase &db, const QString &sql)
{
    QSqlQuery query = run(db, sql);
    return query.next() ? query.value(0) : QVariant();
}

// The library's tables, five menu bars of 31 items with a rights column each,
// the shared group 2 and the shared user "chung".
void prepare(const QSqlDatabase &db)
{
    EXPECT_TRUE(CreateTables(db).isEmpty());
    SeedTables(db, u"admin"_s, u"admin"_s);
    for (int bar = 0; bar < Bars; ++bar) {
        run(db, u"Insert Into Menu Values(%1, 'Thực đơn %1')"_s.arg(bar));
        run(db, u"Alter Table Groups Add Column Bar%1 Integer Default 0"_s.arg(bar));
        for (int item = 0; item < ItemsPerBar; ++item)
            run(db, u"Insert Into SubMenu Values(%1, 'Mục %1', %2)"_s.arg(bar * 100 + item).arg(bar));
    }
    run(db, u"Insert Into Groups(Code, Name, Des) Values(2, 'Chung', 'Nhóm chung')"_s);
    // User 3 can never be deleted: a user of the sample's, not one a desk adds.
    run(db, u"Insert Into [User](Code, [Name], [Dec], IdGroup, [Password]) Values(3, 'kho', 'Thủ kho', 8, 1065),"
            " (4, 'chung', 'Người chung', 8, 1065)"_s);
}

struct Outcomes {
    QStringList lines;
    QStringList with(const QString &kind) const
    {
        QStringList found;
        for (const QString &line : lines) {
            if (line.startsWith(kind + u' '))
                found << line.mid(kind.size() + 1);
        }
        return found;
    }
};

// What the database holds after the day, checked against what the desks were told.
void checkTheDay(const QSqlDatabase &db, const Outcomes &day, int desks, int rounds)
{
    if (qEnvironmentVariableIsSet("ZOLT_DESK_LINES"))
        std::printf("%s\n", qPrintable(day.lines.join(u'\n')));
    EXPECT_EQ(day.with(u"silent"_s), QStringList());   // every write that did not go through was told
    EXPECT_EQ(day.with(u"late"_s), QStringList());     // and worked again within one call of the restart
    const QString users = u"[User]"_s;
    EXPECT_EQ(value(db, u"Select Count(*) From (Select [Name] From %1 Group By [Name] Having Count(*) > 1) d"_s.arg(users)).toInt(), 0);
    EXPECT_EQ(value(db, u"Select Count(*) From %1 Where [Password] Is Null Or IdGroup Is Null"_s.arg(users)).toInt(), 0);
    for (int r = 0; r < rounds; ++r) {
        EXPECT_EQ(value(db, u"Select Count(*) From %1 Where [Name]='nv%2'"_s.arg(users).arg(r)).toInt(), 1);
        EXPECT_LE(day.with(u"added"_s).count(u"nv%1"_s.arg(r)), 1);
        EXPECT_EQ(value(db, u"Select Count(*) From Options Where [Section]='Kho' And KeyName='k%1'"_s.arg(r)).toInt(), 1);
        for (int desk = 0; desk < desks; ++desk) {
            const int kept = r == rounds - 1 ? 1 : 0;   // each desk deletes its user of the round before
            EXPECT_EQ(value(db, u"Select Count(*) From %1 Where [Name]='b%2.%3'"_s.arg(users).arg(desk).arg(r)).toInt(), kept);
        }
    }
    // No lost update: every mark a desk was told it wrote is there.
    const QStringList edited = day.with(u"edit"_s), renamed = day.with(u"renamed"_s);
    const QSet<QString> edits(edited.begin(), edited.end()), renames(renamed.begin(), renamed.end());
    const QStringList description = value(db, u"Select [Dec] From %1 Where [Name]='chung'"_s.arg(users)).toString().split(u' ');
    EXPECT_TRUE(QSet<QString>(edits).subtract(QSet<QString>(description.begin(), description.end())).isEmpty()) << edits.size();
    const QStringList name = value(db, u"Select [Name] From Groups Where Code=2"_s).toString().split(u' ');
    EXPECT_TRUE(QSet<QString>(renames).subtract(QSet<QString>(name.begin(), name.end())).isEmpty());
    EXPECT_EQ(day.with(u"edit"_s).size() + day.with(u"renamed"_s).size() > 0, true);
    for (const QString &right : day.with(u"right"_s)) {
        const int bar = right.section(u' ', 0, 0).toInt(), bit = right.section(u' ', 1).toInt();
        EXPECT_TRUE((value(db, u"Select Bar%1 From Groups Where Code=2"_s.arg(bar)).toLongLong() >> bit) & 1) << right.toStdString();
    }
    std::printf("desks %d, rounds %d: %lld users added, %lld shared edits, %lld renames, %lld rights, %lld told\n", desks,
                rounds, qint64(day.with(u"added"_s).size()), qint64(edits.size()), qint64(renames.size()),
                qint64(day.with(u"right"_s).size()), qint64(day.with(u"told"_s).size()));
}

std::unique_ptr<QProcess> startDesk(const QStringList &args)
{
    auto desk = std::make_unique<QProcess>();
    desk->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    desk->start(QStringLiteral(ZOLT_DESK_DAY), args);
    EXPECT_TRUE(desk->waitForStarted());
    return desk;
}

Outcomes finishDesks(const std::vector<std::unique_ptr<QProcess>> &desks)
{
    Outcomes day;
    for (const auto &desk : desks) {
        EXPECT_TRUE(desk->state() == QProcess::NotRunning || desk->waitForFinished(600000));
        EXPECT_EQ(desk->exitCode(), 0) << desk->arguments().join(u' ').toStdString();
        day.lines << QString::fromUtf8(desk->readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }
    return day;
}

// The script that runs a server of the driver's engine in a folder of its own.
QString clusterOf(const QString &driver)
{
    return driver == u"QMYSQL"_s ? QStringLiteral(ZOLT_MARIADB_CLUSTER) : QStringLiteral(ZOLT_PG_CLUSTER);
}

void server(const QString &driver, const QString &action, const QString &folder)
{
    EXPECT_EQ(QProcess::execute(u"bash"_s, {clusterOf(driver), action, folder}), 0);
}

void restartServer(const QString &driver, const QString &folder)
{
    // Down long enough for every desk to meet it.
    EXPECT_EQ(QProcess::execute(u"bash"_s, {clusterOf(driver), u"restart"_s, folder, u"1.5"_s}), 0);
}

} // namespace

// A server of the test's own, started and stopped with it.
class ServerTest : public ::testing::TestWithParam<const char *> {
protected:
    void SetUp() override { server(QLatin1String(GetParam()), u"start"_s, folder); }
    void TearDown() override { server(QLatin1String(GetParam()), u"stop"_s, folder); }
    QTemporaryDir work;
    const QString folder = work.filePath(u"server"_s);
};

INSTANTIATE_TEST_SUITE_P(Drivers, ServerTest, ::testing::Values("QPSQL", "QODBC", "QMYSQL"));

// The rights dialog of group 2 opened while the server is away: what the clerk was told.
QStringList openRights()
{
    QStringList told;
    test::answerMessages(&told);
    FrPms rights(2);
    EXPECT_EQ(rights.findChild<QListWidget *>(u"LstMenuBar"_s)->count(), 0);
    return told;
}

// WriteOption while the server is away: its result, and that the clerk was
// told once (one message for one action).
qint32 writeWhileAway()
{
    QCoreApplication::processEvents();   // the clerk's next action: a later turn of the event loop
    QStringList told;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&told] {
        if (QWidget *box = QApplication::activeModalWidget(); box && box->isVisible()) {
            told << QLatin1String(box->metaObject()->className());
            box->close();
        }
    });
    closer.start(10);
    const qint32 result = WriteOption(u"Kho"_s, u"mới"_s, u"1"_s, QString(), 0);
    EXPECT_EQ(told, QStringList{u"QMessageBox"_s});
    return result;
}

// While the server is away every dialog says so (once, not once a table) and
// a write is reported; when it is back the next call works, with no restart
// of the application.
TEST_P(ServerTest, AfterARestartTheNextCallWorksAndTheOutageIsTold)
{
    {
        QSqlDatabase db = test::addServerDatabase(QLatin1String(GetParam()), u"shop"_s, folder);
        ASSERT_TRUE(db.open());
        prepare(db);
        EXPECT_EQ(WriteOption(u"Kho"_s, u"cũ"_s, u"a"_s, QString(), 0), 0);

        server(QLatin1String(GetParam()), u"halt"_s, folder);
        EXPECT_EQ(ReadOption(u"Kho"_s, u"cũ"_s, u"?"_s), u"?"_s);
        EXPECT_EQ(openRights(), QStringList{u"Lỗi kết nối|Không kết nối được với máy chủ cơ sở dữ liệu. Hãy kiểm tra mạng hoặc "
                                            "máy chủ rồi thử lại."_s});
        EXPECT_NE(writeWhileAway(), 0);

        server(QLatin1String(GetParam()), u"serve"_s, folder);
        EXPECT_EQ(ReadOption(u"Kho"_s, u"cũ"_s, u"?"_s), u"a"_s);   // the first call after the restart
        EXPECT_EQ(WriteOption(u"Kho"_s, u"mới"_s, u"1"_s, QString(), 0), 0);

        // A write that meets the restart first is reported, never run twice; the next one works.
        server(QLatin1String(GetParam()), u"restart"_s, folder);
        EXPECT_THROW(Execute(u"Update Options Set KeyValue='b' Where KeyName='cũ'"_s), Error);
        EXPECT_EQ(Execute(u"Update Options Set KeyValue='b' Where KeyName='cũ'"_s), 1);
    }
    QSqlDatabase::removeDatabase(u"shop"_s);
}

// Four desks (twenty with ZOLT_LONG_TRIALS) on a server of the test's own,
// restarted halfway (and every few seconds after, in the long run):
// PostgreSQL open, PostgreSQL locked with the desks connected as a login of
// the desk role, and MariaDB.
enum class DayServer { Open, Locked, MariaDB };
class SeveralDesks : public ::testing::TestWithParam<DayServer> {};
INSTANTIATE_TEST_SUITE_P(Server, SeveralDesks, ::testing::Values(DayServer::Open, DayServer::Locked, DayServer::MariaDB),
                         [](const auto &info) {
                             return info.param == DayServer::Open ? "Open" : info.param == DayServer::Locked ? "Locked" : "MariaDB";
                         });

TEST_P(SeveralDesks, AWorkingDayOnOneServerWithARestartLosesNothing)
{
    QTemporaryDir work;
    const QString folder = work.filePath(u"server"_s), markers = work.path();
    const QString driver = GetParam() == DayServer::MariaDB ? u"QMYSQL"_s : u"QPSQL"_s;
    server(driver, u"start"_s, folder);
    const int desks = test::trials(4, 20), rounds = test::trials(6, 30);
    {
        std::unique_ptr<test::LockedShop> shop;
        QSqlDatabase db;
        QString schema = u"day"_s;
        QStringList login;
        if (GetParam() == DayServer::Locked) {
            shop = std::make_unique<test::LockedShop>(folder);
            db = shop->owner();
            prepare(db);
            ASSERT_EQ(shop->lock(), 0) << shop->said().toStdString();
            schema = u"public"_s;
            login << shop->deskLogin() + u'@' + shop->database();
        } else if (GetParam() == DayServer::MariaDB) {
            db = test::addServerDatabase(driver, u"day"_s, folder);
            ASSERT_TRUE(db.open());
            run(db, u"Create Database day"_s);
            db.close();
            db.setDatabaseName(u"day"_s);
            ASSERT_TRUE(db.open());
            prepare(db);
        } else {
            db = test::addServerDatabase(driver, u"day"_s, folder);
            db.setConnectOptions(u"options=-csearch_path=day,public"_s);
            ASSERT_TRUE(db.open());
            run(db, u"Create Schema day"_s);
            prepare(db);
        }

        std::vector<std::unique_ptr<QProcess>> running;
        for (int desk = 0; desk < desks; ++desk)
            running.push_back(startDesk(QStringList{driver, folder, schema, QString::number(desk), QString::number(desks),
                                                    QString::number(rounds), markers} + login));
        for (int desk = 0; desk < desks; ++desk) {
            while (!QFile::exists(markers + u"/half.%1"_s.arg(desk)) && running[desk]->state() == QProcess::Running)
                QThread::msleep(20);
        }
        server(driver, u"halt"_s, folder);   // the desks go on while it is down
        QFile(markers + u"/restarting"_s).open(QIODevice::WriteOnly);
        QThread::msleep(1500);
        server(driver, u"serve"_s, folder);
        QFile(markers + u"/up"_s).open(QIODevice::WriteOnly);
        // Still at work three seconds on: restarted again.
        const auto atWork = [](const auto &desk) { return desk->state() != QProcess::NotRunning && !desk->waitForFinished(3000); };
        int restarts = 1;
        for (; qgetenv("ZOLT_LONG_TRIALS") == "1" && std::any_of(running.begin(), running.end(), atWork); ++restarts) {
            QFile::remove(markers + u"/up"_s);
            restartServer(driver, folder);
            QFile(markers + u"/up"_s).open(QIODevice::WriteOnly);
        }
        std::printf("restarts %d\n", restarts);
        const Outcomes day = finishDesks(running);
        db.close();
        ASSERT_TRUE(db.open());   // the test's own connection went with the restart
        checkTheDay(db, day, desks, rounds);
        EXPECT_GT(day.with(u"told"_s).filter(u"máy chủ"_s).size(), 0);   // the restart was felt, and told
    }
    QSqlDatabase::removeDatabase(u"day"_s);
    server(driver, u"stop"_s, folder);
}

// Two desks on one SQLite file, as on a shop's single machine.
TEST(SeveralDesks, TwoDesksOnOneFileLoseNothing)
{
    QTemporaryDir work;
    const QString file = work.filePath(u"shop.db"_s);
    const int rounds = test::trials(6, 12);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"file"_s);
        db.setDatabaseName(file);
        ASSERT_TRUE(db.open());
        prepare(db);
        EXPECT_EQ(value(db, u"PRAGMA journal_mode"_s).toString(), u"wal"_s);
        std::vector<std::unique_ptr<QProcess>> running;
        for (int desk = 0; desk < 2; ++desk)
            running.push_back(startDesk({u"QSQLITE"_s, file, u"-"_s, QString::number(desk), u"2"_s, QString::number(rounds),
                                         work.path()}));
        const Outcomes day = finishDesks(running);
        checkTheDay(db, day, 2, rounds);
        EXPECT_EQ(day.with(u"told"_s).filter(u"locked"_s), QStringList());
    }
    QSqlDatabase::removeDatabase(u"file"_s);
}
