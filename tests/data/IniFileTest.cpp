#include "data/IniFile.h"

#include <zolt/Tesmir.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace zolt;

namespace {

QString readAll(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

void writeAll(const QString &path, const QString &text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
}

class IniFileTest : public ::testing::Test {
protected:
    QString path(const QString &name = QStringLiteral("user.ini")) const { return dir.filePath(name); }
    QTemporaryDir dir;
    Tesmir tesmir;
};

} // namespace

TEST_F(IniFileTest, WritesANewFileAndReadsItBack)
{
    tesmir.WriteRegA(QStringLiteral("Admin"), QStringLiteral("LastDb"), QStringLiteral("C:\\Dữ liệu\\a.mdb"), path());
    tesmir.WriteRegA(QStringLiteral("Admin"), QStringLiteral("Font"), QStringLiteral("VK Sans Serif"), path());
    tesmir.WriteRegA(QStringLiteral("Guest"), QStringLiteral("Font"), QStringLiteral("Arial"), path());
    EXPECT_EQ(readAll(path()),
              "[Admin]\nLastDb=C:\\Dữ liệu\\a.mdb\nFont=VK Sans Serif\n[Guest]\nFont=Arial\n");
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("admin"), QStringLiteral("FONT"), path()), "VK Sans Serif");
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("Guest"), QStringLiteral("font"), path()), "Arial");
}

TEST_F(IniFileTest, MissingFileSectionOrKeyReadsEmpty)
{
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("A"), QStringLiteral("B"), path(QStringLiteral("none.ini"))), "");
    writeAll(path(), QStringLiteral("[A]\nB=1\n[C]\n"));
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("X"), QStringLiteral("B"), path()), "");
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("A"), QStringLiteral("Y"), path()), "");
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("C"), QStringLiteral("B"), path()), "");
}

TEST_F(IniFileTest, KeepsEveryOtherLineAndComment)
{
    writeAll(path(), QStringLiteral("; cấu hình\n[ Admin ]\n  font = Arial  \n# note\nSize=9\n\n"
                                    "[Other]\nfont=Tahoma\n"));
    tesmir.WriteRegA(QStringLiteral("ADMIN"), QStringLiteral("Font"), QStringLiteral("VK Sans Serif"), path());
    tesmir.WriteRegA(QStringLiteral("admin"), QStringLiteral("Color"), QStringLiteral("red"), path());
    tesmir.WriteRegA(QStringLiteral("New"), QStringLiteral("k"), QStringLiteral("v"), path());
    EXPECT_EQ(readAll(path()),
              "; cấu hình\n[ Admin ]\nFont=VK Sans Serif\n# note\nSize=9\nColor=red\n\n"
              "[Other]\nfont=Tahoma\n[New]\nk=v\n");
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("Other"), QStringLiteral("FONT"), path()), "Tahoma");
}

TEST_F(IniFileTest, KeepsWindowsLineEndingsAndDropsEnclosingQuotes)
{
    writeAll(path(), QStringLiteral("[A]\r\nq=\"  quoted  \"\r\n"));
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("A"), QStringLiteral("q"), path()), "  quoted  ");
    tesmir.WriteRegA(QStringLiteral("A"), QStringLiteral("n"), QStringLiteral("1"), path());
    EXPECT_EQ(readAll(path()), "[A]\r\nq=\"  quoted  \"\r\nn=1\r\n");
}

TEST_F(IniFileTest, ValuesComeBackThroughATwoHundredFiftyFiveCharacterBuffer)
{
    const QString longValue(300, QLatin1Char('x'));
    tesmir.WriteRegA(QStringLiteral("A"), QStringLiteral("k"), longValue, path());
    EXPECT_EQ(ReadProfileString(QStringLiteral("A"), QStringLiteral("k"), QString(), path()), longValue);
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("A"), QStringLiteral("k"), path()), QString(254, QLatin1Char('x')));
}

TEST_F(IniFileTest, RefusesNamesThatWouldBreakTheFile)
{
    writeAll(path(), QStringLiteral("[A]\nk=1\n"));
    EXPECT_FALSE(WriteProfileString(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("1\n[B]"), path()));
    EXPECT_FALSE(WriteProfileString(QStringLiteral("A]"), QStringLiteral("k"), QStringLiteral("1"), path()));
    EXPECT_FALSE(WriteProfileString(QStringLiteral("A"), QStringLiteral("k=j"), QStringLiteral("1"), path()));
    EXPECT_FALSE(WriteProfileString(QString(), QStringLiteral("k"), QStringLiteral("1"), path()));
    EXPECT_EQ(readAll(path()), "[A]\nk=1\n");
}

TEST_F(IniFileTest, ReplacesTheFileWholeNeverInPlace)
{
    writeAll(path(), QStringLiteral("[A]\nk=old\n"));
    const QString link = path(QStringLiteral("link.ini"));
    ASSERT_EQ(::link(QFile::encodeName(path()).constData(), QFile::encodeName(link).constData()), 0);
    tesmir.WriteRegA(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("new"), path());
    // The old file was not rewritten in place: a reader holding it sees it whole.
    EXPECT_EQ(readAll(link), "[A]\nk=old\n");
    EXPECT_EQ(readAll(path()), "[A]\nk=new\n");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 2);   // no temporary left behind
}

TEST_F(IniFileTest, UnreadableOrUnwritablePathsChangeNothing)
{
    const QString folder = path(QStringLiteral("folder.ini"));
    ASSERT_TRUE(QDir().mkpath(folder));
    EXPECT_FALSE(WriteProfileString(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("v"), folder));
    EXPECT_EQ(tesmir.ReadRegVlA(QStringLiteral("A"), QStringLiteral("k"), folder), "");
    EXPECT_TRUE(QFileInfo(folder).isDir());
}

TEST(ProfilePath, BareNamesLiveInTheUsersConfigurationFolder)
{
    EXPECT_EQ(ProfilePath(QStringLiteral("/tmp/a.ini")), "/tmp/a.ini");
    EXPECT_TRUE(ProfilePath(QStringLiteral("zolt.ini")).endsWith(QStringLiteral("/zolt.ini")));
    EXPECT_NE(ProfilePath(QStringLiteral("zolt.ini")), "zolt.ini");
}
