#include "data/Registry.h"

#include <zolt/Enums.h>
#include <zolt/clsRegistry.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

using namespace zolt;

namespace {

const QString Key = QStringLiteral("Software\\ZOLT\\Kế toán");

// A process of its own; as root it can run as nobody, to be refused as a clerk would.
QProcess *startTool(const QStringList &args, bool asNobody = false)
{
    auto *process = new QProcess;
    QStringList command = QStringList{QStringLiteral(ZOLT_REGISTRY_TOOL)} + args;
    if (asNobody)
        command = QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"),
                              QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups")} + command;
    process->start(command.first(), command.mid(1));
    EXPECT_TRUE(process->waitForStarted());
    return process;
}

QString runTool(const QStringList &args, bool asNobody = false)
{
    std::unique_ptr<QProcess> process(startTool(args, asNobody));
    EXPECT_TRUE(process->waitForFinished(60000));
    return QString::fromUtf8(process->readAllStandardOutput()).trimmed();
}

QString rootNumber(qint32 root)
{
    return QString::number(quint32(root));
}

class RegistryTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QFile::setPermissions(dir.path(), QFile::permissions(dir.path()) | QFile::ReadOther | QFile::ExeOther);
        qputenv("ZOLT_USER_REGISTRY", QFile::encodeName(dir.filePath(QStringLiteral("user"))));
        qputenv("ZOLT_MACHINE_REGISTRY", QFile::encodeName(dir.filePath(QStringLiteral("machine"))));
    }
    QString read(qint32 root, const QString &key, const QString &name)
    {
        QString value = QStringLiteral("<untouched>");
        registry.GetKeyValue(root, key, name, value);
        return value;
    }
    QTemporaryDir dir;
    clsRegistry registry;
};

} // namespace

TEST_F(RegistryTest, TextsRoundTripWithoutRegardToCase)
{
    EXPECT_EQ(registry.WriteRegEdit(HK_CURRENT_USER, Key, QStringLiteral("LastDb"), QStringLiteral("/dữ liệu/a.db")), 0);
    EXPECT_EQ(read(HK_CURRENT_USER, QStringLiteral("SOFTWARE\\zolt\\KẾ TOÁN"), QStringLiteral("lastdb")), "/dữ liệu/a.db");
    EXPECT_EQ(registry.WriteRegEdit(HK_CURRENT_USER, Key, QStringLiteral("LASTDB"), QStringLiteral("b")), 0);
    EXPECT_EQ(read(HK_CURRENT_USER, Key, QStringLiteral("LastDb")), "b");
    EXPECT_EQ(read(HK_LOCAL_MACHINE, Key, QStringLiteral("LastDb")), "<untouched>");   // roots apart
    EXPECT_EQ(registry.WriteRegEdit(HK_LOCAL_MACHINE, Key, QString(), QStringLiteral("mặc định")), 0);
    EXPECT_EQ(read(HK_LOCAL_MACHINE, Key, QString()), "mặc định");
}

TEST_F(RegistryTest, NumbersReadAsSignedDecimalText)
{
    RegCreateKey(HK_CURRENT_USER, Key);
    const std::pair<quint32, const char *> cases[] = {
        {31, "31"}, {0, "0"}, {256, "256"}, {0x01000000, "16777216"}, {0xFFFFFFFF, "-1"}, {0x80000000, "-2147483648"}};
    for (const auto &[number, text] : cases) {
        ASSERT_EQ(RegSetValue(HK_CURRENT_USER, Key, QStringLiteral("n"), RegNumber(number)), 0);
        EXPECT_EQ(read(HK_CURRENT_USER, Key, QStringLiteral("n")), text) << number;
    }
    // Types other than text and numbers are read but leave ValueData as it was.
    ASSERT_EQ(RegSetValue(HK_CURRENT_USER, Key, QStringLiteral("bin"), RegValue{3, "ab"}), 0);
    QString value = QStringLiteral("kept");
    EXPECT_TRUE(registry.GetKeyValue(HK_CURRENT_USER, Key, QStringLiteral("bin"), value));
    EXPECT_EQ(value, "kept");
}

