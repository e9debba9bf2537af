// SPDX-License-Identifier: MIT
// zolt-migrate run as a shop runs it: a database of the old platform made by
// the test, scanned, converted into SQLite and PostgreSQL and in place, the
// results opened with the library's own dialogs.

#include "DialogSupport.h"
#include "TestSupport.h"
#include "servers/TestServer.h"
#include "tools/LegacyShop.h"

#include "controls/DataCombo1.h"

#include <zolt/Tesmir.h>
#include <zolt/clsLogon.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>
#include <QUuid>

#include <csignal>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

struct Outcome {
    int exit = -1;
    QString out;
    QString err;
};

Outcome migrate(const QStringList &args, const QByteArray &lang = "en_US.UTF-8")
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(u"LANG"_s, QString::fromLatin1(lang));
    env.insert(u"LC_ALL"_s, QString::fromLatin1(lang));
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(ZOLT_MIGRATE), args);
    process.waitForFinished(120000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
}

// Every row of every table of a database, as text in a fixed order, but for
// the tool's journal and backups.
QStringList dump(const QSqlDatabase &db)
{
    QStringList rows;
    QStringList tables = db.tables();
    tables.sort();
    for (const QString &table : tables) {
        if (table.startsWith(u"zolt_"_s) || table.startsWith(u"sqlite_"_s))
            continue;
        QSqlQuery query(u"Select * From \"%1\""_s.arg(table), db);
        while (query.next()) {
            QStringList values{table};
            for (int i = 0; i < query.record().count(); ++i)
                values << query.value(i).toString() + u'/' + QString::number(query.value(i).typeId());
            rows << values.join(u'|');
        }
    }
    rows.sort();
    return rows;
}

QSqlDatabase openSqlite(const QString &path, const QString &name)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
    db.setDatabaseName(path);
    EXPECT_TRUE(db.open());
    return db;
}

// A new database of its own on the suite's server, dropped at the end.
class ServerDatabase {
public:
    ServerDatabase()
        : m_name(u"m"_s + QUuid::createUuid().toString(QUuid::Id128))
    {
        QSqlDatabase admin = test::addServerDatabase(u"QPSQL"_s, u"admin"_s, test::ServerFolder());
        EXPECT_TRUE(admin.open() && QSqlQuery(admin).exec(u"CREATE DATABASE "_s + m_name)) << admin.lastError().text().toStdString();
    }
    ~ServerDatabase()
    {
        QSqlDatabase::database(u"target"_s, false).close();
        QSqlDatabase::removeDatabase(u"target"_s);
        QSqlQuery(QSqlDatabase::database(u"admin"_s)).exec(u"DROP DATABASE "_s + m_name);
        QSqlDatabase::database(u"admin"_s, false).close();
        QSqlDatabase::removeDatabase(u"admin"_s);
    }
    QString url() const { return u"postgresql://zolt@localhost:55432/%1?host=%2"_s.arg(m_name, test::ServerFolder()); }
    QSqlDatabase open() const
    {
        QSqlDatabase db = test::addServerDatabase(u"QPSQL"_s, u"target"_s, test::ServerFolder());
        db.setDatabaseName(m_name);
        EXPECT_TRUE(db.open());
        return db;
    }

private:
    QString m_name;
};

// One column of a table, every row, in the order of the key.
QStringList column(const QSqlDatabase &db, const QString &sql)
{
    QStringList values;
    QSqlQuery query(sql, db);
    while (query.next())
        values << query.value(0).toString();
    return values;
}

