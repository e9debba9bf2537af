// SPDX-License-Identifier: MIT
#include "core/platform/Registry.h"

#include "TestSupport.h"
#include "WriterTool.h"

#include <zolt/Enums.h>
#include <zolt/clsRegistry.h>

#include <QDir>
#include <QDirIterator>
#include <QHash>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QThread>

#include <csignal>
#include <optional>
#include <utility>
#include <vector>
#include <unistd.h>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

const QString Key = u"Software\\ZOLT\\Kế toán"_s;
const QString OdbcIni = u"SOFTWARE\\ODBC\\ODBC.INI\\"_s;
const QString User = QString::number(quint32(HK_CURRENT_USER));
const QString Machine = QString::number(quint32(HK_LOCAL_MACHINE));

class RegistryTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QFile::setPermissions(dir.path(), QFile::permissions(dir.path()) | QFile::ReadOther | QFile::ExeOther);
        QDir(dir.path()).mkpath(u"sys"_s);
        for (const auto &[variable, path] : {std::pair{"ZOLT_USER_REGISTRY", "user"}, {"ZOLT_MACHINE_REGISTRY", "machine"},
                                             {"ODBCSYSINI", "sys"}, {"ODBCINI", "user.ini"}}) {
            before.emplace_back(variable, qEnvironmentVariableIsSet(variable) ? std::optional(qgetenv(variable)) : std::nullopt);
            qputenv(variable, QFile::encodeName(dir.filePath(QLatin1String(path))));
        }
    }
    // The stores go back to where they were: a later test of the same
    // program reaches the test server's data sources again.
    void TearDown() override
    {
        for (const auto &[variable, value] : before)
            value ? qputenv(variable, *value) : qunsetenv(variable);
    }
    QString read(const QString &name, const QString &key = Key, qint32 root = HK_CURRENT_USER)
    {
        QString value = u"<untouched>"_s;
        registry.GetKeyValue(root, key, name, value);
        return value;
    }
    qint32 write(const QString &name, const QString &value, const QString &key = Key, qint32 root = HK_CURRENT_USER)
    {
        return registry.WriteRegEdit(root, key, name, value);
    }
    // Milliseconds that a write to the key takes.
    qint64 timedWrite(const QString &key, qint32 root)
    {
        QElapsedTimer taken;
        taken.start();
        EXPECT_EQ(write(u"after"_s, u"1"_s, key, root), 0);
        return taken.elapsed();
    }
    QTemporaryDir dir;
    clsRegistry registry;
    std::vector<std::pair<const char *, std::optional<QByteArray>>> before;
};

} // namespace

TEST_F(RegistryTest, TextsRoundTripWithoutRegardToCase)
{
    EXPECT_EQ(write(u"LastDb"_s, u"/dữ liệu/a.db"_s), 0);
    EXPECT_EQ(read(u"lastdb"_s, u"SOFTWARE\\zolt\\KẾ TOÁN"_s), "/dữ liệu/a.db");
    EXPECT_EQ(write(u"LASTDB"_s, u"b"_s), 0);
    EXPECT_EQ(read(u"LastDb"_s), "b");
    EXPECT_EQ(read(u"LastDb"_s, Key, HK_LOCAL_MACHINE), "<untouched>");   // roots apart
    write(u"fits"_s, QString(1023, u'ế'));   // 1024 characters with the terminating zero, a byte each
    write(u"long"_s, QString(1024, u'a'));
    EXPECT_EQ(read(u"fits"_s), QString(1023, u'ế'));
    EXPECT_EQ(read(u"long"_s), "<untouched>");
}