TEST_F(RegistryTest, WhatCannotBeReadLeavesValueDataAlone)
{
    registry.WriteRegEdit(HK_CURRENT_USER, Key, QStringLiteral("a"), QStringLiteral("1"));
    for (const QString &bad : {QStringLiteral("\\Software"), QStringLiteral("Software\\"),
                               QStringLiteral("Software\\\\ZOLT")})
        EXPECT_EQ(read(HK_CURRENT_USER, bad, QStringLiteral("a")), "<untouched>");
    EXPECT_EQ(read(HK_CURRENT_USER, QStringLiteral("Software\\Khác"), QStringLiteral("a")), "<untouched>");
    EXPECT_EQ(read(HK_CURRENT_USER, Key, QStringLiteral("b")), "<untouched>");
    EXPECT_EQ(read(12345, Key, QStringLiteral("a")), "<untouched>");
    EXPECT_EQ(registry.WriteRegEdit(12345, Key, QStringLiteral("a"), QStringLiteral("1")), RegInvalidHandle);
    EXPECT_FALSE(QDir(dir.filePath(QStringLiteral("user/HKEY_CURRENT_USER/software/khác"))).exists());
}

TEST_F(RegistryTest, TextsMustFitTheBufferWithTheirZero)
{
    registry.WriteRegEdit(HK_CURRENT_USER, Key, QStringLiteral("fits"), QString(1023, QLatin1Char('a')));
    registry.WriteRegEdit(HK_CURRENT_USER, Key, QStringLiteral("long"), QString(1024, QLatin1Char('a')));
    EXPECT_EQ(read(HK_CURRENT_USER, Key, QStringLiteral("fits")).size(), 1023);
    EXPECT_EQ(read(HK_CURRENT_USER, Key, QStringLiteral("long")), "<untouched>");
}

TEST_F(RegistryTest, ARootThatMayNotBeWrittenRefusesAndKeepsItsValues)
{
    registry.WriteRegEdit(HK_LOCAL_MACHINE, Key, QStringLiteral("a"), QStringLiteral("old"));
    const bool root = ::geteuid() == 0;
    if (root) {
        // The machine's store belongs to root; a clerk's process is refused.
        QDir(dir.filePath(QStringLiteral("machine"))).mkpath(QStringLiteral("."));
        EXPECT_EQ(runTool({QStringLiteral("set"), rootNumber(HK_LOCAL_MACHINE), Key, QStringLiteral("a"),
                           QStringLiteral("new")}, true), "5");
        EXPECT_EQ(runTool({QStringLiteral("set"), rootNumber(HK_LOCAL_MACHINE), QStringLiteral("Software\\Mới"),
                           QStringLiteral("a"), QStringLiteral("new")}, true), "5");
    } else {
        const QString folder = dir.filePath(QStringLiteral("machine/HKEY_LOCAL_MACHINE/software/zolt/kế toán"));
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
        EXPECT_EQ(registry.WriteRegEdit(HK_LOCAL_MACHINE, Key, QStringLiteral("a"), QStringLiteral("new")), 5);
    }
    EXPECT_EQ(read(HK_LOCAL_MACHINE, Key, QStringLiteral("a")), root ? "old" : "<untouched>");
    EXPECT_FALSE(QDir(dir.filePath(QStringLiteral("machine/HKEY_LOCAL_MACHINE/software/mới"))).exists());
}