// The target holds the shop in Unicode: what each text column held, now
// composed, and every other value as it was.
void expectConvertedShop(const QSqlDatabase &db, int goods)
{
    QStringList names, labels, shelves;
    for (int n = 0; n < goods; ++n) {
        names << test::GoodsName(n);
        labels << u"Hàng nội địa "_s + test::GoodsName(n);
        shelves << test::Shelf(n);
    }
    EXPECT_EQ(column(db, u"Select Shelf From Goods Order By Code"_s), shelves);
    EXPECT_EQ(column(db, u"Select Name From Goods Order By Code"_s), names);
    EXPECT_EQ(column(db, u"Select Label From Goods Order By Code"_s), labels);
    QSqlQuery pictures(u"Select Picture From Goods Order By Code Limit 1"_s, db);
    ASSERT_TRUE(pictures.next());
    QByteArray picture(64, '\0');
    QRandomGenerator(0).fillRange(reinterpret_cast<quint32 *>(picture.data()), 16);
    EXPECT_EQ(pictures.value(0).toByteArray(), picture);
    QStringList customers, notes;
    for (int n = 0; n < 40; ++n) {
        customers << test::CustomerName(n);
        notes << test::CustomerNote(n);
    }
    EXPECT_EQ(column(db, u"Select Name From Customers Order By Id"_s), customers);
    EXPECT_EQ(column(db, u"Select Note From Customers Order By Id"_s), notes);
    EXPECT_EQ(column(db, u"Select Name From \"%1\" Order By Code"_s.arg(db.driverName() == u"QPSQL"_s ? u"user"_s : u"User"_s)),
              QStringList({u"Quản trị"_s, u"Nguyễn Văn Bình"_s}));
    const QStringList font = column(db, u"Select KeyValue From Options Where KeyName='DefaultFont'"_s);
    ASSERT_EQ(font.size(), 1);
    EXPECT_FALSE(font[0].startsWith(u".Vn"_s) || font[0].isEmpty()) << font[0].toStdString();
}

// A clerk logs on to the converted database with the name typed in Unicode,
// and the search wizard offers the converted captions.
void expectTheDialogsWork(const QSqlDatabase &db)
{
    test::whenModalShows([](QWidget *form) {
        test::retype(test::child<QLineEdit>(form, "Txtuser"), u"Nguyễn Văn Bình"_s);
        test::retype(test::child<QLineEdit>(form, "TxtPass"), u"binh123"_s);
        test::click(form, "CmdOk");
    });
    EXPECT_EQ(clsLogon().ShowLogon(db), 2);
    QStringList fields;
    test::whenModalShows(
        [&](QWidget *form) {
            const DataCombo1 *list = test::child<DataCombo1>(form, "CmbFld(0)");
            for (int i = 0; i < list->ListCount(); ++i)
                fields << list->List(i);
            test::click(form, "CmdCancel");
        },
        5000, "FrmFind");
    Tesmir().FindShow(db, u"Goods"_s);
    EXPECT_EQ(fields, QStringList({u"Tên hàng"_s, u"Giá bán"_s}));
}

// The encoding the scan's CSV report gives each Table.Column.
QMap<QString, QString> encodingsIn(const QByteArray &csv)
{
    QMap<QString, QString> encodings;
    for (const QString &line : QString::fromUtf8(csv).split(u"\r\n"_s).mid(1)) {
        const QStringList cells = line.split(u',');
        if (cells.size() > 2 && !cells[0].isEmpty())
            encodings.insert(cells[0] + u'.' + cells[1], cells[2]);
    }
    return encodings;
}

class MigrateTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QString error;
        ASSERT_TRUE(test::MakeLegacyShop(legacy.db(), 30, &error)) << error.toStdString();
    }
    void TearDown() override
    {
        for (const QString &name : QSqlDatabase::connectionNames()) {
            if (name != legacy.name())
                QSqlDatabase::removeDatabase(name);
        }
    }
    test::TempDatabase legacy;
    QString source = legacy.db().databaseName();
    QTemporaryDir dir;
};

} // namespace

