// SPDX-License-Identifier: MIT
#include "platform/Registry.h"

#include "TestSupport.h"
#include "WriterTool.h"

#include <zolt/Enums.h>
#include <zolt/clsRegistry.h>

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

using namespace zolt;

namespace {

const QString Key = QStringLiteral("Software\\ZOLT\\Kế toán");
const QString OdbcIni = QStringLiteral("SOFTWARE\\ODBC\\ODBC.INI\\");

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
        QDir(dir.path()).mkpath(QStringLiteral("sys"));
        qputenv("ODBCSYSINI", QFile::encodeName(dir.filePath(QStringLiteral("sys"))));
        qputenv("ODBCINI", QFile::encodeName(dir.filePath(QStringLiteral("user.ini"))));
    }
    QString read(qint32 root, const QString &key, const QString &name)
    {
        QString value = QStringLiteral("<untouched>");
        registry.GetKeyValue(root, key, name, value);
        return value;
    }
    // What unixODBC's own tool lists of a data source.
    static QString odbcinst(const QString &dsn)
    {
        QProcess tool;
        tool.start(QStringLiteral("odbcinst"), {QStringLiteral("-q"), QStringLiteral("-s"), QStringLiteral("-n"), dsn});
        EXPECT_TRUE(tool.waitForFinished());
        return QString::fromUtf8(tool.readAllStandardOutput());
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
    // A text must fit 1024 bytes with its terminating zero.
    registry.WriteRegEdit(HK_CURRENT_USER, Key, QStringLiteral("fits"), QString(1023, QLatin1Char('a')));
    registry.WriteRegEdit(HK_CURRENT_USER, Key, QStringLiteral("long"), QString(1024, QLatin1Char('a')));
    EXPECT_EQ(read(HK_CURRENT_USER, Key, QStringLiteral("fits")).size(), 1023);
    EXPECT_EQ(read(HK_CURRENT_USER, Key, QStringLiteral("long")), "<untouched>");
}

TEST_F(RegistryTest, NumbersReadAsSignedDecimalTextOtherTypesNot)
{
    RegCreateKey(HK_CURRENT_USER, Key);
    const std::pair<quint32, const char *> cases[] = {{31, "31"}, {0x01000000, "16777216"}, {0xFFFFFFFF, "-1"}};
    for (const auto &[number, text] : cases) {
        ASSERT_EQ(RegSetValue(HK_CURRENT_USER, Key, QStringLiteral("n"), RegNumber(number)), 0);
        EXPECT_EQ(read(HK_CURRENT_USER, Key, QStringLiteral("n")), text) << number;
    }
    ASSERT_EQ(RegSetValue(HK_CURRENT_USER, Key, QStringLiteral("bin"), RegValue{3, "ab"}), 0);
    QString value = QStringLiteral("kept");
    EXPECT_TRUE(registry.GetKeyValue(HK_CURRENT_USER, Key, QStringLiteral("bin"), value));
    EXPECT_EQ(value, "kept");
}

TEST_F(RegistryTest, WhatCannotBeReadLeavesValueDataAlone)
{
    registry.WriteRegEdit(HK_CURRENT_USER, Key, QStringLiteral("a"), QStringLiteral("1"));
    for (const QString &bad : {QStringLiteral("\\Software"), QStringLiteral("Software\\"),
                               QStringLiteral("Software\\\\ZOLT"), QStringLiteral("Software\\Khác")})
        EXPECT_EQ(read(HK_CURRENT_USER, bad, QStringLiteral("a")), "<untouched>");
    EXPECT_EQ(read(HK_CURRENT_USER, Key, QStringLiteral("b")), "<untouched>");
    EXPECT_EQ(read(12345, Key, QStringLiteral("a")), "<untouched>");
    EXPECT_EQ(registry.WriteRegEdit(12345, Key, QStringLiteral("a"), QStringLiteral("1")), RegInvalidHandle);
}

TEST_F(RegistryTest, ARootThatMayNotBeWrittenRefusesAndKeepsItsValues)
{
    registry.WriteRegEdit(HK_LOCAL_MACHINE, Key, QStringLiteral("a"), QStringLiteral("old"));
    if (::geteuid() == 0) {   // the machine's store belongs to root; a clerk's process is refused
        for (const QString &key : {Key, QStringLiteral("Software\\Mới")})
            EXPECT_EQ(test::runWriter({QStringLiteral("set"), rootNumber(HK_LOCAL_MACHINE), key, QStringLiteral("a"),
                                       QStringLiteral("new")}, true), "5");
        EXPECT_EQ(read(HK_LOCAL_MACHINE, Key, QStringLiteral("a")), "old");
    } else {
        QFile::setPermissions(dir.filePath(QStringLiteral("machine/HKEY_LOCAL_MACHINE/software/zolt/kế toán")),
                              QFile::ReadOwner | QFile::ExeOwner);
        EXPECT_EQ(registry.WriteRegEdit(HK_LOCAL_MACHINE, Key, QStringLiteral("a"), QStringLiteral("new")), 5);
    }
    EXPECT_FALSE(QDir(dir.filePath(QStringLiteral("machine/HKEY_LOCAL_MACHINE/software/mới"))).exists());
}