TEST_F(RegistryTest, AKilledWriterLeavesTheOldValueOrTheNewOne)
{
    const QString root = rootNumber(HK_CURRENT_USER);
    for (int round = 0; round < 4; ++round) {
        std::unique_ptr<QProcess> writer(startTool({QStringLiteral("loop"), root, Key, QStringLiteral("big"),
                                                    QStringLiteral("1000")}));
        QThread::msleep(40 + QRandomGenerator::global()->bounded(200));
        ::kill(pid_t(writer->processId()), SIGKILL);
        writer->waitForFinished();
        RegValue value;
        const qint32 status = RegQueryValue(HK_CURRENT_USER, Key, QStringLiteral("big"), 1 << 22, value);
        if (status == RegNotFound)
            continue;   // killed before its first write was done
        ASSERT_EQ(status, 0);
        EXPECT_TRUE(value.data.startsWith("big:")) << round;
        EXPECT_TRUE(value.data.endsWith(":end")) << round;
        EXPECT_EQ(value.data.size(), (1 << 20) + 9 + QByteArray::number(value.data.split(':')[1].toInt()).size());
    }
}

TEST_F(RegistryTest, TwoWritersAtOnceKeepBothValues)
{
    const QString root = rootNumber(HK_CURRENT_USER);
    RegCreateKey(HK_CURRENT_USER, Key);
    std::unique_ptr<QProcess> first(startTool({QStringLiteral("loop"), root, Key, QStringLiteral("A"), QStringLiteral("15")}));
    std::unique_ptr<QProcess> second(startTool({QStringLiteral("loop"), root, Key, QStringLiteral("B"), QStringLiteral("15")}));
    ASSERT_TRUE(first->waitForFinished(120000));
    ASSERT_TRUE(second->waitForFinished(120000));
    EXPECT_EQ(first->exitCode(), 0);
    EXPECT_EQ(second->exitCode(), 0);
    for (const char *name : {"A", "B"}) {
        RegValue value;
        ASSERT_EQ(RegQueryValue(HK_CURRENT_USER, Key, QLatin1String(name), 1 << 22, value), 0) << name;
        EXPECT_TRUE(value.data.startsWith(QByteArray(name) + ":14:")) << name;
    }
}

namespace {

class OdbcTest : public RegistryTest {
protected:
    void SetUp() override
    {
        RegistryTest::SetUp();
        QDir(dir.path()).mkpath(QStringLiteral("sys"));
        qputenv("ODBCSYSINI", QFile::encodeName(dir.filePath(QStringLiteral("sys"))));
        qputenv("ODBCINI", QFile::encodeName(dir.filePath(QStringLiteral("user.ini"))));
    }
    // What unixODBC's own tool lists.
    QString odbcinst(const QStringList &args)
    {
        QProcess tool;
        tool.start(QStringLiteral("odbcinst"), args);
        EXPECT_TRUE(tool.waitForFinished());
        return QString::fromUtf8(tool.readAllStandardOutput());
    }
    const QString odbcIni = QStringLiteral("SOFTWARE\\ODBC\\ODBC.INI\\");
};

} // namespace

TEST_F(OdbcTest, SqlServerSourcesAreUnixOdbcSystemDataSources)
{
    registry.Create_DSN(QStringLiteral("BanHang"), QStringLiteral("Dữ liệu bán hàng"), QStringLiteral("SalesDb"),
                        QStringLiteral("srv01"), QStringLiteral("SQL Server"));
    EXPECT_TRUE(odbcinst({QStringLiteral("-q"), QStringLiteral("-s")}).contains(QStringLiteral("[BanHang]")));
    const QString entries = odbcinst({QStringLiteral("-q"), QStringLiteral("-s"), QStringLiteral("-n"), QStringLiteral("BanHang")});
    for (const char *line : {"Database=SalesDb", "Description=Dữ liệu bán hàng", "LastUser=sa", "Server=srv01",
                             "AnsiNPW=No", "Driver=SQL Server"})
        EXPECT_TRUE(entries.contains(QString::fromUtf8(line))) << line << "\n" << entries.toStdString();
    EXPECT_EQ(read(HK_LOCAL_MACHINE, odbcIni + QStringLiteral("BanHang"), QStringLiteral("Server")), "srv01");
    EXPECT_EQ(read(HK_LOCAL_MACHINE, odbcIni + QStringLiteral("ODBC Data Sources"), QStringLiteral("BanHang")), "SQL Server");
    EXPECT_EQ(read(HK_LOCAL_MACHINE, odbcIni + QStringLiteral("Khac"), QStringLiteral("Server")), "<untouched>");
    EXPECT_EQ(read(HK_CURRENT_USER, odbcIni + QStringLiteral("BanHang"), QStringLiteral("Server")), "<untouched>");
}