TEST_F(RegistryTest, EveryKeyNameStaysInsideTheStoreAndIsAKeyOfItsOwn)
{
    const QString names[] = {u"."_s, u".."_s, u"/"_s, u"a/../../.."_s, QString(1, QChar(0)), u"\x01\n"_s, u"%41"_s,
                             u"A"_s, u"Values"_s, u".lock"_s, u"values.tmp"_s, u"Σ"_s};
    for (int i = 0; i < std::ssize(names); ++i)
        EXPECT_EQ(write(u"v"_s, QString::number(i), u"Software\\"_s + names[i]), 0) << i;
    EXPECT_EQ(write(u"v"_s, u"child"_s, u"Software\\..\\x"_s), 0);
    for (int i = 0; i < std::ssize(names); ++i)
        EXPECT_EQ(read(u"v"_s, u"Software\\"_s + names[i]), QString::number(i)) << i;
    EXPECT_EQ(read(u"v"_s, u"Software\\ς"_s), QString::number(std::size(names) - 1));   // one key, case aside
    EXPECT_EQ(write(u"v"_s, u"x"_s, u"Software\\"_s + QString(100000, u'k')), RegBadPathname);
    QDirIterator files(dir.path(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        EXPECT_TRUE(file.startsWith(dir.filePath(u"user/HKEY_CURRENT_USER/software/"_s))) << file.toStdString();
    }
}

TEST_F(RegistryTest, RandomKeyPathsStayInsideTheStoreAndKeepTheirOwnValues)
{
    const QString pieces[] = {u"."_s, u".."_s, u"/"_s, QString(1, QChar(0)), u"\x07"_s, u"%2E"_s, u"Σ"_s, u"ς"_s,
                              u"values"_s, u".lock"_s, u"a"_s, u"A"_s, u" "_s, u"ế"_s};
    QHash<QString, QString> expected;   // by the key as the store compares it
    auto *random = QRandomGenerator::global();
    for (int i = 0, n = test::trials(300, 3000); i < n; ++i) {
        QStringList parts = {u"Software"_s};
        for (int depth = 1 + int(random->bounded(3)); depth > 0; --depth) {
            QString part;
            for (int length = 1 + int(random->bounded(3)); length > 0; --length)
                part += pieces[random->bounded(int(std::size(pieces)))];
            parts << part;
        }
        const QString key = parts.join(u'\\');
        ASSERT_EQ(write(u"v"_s, QString::number(i), key), 0) << key.toStdString();
        expected[key.toCaseFolded()] = QString::number(i);
    }
    for (auto it = expected.cbegin(); it != expected.cend(); ++it)
        EXPECT_EQ(read(u"v"_s, it.key()), it.value()) << it.key().toStdString();
    QDirIterator files(dir.path(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext())
        EXPECT_TRUE(files.next().startsWith(dir.filePath(u"user/HKEY_CURRENT_USER/software/"_s)));
}

TEST_F(RegistryTest, NumbersReadAsSignedDecimalTextOtherTypesNot)
{
    RegCreateKey(HK_CURRENT_USER, Key);
    for (const auto &[number, text] : {std::pair{31u, "31"}, {0x01000000u, "16777216"}, {0xFFFFFFFFu, "-1"}}) {
        ASSERT_EQ(RegSetValue(HK_CURRENT_USER, Key, u"n"_s, RegNumber(number)), 0);
        EXPECT_EQ(read(u"n"_s), text) << number;
    }
    ASSERT_EQ(RegSetValue(HK_CURRENT_USER, Key, u"bin"_s, RegValue{3, "ab"}), 0);
    QString value = u"kept"_s;
    EXPECT_TRUE(registry.GetKeyValue(HK_CURRENT_USER, Key, u"bin"_s, value));
    EXPECT_EQ(value, "kept");
}

TEST_F(RegistryTest, WhatCannotBeReadLeavesValueDataAlone)
{
    write(u"a"_s, u"1"_s);
    for (const QString &bad : {u"\\Software"_s, u"Software\\"_s, u"Software\\\\ZOLT"_s, u"Software\\Khác"_s})
        EXPECT_EQ(read(u"a"_s, bad), "<untouched>");
    EXPECT_EQ(read(u"b"_s), "<untouched>");
    EXPECT_EQ(read(u"a"_s, Key, 12345), "<untouched>");
    EXPECT_EQ(write(u"a"_s, u"1"_s, Key, 12345), RegInvalidHandle);
}

TEST_F(RegistryTest, ARootThatMayNotBeWrittenRefusesAndKeepsItsValues)
{
    write(u"a"_s, u"old"_s, Key, HK_LOCAL_MACHINE);
    if (::geteuid() == 0) {   // the machine's store belongs to root; a clerk's process is refused
        for (const QString &key : {Key, u"Software\\Mới"_s})
            EXPECT_EQ(test::runWriter({u"set"_s, Machine, key, u"a"_s, u"new"_s}, true), "5");
        EXPECT_EQ(read(u"a"_s, Key, HK_LOCAL_MACHINE), "old");
    } else {
        QFile::setPermissions(dir.filePath(u"machine/HKEY_LOCAL_MACHINE/software/zolt/kế toán"_s), QFile::ReadOwner | QFile::ExeOwner);
        EXPECT_EQ(write(u"a"_s, u"new"_s, Key, HK_LOCAL_MACHINE), 5);
    }
    EXPECT_FALSE(QDir(dir.filePath(u"machine/HKEY_LOCAL_MACHINE/software/mới"_s)).exists());
}

TEST_F(RegistryTest, AKilledWriterLeavesTheOldValueOrTheNewOne)
{
    RegCreateKey(HK_CURRENT_USER, Key);
    for (int round = 0, rounds = test::trials(4, 200); round < rounds; ++round) {
        auto writer = test::startWriter({u"loop"_s, User, Key, u"big"_s, u"1000"_s});
        QThread::msleep(40 + QRandomGenerator::global()->bounded(200));
        ::kill(pid_t(writer->processId()), SIGKILL);
        writer->waitForFinished();
        EXPECT_LT(timedWrite(Key, HK_CURRENT_USER), 1000) << round;   // no stall on a lock it left
        RegValue value;
        const qint32 status = RegQueryValue(HK_CURRENT_USER, Key, u"big"_s, 1 << 22, value);
        if (status == RegNotFound)
            continue;   // killed before its first write was done
        ASSERT_EQ(status, 0);
        const QByteArray text = value.data.chopped(1);   // less its terminating zero
        EXPECT_TRUE(text.startsWith("big:") && text.endsWith(":end")) << round;
        EXPECT_EQ(text.size(), (1 << 20) + 9 + text.split(':')[1].size());
    }
}

TEST_F(RegistryTest, ALockLeftByAKilledWriterIsTakenOverAtOnce)
{
    RegCreateKey(HK_CURRENT_USER, u"Software\\Kho"_s);
    test::writeFile(dir.filePath(u"user/HKEY_CURRENT_USER/software/kho/.lock"_s), {});
    QElapsedTimer waited;
    waited.start();
    EXPECT_EQ(write(u"a"_s, u"1"_s, u"Software\\Kho"_s), 0);
    EXPECT_LT(waited.elapsed(), 1500);   // not the half minute of an unbounded wait
}

TEST_F(RegistryTest, TwoWritersAtOnceKeepBothValues)
{
    RegCreateKey(HK_CURRENT_USER, Key);
    auto first = test::startWriter({u"loop"_s, User, Key, u"A"_s, u"15"_s});
    auto second = test::startWriter({u"loop"_s, User, Key, u"B"_s, u"15"_s});
    test::finish({first.get(), second.get()});
    for (const char *name : {"A", "B"}) {
        RegValue value;
        ASSERT_EQ(RegQueryValue(HK_CURRENT_USER, Key, QLatin1String(name), 1 << 22, value), 0) << name;
        EXPECT_TRUE(value.data.startsWith(QByteArray(name) + ":14:")) << name;
    }
}

TEST_F(RegistryTest, DataSourcesSurviveKilledAndConcurrentRegistrations)
{
    registry.Create_DSN(u"Keep"_s, u"giữ"_s, u"SalesDb"_s, u"srv01"_s, u"SQL Server"_s);
    const auto kept = [this] { return read(u"Server"_s, OdbcIni + u"Keep"_s, HK_LOCAL_MACHINE) == u"srv01"_s; };
    for (int round = 0, rounds = test::trials(4, 200); round < rounds; ++round) {
        auto writer = test::startWriter({u"dsn"_s, u"K%1x"_s.arg(round), u"200"_s});
        QThread::msleep(20 + QRandomGenerator::global()->bounded(100));
        ::kill(pid_t(writer->processId()), SIGKILL);
        writer->waitForFinished();
        EXPECT_LT(timedWrite(OdbcIni + u"Keep"_s, HK_LOCAL_MACHINE), 1000) << round;
        EXPECT_TRUE(kept()) << round;
    }
    auto first = test::startWriter({u"dsn"_s, u"A"_s, u"30"_s});
    auto second = test::startWriter({u"dsn"_s, u"B"_s, u"30"_s});
    test::finish({first.get(), second.get()});
    for (int i = 0; i < 30; ++i) {
        for (const char *prefix : {"A", "B"})
            EXPECT_EQ(read(u"Server"_s, OdbcIni + QLatin1String(prefix) + QString::number(i), HK_LOCAL_MACHINE), "srv")
                << prefix << i;
    }
    EXPECT_TRUE(kept());
}

TEST_F(RegistryTest, DataSourcesAreUnixOdbcs)
{
    registry.Create_DSN(u"BanHang"_s, u"Dữ liệu bán hàng"_s, u"SalesDb"_s, u"srv01"_s, u"SQL Server"_s);
    QProcess odbcinst;   // what unixODBC's own tool lists
    odbcinst.start(u"odbcinst"_s, {u"-q"_s, u"-s"_s, u"-n"_s, u"BanHang"_s});
    EXPECT_TRUE(odbcinst.waitForFinished());
    const QString entries = QString::fromUtf8(odbcinst.readAllStandardOutput());
    for (const char *line : {"Database=SalesDb", "Description=Dữ liệu bán hàng", "LastUser=sa", "Server=srv01",
                             "AnsiNPW=No", "Driver=SQL Server"})
        EXPECT_TRUE(entries.contains(QString::fromUtf8(line))) << line << "\n" << entries.toStdString();
    EXPECT_EQ(read(u"BanHang"_s, OdbcIni + u"ODBC Data Sources"_s, HK_LOCAL_MACHINE), "SQL Server");
    // The data source's own Driver reads as written, empty, while unixODBC loads
    // the driver its entry names; a driver the data source names wins.
    EXPECT_EQ(read(u"Driver"_s, OdbcIni + u"BanHang"_s, HK_LOCAL_MACHINE), "");
    EXPECT_EQ(write(u"DRIVER"_s, u"/usr/lib/psqlodbcw.so"_s, OdbcIni + u"BanHang"_s, HK_LOCAL_MACHINE), 0);
    EXPECT_TRUE(test::readFile(dir.filePath(u"sys/odbc.ini"_s)).contains("Driver=/usr/lib/psqlodbcw.so"));
    EXPECT_EQ(read(u"Server"_s, OdbcIni + u"BanHang"_s), "<untouched>");

    registry.Create_DSN_EXL(u"SoKho"_s, u"/data"_s, u"/data/kho.xls"_s, u"excel 5.0"_s);
    EXPECT_EQ(read(u"DriverId"_s, OdbcIni + u"SoKho"_s, HK_LOCAL_MACHINE), "790");
    EXPECT_EQ(read(u"Threads"_s, OdbcIni + u"SoKho\\Engines\\Excel"_s, HK_LOCAL_MACHINE), "3");
    EXPECT_EQ(write(u"Server"_s, u"may-ban"_s, OdbcIni + u"Rieng"_s), 0);   // a user's own data source
    EXPECT_EQ(write(u"Ghi chú"_s, u"1"_s, OdbcIni.chopped(1)), 0);             // the key itself: an ordinary key
    EXPECT_EQ(read(u"Ghi chú"_s, OdbcIni.chopped(1)), "1");
    // Text that would make or change another data source is refused whole.
    registry.Create_DSN(u"Moi"_s, u"x\n[Evil]\nDriver=/tmp/evil.so"_s, u"SalesDb"_s, u"srv01"_s, u"SQL Server"_s);
    registry.Create_DSN(u"Evil]\n[Moi2"_s, u"x"_s, u"SalesDb"_s, u"srv01"_s, u"SQL Server"_s);
    EXPECT_EQ(write(u"Server"_s, u"a\r\n[Evil]"_s, OdbcIni + u"Rieng"_s), RegInvalidParameter);
    EXPECT_EQ(write(u"Driver=/tmp/evil.so\nX"_s, u"1"_s, OdbcIni + u"Rieng"_s), RegBadPathname);
    for (const char *file : {"sys/odbc.ini", "user.ini"}) {
        const QByteArray text = test::readFile(dir.filePath(QLatin1String(file)));
        EXPECT_FALSE(text.contains("Evil") || text.contains("Moi")) << text.toStdString();
    }
    EXPECT_TRUE(test::readFile(dir.filePath(u"user.ini"_s)).contains("Server=may-ban"));
}