TEST_F(RegistryTest, AKilledWriterLeavesTheOldValueOrTheNewOne)
{
    for (int round = 0; round < 4; ++round) {
        auto writer = test::startWriter({QStringLiteral("loop"), rootNumber(HK_CURRENT_USER), Key,
                                         QStringLiteral("big"), QStringLiteral("1000")});
        QThread::msleep(40 + QRandomGenerator::global()->bounded(200));
        ::kill(pid_t(writer->processId()), SIGKILL);
        writer->waitForFinished();
        RegValue value;
        const qint32 status = RegQueryValue(HK_CURRENT_USER, Key, QStringLiteral("big"), 1 << 22, value);
        if (status == RegNotFound)
            continue;   // killed before its first write was done
        ASSERT_EQ(status, 0);
        EXPECT_TRUE(value.data.startsWith("big:") && value.data.endsWith(":end")) << round;
        EXPECT_EQ(value.data.size(), (1 << 20) + 9 + value.data.split(':')[1].size());
    }
}

TEST_F(RegistryTest, TwoWritersAtOnceKeepBothValues)
{
    RegCreateKey(HK_CURRENT_USER, Key);
    const QString root = rootNumber(HK_CURRENT_USER);
    auto first = test::startWriter({QStringLiteral("loop"), root, Key, QStringLiteral("A"), QStringLiteral("15")});
    auto second = test::startWriter({QStringLiteral("loop"), root, Key, QStringLiteral("B"), QStringLiteral("15")});
    for (QProcess *writer : {first.get(), second.get()}) {
        ASSERT_TRUE(writer->waitForFinished(120000));
        EXPECT_EQ(writer->exitCode(), 0);
    }
    for (const char *name : {"A", "B"}) {
        RegValue value;
        ASSERT_EQ(RegQueryValue(HK_CURRENT_USER, Key, QLatin1String(name), 1 << 22, value), 0) << name;
        EXPECT_TRUE(value.data.startsWith(QByteArray(name) + ":14:")) << name;
    }
}

TEST_F(RegistryTest, DataSourcesAreUnixOdbcs)
{
    registry.Create_DSN(QStringLiteral("BanHang"), QStringLiteral("Dữ liệu bán hàng"), QStringLiteral("SalesDb"),
                        QStringLiteral("srv01"), QStringLiteral("SQL Server"));
    const QString entries = odbcinst(QStringLiteral("BanHang"));
    for (const char *line : {"Database=SalesDb", "Description=Dữ liệu bán hàng", "LastUser=sa", "Server=srv01",
                             "AnsiNPW=No", "Driver=SQL Server"})
        EXPECT_TRUE(entries.contains(QString::fromUtf8(line))) << line << "\n" << entries.toStdString();
    EXPECT_EQ(read(HK_LOCAL_MACHINE, OdbcIni + QStringLiteral("ODBC Data Sources"), QStringLiteral("BanHang")), "SQL Server");
    EXPECT_EQ(read(HK_CURRENT_USER, OdbcIni + QStringLiteral("BanHang"), QStringLiteral("Server")), "<untouched>");

    registry.Create_DSN_EXL(QStringLiteral("SoKho"), QStringLiteral("/data"), QStringLiteral("/data/kho.xls"), QStringLiteral("excel 5.0"));
    EXPECT_EQ(read(HK_LOCAL_MACHINE, OdbcIni + QStringLiteral("SoKho"), QStringLiteral("DriverId")), "790");
    EXPECT_EQ(read(HK_LOCAL_MACHINE, OdbcIni + QStringLiteral("SoKho\\Engines\\Excel"), QStringLiteral("Threads")), "3");

    // A user's data source goes to the user's file.
    EXPECT_EQ(registry.WriteRegEdit(HK_CURRENT_USER, OdbcIni + QStringLiteral("Rieng"), QStringLiteral("Server"),
                                    QStringLiteral("may-ban")), 0);
    EXPECT_TRUE(test::readFile(dir.filePath(QStringLiteral("user.ini"))).contains("Server=may-ban"));
}
