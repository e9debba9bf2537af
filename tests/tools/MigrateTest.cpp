// SPDX-License-Identifier: MIT
// zolt-migrate run as a shop runs it: a database of the old platform made by
// the test, scanned, converted into SQLite and PostgreSQL and in place, the
// results opened with the library's own dialogs.

#include "DialogSupport.h"
#include "servers/TestServer.h"
#include "TestSupport.h"
#include "tools/LegacyShop.h"

#include <zolt/DataCombo1.h>
#include <zolt/DriverSql.h>
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

// A new database of its own on one of the suite's servers (PostgreSQL or
// MariaDB), dropped at the end.
class ServerDatabase {
public:
    explicit ServerDatabase(test::Engine engine = test::Engine::PostgreSQL)
        : m_engine(engine)
        , m_name(u"m"_s + QUuid::createUuid().toString(QUuid::Id128))
    {
        QSqlDatabase admin = connection(u"admin"_s);
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
    QString url() const
    {
        return m_engine == test::Engine::MariaDB ? u"mysql://zolt@localhost/%1?host=%2"_s.arg(m_name, test::MariaDbFolder())
                                                 : u"postgresql://zolt@localhost:55432/%1?host=%2"_s.arg(m_name, test::ServerFolder());
    }
    QSqlDatabase open() const
    {
        QSqlDatabase db = connection(u"target"_s);
        db.setDatabaseName(m_name);
        EXPECT_TRUE(db.open());
        return db;
    }

private:
    QSqlDatabase connection(const QString &name) const
    {
        return m_engine == test::Engine::MariaDB ? test::addServerDatabase(u"QMYSQL"_s, name, test::MariaDbFolder())
                                                 : test::addServerDatabase(u"QPSQL"_s, name, test::ServerFolder());
    }

    test::Engine m_engine;
    QString m_name;
};

// One column of a table, every row, in the order of the key.
QStringList column(const QSqlDatabase &db, const QString &sql)
{
    QStringList values;
    QSqlQuery query(DriverSql(db, sql), db);
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
    QSqlQuery pictures(DriverSql(db, u"Select Picture From Goods Order By Code Limit 1"_s), db);
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
    EXPECT_EQ(column(db, u"Select Name From [User] Order By Code"_s),
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
        {u"Customers.Note"_s, u"tcvn3-ansi"_s}, {u"Customers.Since"_s, u"ascii"_s},
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
    // The customers' notes, TCVN3 beside Unicode, need no --encoding: each value is read in its own.
    const Outcome run = migrate({u"convert"_s, source, target, u"--report"_s, report});
    ASSERT_EQ(run.exit, 0) << run.err.toStdString() << run.out.toStdString();
    EXPECT_FALSE(run.out.contains(u"DIFFERENT"_s));
    EXPECT_TRUE(test::readFile(report).contains("<td>Goods</td><td>30</td><td>30</td>"));
    QSqlDatabase db = openSqlite(target, u"target"_s);
    expectConvertedShop(db, 30);
    expectTheDialogsWork(db);
    // The target is not filled twice.
    EXPECT_EQ(migrate({u"convert"_s, source, target}).exit, 4);
}

class MigrateIntoServer : public MigrateTest, public ::testing::WithParamInterface<test::Engine> {};
INSTANTIATE_TEST_SUITE_P(Engines, MigrateIntoServer, ::testing::Values(test::Engine::PostgreSQL, test::Engine::MariaDB),
                         test::EngineName);

TEST_P(MigrateIntoServer, AConversionIntoAServerGivesTheSameAndChecksEveryTable)
{
    ServerDatabase server(GetParam());
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

namespace {

QString accessFile(const char *name)
{
    return QStringLiteral(ZOLT_ACCESS_DATA "/") + QLatin1String(name);
}

// A column's declared type and an index's columns, as the target describes them.
QStringList describeSqlite(const QSqlDatabase &db, const QString &table)
{
    QStringList out;
    QSqlQuery columns(u"PRAGMA table_info(\"%1\")"_s.arg(table), db);
    while (columns.next())
        out << columns.value(1).toString() + u' ' + columns.value(2).toString() + (columns.value(5).toInt() ? u" key"_s : u""_s);
    QSqlQuery indexes(u"SELECT name FROM sqlite_master WHERE type='index' AND tbl_name='%1' AND sql IS NOT NULL"_s.arg(table), db);
    while (indexes.next())
        out << u"index "_s + indexes.value(0).toString();
    return out;
}

QStringList describeMariaDb(const QSqlDatabase &db, const QString &table)
{
    QStringList out;
    QSqlQuery columns(u"SELECT column_name, column_type FROM information_schema.columns WHERE table_schema = database() "
                      "AND table_name = '%1' ORDER BY ordinal_position"_s.arg(table), db);
    while (columns.next())
        out << columns.value(0).toString() + u' ' + columns.value(1).toString();
    return out;
}

QStringList describePostgreSql(const QSqlDatabase &db, const QString &table)
{
    QStringList out;
    QSqlQuery columns(db);
    columns.exec(u"SELECT column_name, CASE WHEN data_type='USER-DEFINED' THEN udt_name WHEN numeric_scale IS NOT NULL "
                 "AND data_type='numeric' THEN 'numeric(' || numeric_precision || ',' || numeric_scale || ')' ELSE data_type END "
                 "FROM information_schema.columns WHERE table_name='%1' ORDER BY ordinal_position"_s.arg(table));
    while (columns.next())
        out << columns.value(0).toString() + u' ' + columns.value(1).toString();
    QSqlQuery indexes(u"SELECT indexname FROM pg_indexes WHERE tablename='%1' ORDER BY indexname"_s.arg(table), db);
    while (indexes.next())
        out << u"index "_s + indexes.value(0).toString();
    return out;
}

} // namespace

// The shop's Access file in one command, into SQLite, PostgreSQL and
// MariaDB: every table and row, each type exact, keys and indexes made,
// names kept.
TEST(MigrateAccess, AnAccessFileConvertsIntoEveryEngine)
{
    QTemporaryDir dir;
    const QString sqlite = dir.filePath(u"shop.db"_s);
    const Outcome run = migrate({u"convert"_s, accessFile("testV1997.mdb"), sqlite});
    ASSERT_EQ(run.exit, 0) << run.err.toStdString() << run.out.toStdString();
    EXPECT_EQ(run.out.count(u"same"_s), 4) << run.out.toStdString();
    {
        QSqlDatabase db = openSqlite(sqlite, u"target"_s);
        EXPECT_EQ(describeSqlite(db, u"Table1"_s),
                  (QStringList{u"A TEXT key"_s, u"B TEXT"_s, u"C INTEGER"_s, u"D INTEGER"_s,
                               u"E INTEGER"_s, u"F DOUBLE"_s, u"G TIMESTAMP"_s, u"H NUMERIC(19,4)"_s, u"I BOOLEAN"_s,
                               u"index Table1_B"_s}));
        EXPECT_EQ(dump(db).first(), u"Table1|a/10|b/10|0/4|0/4|0/4|0/6|1981-12-12T00:00:00/10|0/4|0/4"_s);
        EXPECT_EQ(dump(db).at(1), u"Table1|abcdefg/10|hijklmnop/10|2/4|222/4|333333333/4|444.555/6|1974-09-21T00:00:00/10|3.5/6|1/4"_s);
    }
    QSqlDatabase::removeDatabase(u"target"_s);

    // On the servers: a memo and a binary whole, a date with its time, a yes/no.
    struct Server {
        test::Engine engine;
        QStringList columns;   // as the server describes them
        const char *length;    // its function for the characters of a text
    };
    const Server servers[] = {
        {test::Engine::PostgreSQL,
         {u"proj_prop_author citext"_s, u"reserved_binary_data bytea"_s,
          u"proj_info_current_date timestamp without time zone"_s, u"proj_opt_honor_constraints boolean"_s},
         "length"},
        {test::Engine::MariaDB,
         {u"proj_prop_author longtext"_s, u"reserved_binary_data longblob"_s, u"proj_info_current_date datetime"_s,
          u"proj_opt_honor_constraints tinyint(1)"_s},
         "char_length"},
    };
    for (const Server &s : servers) {
        ServerDatabase server(s.engine);
        const Outcome run = migrate({u"convert"_s, accessFile("test2V2003.mdb"), server.url()});
        ASSERT_EQ(run.exit, 0) << run.err.toStdString() << run.out.toStdString();
        QSqlDatabase db = server.open();
        const QStringList made = s.engine == test::Engine::PostgreSQL ? describePostgreSql(db, u"msp_projects"_s)
                                                                      : describeMariaDb(db, u"msp_projects"_s);
        for (const QString &expected : s.columns)
            EXPECT_TRUE(made.contains(expected)) << expected.toStdString() << ": " << made.join(u", ").toStdString();
        QSqlQuery row(u"SELECT %1(proj_prop_author), length(reserved_binary_data), proj_info_current_date, "
                      "proj_opt_currency_symbol FROM msp_projects"_s.arg(QLatin1String(s.length)), db);
        ASSERT_TRUE(row.next());
        EXPECT_EQ(row.value(0).toInt(), 348);
        EXPECT_EQ(row.value(1).toInt(), 22970);
        EXPECT_EQ(row.value(2).toDateTime(), QDateTime(QDate(2006, 2, 3), QTime(8, 0)));
        EXPECT_EQ(row.value(3).toString(), u"£"_s);
    }
}

TEST(MigrateAccess, DecimalsAndUnicodeKeepEveryDigitAndLetter)
{
    {
        ServerDatabase server;
        ASSERT_EQ(migrate({u"convert"_s, accessFile("fixedNumericTestV2003.mdb"), server.url()}).exit, 0);
        QSqlDatabase db = server.open();
        EXPECT_TRUE(describePostgreSql(db, u"test"_s).contains(u"col2 numeric(18,0)"_s));
        EXPECT_EQ(column(db, u"SELECT col2::text || ' ' || col5::text || ' ' || col6::text FROM test"_s), QStringList{u"1 4 -1"_s});
    }
    {
        ServerDatabase unicode;
        ASSERT_EQ(migrate({u"convert"_s, accessFile("testUnicodeCompV2003.mdb"), unicode.url()}).exit, 0);
        QSqlDatabase db = unicode.open();
        EXPECT_EQ(column(db, u"SELECT \"unicode\" FROM \"table\" WHERE id=3"_s), QStringList{u"Мир"_s});
        EXPECT_TRUE(describePostgreSql(db, u"table"_s).contains(u"index table_pkey"_s));
    }
    {
        ServerDatabase server(test::Engine::MariaDB);
        ASSERT_EQ(migrate({u"convert"_s, accessFile("fixedNumericTestV2003.mdb"), server.url()}).exit, 0);
        QSqlDatabase db = server.open();
        EXPECT_TRUE(describeMariaDb(db, u"test"_s).contains(u"col2 decimal(18,0)"_s)) << describeMariaDb(db, u"test"_s).join(u", ").toStdString();
        EXPECT_EQ(column(db, u"SELECT CONCAT(col2, ' ', col5, ' ', col6) FROM [test]"_s), QStringList{u"1 4 -1"_s});
    }
    ServerDatabase unicode(test::Engine::MariaDB);
    ASSERT_EQ(migrate({u"convert"_s, accessFile("testUnicodeCompV2003.mdb"), unicode.url()}).exit, 0);
    QSqlDatabase db = unicode.open();
    EXPECT_EQ(column(db, u"SELECT [unicode] FROM [table] WHERE id=3"_s), QStringList{u"Мир"_s});
}

// A source that is no database, or a target that is none the tool can
// write, is told in one sentence with exit code 2, and no target is made.
TEST(MigrateAccess, WhatIsNoDatabaseIsToldInOneSentence)
{
    QTemporaryDir dir;
    test::writeFile(dir.filePath(u"empty.db"_s), {});
    test::writeFile(dir.filePath(u"notes.txt"_s), "Hàng tồn kho tháng 3\n");
    struct Case {
        QStringList args;
        const char *told;
    };
    const QString target = dir.filePath(u"new.db"_s);
    const Case cases[] = {
        {{u"scan"_s, dir.filePath(u"missing.mdb"_s)}, "There is no file"},
        {{u"convert"_s, dir.filePath(u"empty.db"_s), target}, "is an empty file, not a database"},
        {{u"convert"_s, dir.filePath(u"notes.txt"_s), target}, "is neither an Access nor an SQLite database"},
        {{u"scan"_s, dir.path()}, "is a folder, not a database"},
        {{u"convert"_s, accessFile("testV1997.mdb"), accessFile("test2V2003.mdb")}, "is an Access file, which zolt-migrate only reads"},
        {{u"convert"_s, accessFile("testV1997.mdb"), dir.filePath(u"notes.txt"_s)}, "holds something that is not an SQLite database"},
        {{u"convert"_s, accessFile("testV1997.mdb"), u"--in-place"_s}, "An Access file is not converted in place"},
    };
    for (const Case &c : cases) {
        const Outcome run = migrate(c.args);
        EXPECT_EQ(run.exit, 2) << c.args.join(u' ').toStdString();
        EXPECT_TRUE(run.err.contains(QString::fromUtf8(c.told))) << run.err.toStdString();
        EXPECT_EQ(run.err.count(u'\n'), 1) << run.err.toStdString();
        EXPECT_FALSE(QFile::exists(target)) << c.args.join(u' ').toStdString();
    }
    EXPECT_EQ(test::readFile(dir.filePath(u"notes.txt"_s)), QByteArray("Hàng tồn kho tháng 3\n"));
    EXPECT_TRUE(migrate({u"scan"_s, dir.filePath(u"missing.mdb"_s)}, "vi_VN.UTF-8").err.contains(u"Không có tệp"_s));
}

// A book whose clerks typed in VNI, with the misreadings a real shop's books
// showed: each value read back exactly as it is meant.
TEST(MigrateMisreadings, EachValueIsReadAsItIsMeant)
{
    QTemporaryDir dir;
    const QString source = dir.filePath(u"book.db"_s), target = dir.filePath(u"unicode.db"_s);
    {
        QSqlDatabase db = openSqlite(source, u"book"_s);
        QSqlQuery query(db);
        ASSERT_TRUE(query.exec(u"Create Table VatTu(Ma Integer Primary Key, Ten Text)"_s));
        const QStringList goods{u"Xi maêng Haø Tieân"_s, u"Theùp troøn"_s, u"Gaïch oáng"_s, u"Ñaù xanh"_s, u"Caùt ñen"_s,
                                u"Sôn nöôùc"_s, u"Toân laïnh"_s, u"Keõm buoäc"_s, u"Ñinh theùp"_s, u"Xaø goà"_s};
        QStringList names;
        for (int n = 0; n < 40; ++n)
            names << goods[n % goods.size()] + u' ' + QString::number(n);
        names << u"Caùt (vaøng)"_s << u"Cát (vàng)"_s << u"Đá hộc"_s << u"Sỏi"_s << u"Ong 40"_s << u"Nhaân vieân ngùöôøi"_s
              << u"Müller"_s;
        query.prepare(u"Insert Into VatTu Values(?, ?)"_s);
        for (int n = 0; n < names.size(); ++n) {
            query.addBindValue(n);
            query.addBindValue(names[n]);
            ASSERT_TRUE(query.exec());
        }
        for (const QString &sql : {u"Create Table Kho(Ma Integer Primary Key, Ten Text, CongTrinh Text)"_s,
                                   u"Insert Into Kho Values(1, 'Kho Coâng Ty', 'Coâng Trình')"_s,
                                   u"Create Table DanhGia(Ma Integer Primary Key, Muc Text)"_s,
                                   u"Create Table ChungTu(Ma Integer Primary Key, DienGiai Text)"_s,
                                   u"Insert Into ChungTu Values(1, '§Çu n¨m: Xe oâ toâ taûi')"_s})
            ASSERT_TRUE(query.exec(sql)) << sql.toStdString();
        for (int n = 0; n < 5; ++n)
            ASSERT_TRUE(query.exec(u"Insert Into DanhGia Values(%1, 'Toát')"_s.arg(n)));
    }
    QSqlDatabase::removeDatabase(u"book"_s);
    const Outcome run = migrate({u"convert"_s, source, target});
    ASSERT_EQ(run.exit, 0) << run.err.toStdString() << run.out.toStdString();
    QSqlDatabase db = openSqlite(target, u"target"_s);
    const QStringList goods = column(db, u"Select Ten From VatTu Order By Ma"_s);
    EXPECT_EQ(goods.first(), u"Xi măng Hà Tiên 0"_s);
    EXPECT_EQ(goods.mid(40), (QStringList{u"Cát (vàng)"_s, u"Cát (vàng)"_s, u"Đá hộc"_s, u"Sỏi"_s, u"Ong 40"_s,
                                          u"Nhân viên người"_s, u"Müller"_s}));
    EXPECT_EQ(column(db, u"Select Ten || '|' || CongTrinh From Kho"_s), QStringList{u"Kho Công Ty|Công Trình"_s});
    EXPECT_EQ(column(db, u"Select Muc From DanhGia"_s), QStringList(5, u"Tốt"_s));
    EXPECT_EQ(column(db, u"Select DienGiai From ChungTu"_s), QStringList{u"Đầu năm: Xe ô tô tải"_s});
    // The report names each value read otherwise than its column.
    EXPECT_TRUE(run.out.contains(u"Column VatTu.Ten: 3 value(s) read in their own encoding"_s)) << run.out.toStdString();
    EXPECT_TRUE(run.out.contains(u"Column VatTu.Ten: 1 value(s) held a VNI mark typed before its vowel"_s));
    EXPECT_TRUE(run.out.contains(u"Column ChungTu.DienGiai: 1 value(s) hold a TCVN3 run and a VNI run"_s));
    EXPECT_TRUE(run.out.contains(u"Column DanhGia.Muc is short and each value reads two ways: read as vni-ansi"_s));
}

// An Access file copied only in part: cut inside a page it is refused; cut
// at a page the tables it lost are named and the conversion does not end as
// if all were well; cut where libmdb would read its catalogue without end,
// the tool stops and says so.
TEST(MigrateAccess, ADamagedAccessFileIsToldNeverTakenForWhole)
{
    QTemporaryDir dir;
    const QByteArray whole = test::readFile(accessFile("testV1997.mdb"));
    struct Case {
        int bytes;
        int exit;
        const char *told;
    };
    const Case cases[] = {
        {10000, 2, "the file is cut short (it is not whole pages of 2048 bytes)"},
        {102400, 3, "Not read: Table3: libmdb cannot read the table"},
        {98304, 2, "libmdb does not finish reading this Access file's catalogue (the file is damaged)"},
    };
    for (const Case &c : cases) {
        const QString cut = dir.filePath(u"cut%1.mdb"_s.arg(c.bytes));
        test::writeFile(cut, whole.left(c.bytes));
        const Outcome run = migrate({u"convert"_s, cut, dir.filePath(u"cut%1.db"_s.arg(c.bytes))});
        EXPECT_EQ(run.exit, c.exit) << c.bytes;
        EXPECT_TRUE((run.out + run.err).contains(QString::fromUtf8(c.told))) << c.bytes << run.err.right(300).toStdString();
    }
}