TEST_F(MigrateTest, TheScanFindsEachColumnsEncodingAndShowsSamples)
{
    const QString report = dir.filePath(u"scan.csv"_s);
    const Outcome run = migrate({u"scan"_s, source, u"--report"_s, report});
    ASSERT_EQ(run.exit, 0) << run.err.toStdString();
    const QMap<QString, QString> found = encodingsIn(test::readFile(report));
    const QMap<QString, QString> expected{
        {u"Customers.Address"_s, u"unicode"_s}, {u"Customers.Name"_s, u"vni-ansi"_s},
        {u"Customers.Note"_s, u"mixed"_s},      {u"Customers.Since"_s, u"ascii"_s},
        {u"Goods.Code"_s, u"ascii"_s},          {u"Goods.Label"_s, u"tcvn3 BLOB"_s},
        {u"Goods.Name"_s, u"tcvn3-ansi"_s},     {u"Goods.Picture"_s, u"binary BLOB"_s},
        {u"Goods.Unit"_s, u"tcvn3-ansi"_s},     {u"Goods.Shelf"_s, u"tcvn3-ansi upper"_s},     {u"Groups.Des"_s, u"ascii"_s},
        {u"Groups.Name"_s, u"tcvn3-ansi"_s},    {u"LstFld.Desc"_s, u"tcvn3-ansi"_s},
        {u"LstFld.InTable"_s, u"ascii"_s},      {u"LstFld.Name"_s, u"ascii"_s},
        {u"LstFld.Relation"_s, u"ascii"_s},     {u"Menu.Desc"_s, u"ascii"_s},
        {u"Operator.Des"_s, u"tcvn3-ansi"_s},   {u"Operator.Name"_s, u"ascii"_s},
        {u"Options.Description"_s, u"ascii"_s}, {u"Options.KeyName"_s, u"ascii"_s},
        {u"Options.KeyValue"_s, u"tcvn3-ansi"_s}, {u"Options.Section"_s, u"ascii"_s},
        {u"SubMenu.Desc"_s, u"ascii"_s},        {u"User.Dec"_s, u"tcvn3-ansi"_s},
        {u"User.Name"_s, u"tcvn3-ansi"_s}};
    EXPECT_EQ(found, expected);
    // The terminal shows the samples before and after.
    EXPECT_TRUE(run.out.contains(test::Tcvn3Ansi(test::GoodsName(0)))) << run.out.toStdString();
    EXPECT_TRUE(run.out.contains(test::GoodsName(0))) << run.out.toStdString();
    EXPECT_TRUE(run.out.contains(u"Nguyễn Văn Bình"_s));
}

TEST_F(MigrateTest, AConversionIntoANewFileGivesUnicodeThatTheDialogsRead)
{
    const QString target = dir.filePath(u"unicode.db"_s);
    const QString report = dir.filePath(u"convert.html"_s);
    const Outcome run = migrate({u"convert"_s, source, target, u"--encoding"_s, u"Customers.Note=tcvn3-ansi"_s,
                                 u"--report"_s, report});
    ASSERT_EQ(run.exit, 0) << run.err.toStdString() << run.out.toStdString();
    EXPECT_FALSE(run.out.contains(u"DIFFERENT"_s));
    EXPECT_TRUE(test::readFile(report).contains("<td>Goods</td><td>30</td><td>30</td>"));
    QSqlDatabase db = openSqlite(target, u"target"_s);
    expectConvertedShop(db, 30);
    expectTheDialogsWork(db);
    // The target is not filled twice.
    EXPECT_EQ(migrate({u"convert"_s, source, target}).exit, 4);
}

TEST_F(MigrateTest, AConversionIntoPostgreSqlGivesTheSameAndChecksEveryTable)
{
    ServerDatabase server;
    const Outcome run = migrate({u"convert"_s, source, server.url(), u"--encoding"_s, u"Customers.Note=tcvn3-ansi"_s});
    ASSERT_EQ(run.exit, 0) << run.err.toStdString() << run.out.toStdString();
    EXPECT_EQ(run.out.count(u"same"_s), 9) << run.out.toStdString();
    QSqlDatabase db = server.open();
    expectConvertedShop(db, 30);
    expectTheDialogsWork(db);
}

TEST_F(MigrateTest, UsageMistakesAndMissingDatabasesHaveTheirExitCodes)
{
    EXPECT_TRUE(migrate({u"--help"_s}).out.contains(u"Converts Vietnamese data"_s));
    EXPECT_TRUE(migrate({u"--help"_s}, "vi_VN.UTF-8").out.contains(u"Chuyển dữ liệu tiếng Việt"_s));
    struct Case {
        QStringList args;
        int exit;
    };
    const Case cases[] = {
        {{}, 1},
        {{u"copy"_s, source}, 1},
        {{u"convert"_s, source}, 1},                                      // neither a target nor --in-place
        {{u"convert"_s, source, u"x.db"_s, u"--in-place"_s}, 1},         // both
        {{u"scan"_s, source, u"--encoding"_s, u"koi8"_s}, 1},
        {{u"scan"_s, dir.filePath(u"none.db"_s)}, 2},
        {{u"convert"_s, source, u"postgresql://nobody@localhost:1/x"_s}, 2},
    };
    for (const Case &c : cases)
        EXPECT_EQ(migrate(c.args).exit, c.exit) << c.args.join(u' ').toStdString();
}