TEST_F(OdbcTest, ExcelSourcesKeepTheirEngineValuesAndDriverId)
{
    registry.Create_DSN_EXL(QStringLiteral("SoKho"), QStringLiteral("/data"), QStringLiteral("/data/kho.xls"),
                            QStringLiteral("excel 5.0"));
    registry.Create_DSN_EXL(QStringLiteral("SoRong"), QStringLiteral("/data"), QStringLiteral("/data/a.xls"),
                            QStringLiteral("excel 5.0"), QString());
    registry.Create_DSN_EXL(QStringLiteral("SoRieng"), QStringLiteral("/data"), QStringLiteral("/data/b.xls"),
                            QStringLiteral("excel 5.0"), QStringLiteral("278"));
    EXPECT_EQ(read(HK_LOCAL_MACHINE, odbcIni + QStringLiteral("SoKho"), QStringLiteral("DriverId")), "790");
    EXPECT_EQ(read(HK_LOCAL_MACHINE, odbcIni + QStringLiteral("SoRong"), QStringLiteral("DriverId")), "790");
    EXPECT_EQ(read(HK_LOCAL_MACHINE, odbcIni + QStringLiteral("SoRieng"), QStringLiteral("DriverId")), "278");
    EXPECT_EQ(read(HK_LOCAL_MACHINE, odbcIni + QStringLiteral("SoKho\\Engines\\Excel"), QStringLiteral("Threads")), "3");
    EXPECT_EQ(read(HK_LOCAL_MACHINE, odbcIni + QStringLiteral("SoKho"), QStringLiteral("DBQ")), "/data/kho.xls");
    const QString sources = odbcinst({QStringLiteral("-q"), QStringLiteral("-s")});
    for (const char *dsn : {"[SoKho]", "[SoRong]", "[SoRieng]"})
        EXPECT_TRUE(sources.contains(QLatin1String(dsn))) << dsn;
}

TEST_F(OdbcTest, UserSourcesGoToTheUsersFile)
{
    EXPECT_EQ(registry.WriteRegEdit(HK_CURRENT_USER, odbcIni + QStringLiteral("Rieng"), QStringLiteral("Server"),
                                    QStringLiteral("may-ban")), 0);
    EXPECT_EQ(read(HK_CURRENT_USER, odbcIni + QStringLiteral("Rieng"), QStringLiteral("Server")), "may-ban");
    QFile user(dir.filePath(QStringLiteral("user.ini")));
    ASSERT_TRUE(user.open(QIODevice::ReadOnly));
    EXPECT_TRUE(user.readAll().contains("Server=may-ban"));
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("sys/odbc.ini"))));
}

TEST_F(OdbcTest, WithoutRightsNoSystemSourceIsCreated)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs root to run a writer as another user";
    registry.Create_DSN(QStringLiteral("Co"), QString(), QString(), QString(), QStringLiteral("SQL Server"));
    EXPECT_EQ(runTool({QStringLiteral("dsn"), QStringLiteral("Khong")}, true), "");
    const QString sources = odbcinst({QStringLiteral("-q"), QStringLiteral("-s")});
    EXPECT_TRUE(sources.contains(QStringLiteral("[Co]")));
    EXPECT_FALSE(sources.contains(QStringLiteral("[Khong]")));
}