// A run stopped by SIGKILL at any point and run again ends where one
// uninterrupted run ends, with the backup holding the data as it was.
TEST_F(MigrateTest, AnInPlaceRunKilledAnywhereResumesToTheSameResult)
{
    QString error;
    test::TempDatabase big;
    ASSERT_TRUE(test::MakeLegacyShop(big.db(), 12000, &error)) << error.toStdString();
    const QString original = big.db().databaseName();
    const QStringList before = dump(big.db());
    const auto copyOf = [&](const QString &name) {
        const QString path = dir.filePath(name);
        EXPECT_TRUE(QFile::copy(original, path));
        return path;
    };
    const QStringList args{u"convert"_s, u"--in-place"_s, u"--encoding"_s, u"Customers.Note=tcvn3-ansi"_s};
    const QString reference = copyOf(u"reference.db"_s);
    QElapsedTimer clock;
    clock.start();
    ASSERT_EQ(migrate(QStringList(args) << reference).exit, 0);
    const qint64 whole = clock.elapsed();
    const QStringList after = dump(openSqlite(reference, u"reference"_s));
    QSqlDatabase::removeDatabase(u"reference"_s);
    EXPECT_NE(after, before);
    for (int trial = 0; trial < test::trials(4, 30); ++trial) {
        const QString path = copyOf(u"trial%1.db"_s.arg(trial));
        QProcess process;
        process.start(QStringLiteral(ZOLT_MIGRATE), QStringList(args) << path);
        ASSERT_TRUE(process.waitForStarted());
        const qint64 at = QRandomGenerator::global()->bounded(whole + 1);
        QTest::qWait(int(at));
        // A run that ended already is not killed (processId() is then 0, and
        // kill(0) would end this test's whole process group).
        if (process.state() == QProcess::Running)
            ::kill(pid_t(process.processId()), SIGKILL);
        process.waitForFinished();
        const Outcome again = migrate(QStringList(args) << path);
        ASSERT_EQ(again.exit, 0) << "killed after " << at << " ms: " << again.err.toStdString();
        const QString name = u"trial"_s + QString::number(trial);
        EXPECT_EQ(dump(openSqlite(path, name)), after) << "killed after " << at << " ms";
        // A further run changes nothing.
        ASSERT_EQ(migrate(QStringList(args) << path).exit, 0);
        EXPECT_EQ(dump(QSqlDatabase::database(name)), after);
        // The backup is the data as it was.
        const QStringList backups = QDir(dir.path()).entryList({u"trial%1.db.before-migrate*"_s.arg(trial)});
        ASSERT_EQ(backups.size(), 1) << backups.join(u' ').toStdString();
        EXPECT_EQ(dump(openSqlite(dir.filePath(backups[0]), name + u"-backup"_s)), before);
    }
}

TEST_F(MigrateTest, InPlaceOnPostgreSqlEachTableTouchedIsCopiedFirst)
{
    ServerDatabase server;
    // The shop on the server as it was: copied with no column chosen.
    ASSERT_EQ(migrate({u"convert"_s, source, server.url(), u"--column"_s, u"None.None"_s}).exit, 0);
    const Outcome run = migrate({u"convert"_s, server.url(), u"--in-place"_s, u"--encoding"_s, u"Customers.Note=tcvn3-ansi"_s});
    ASSERT_EQ(run.exit, 0) << run.err.toStdString() << run.out.toStdString();
    QSqlDatabase db = server.open();
    expectConvertedShop(db, 30);
    EXPECT_EQ(column(db, u"Select Name From zolt_backup_goods Order By Code"_s).value(0), test::Tcvn3Ansi(test::GoodsName(0)));
    EXPECT_TRUE(run.out.contains(u"zolt_backup_goods"_s));
    const Outcome again = migrate({u"convert"_s, server.url(), u"--in-place"_s});
    EXPECT_EQ(again.exit, 0);
    expectConvertedShop(db, 30);
}
