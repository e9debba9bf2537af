// SPDX-License-Identifier: MIT
#include "platform/IniFile.h"

#include "TestSupport.h"
#include "WriterTool.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace zolt;
using test::readFile;
using test::writeFile;

namespace {

class IniFileTest : public ::testing::Test {
protected:
    bool write(const char *section, const char *key, const QString &value)
    {
        return WriteProfileString(QString::fromUtf8(section), QString::fromUtf8(key), value, path);
    }
    QString read(const char *section, const char *key)
    {
        return ReadProfileString(QString::fromUtf8(section), QString::fromUtf8(key), QStringLiteral("<none>"), path);
    }
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("user.ini"));
};

} // namespace

TEST_F(IniFileTest, KeepsEveryOtherLineAndMatchesNamesWithoutCase)
{
    EXPECT_EQ(read("A", "B"), "<none>");   // no file yet
    writeFile(path, "; cấu hình\n[ Admin ]\n  font = Arial  \n# note\nSize=9\n\n[Other]\nq=\"  quoted  \"\n");
    EXPECT_TRUE(write("ADMIN", "Font", QStringLiteral("VK Sans Serif")));
    EXPECT_TRUE(write("admin", "Color", QStringLiteral("red")));
    EXPECT_TRUE(write("Mới", "k", QStringLiteral("C:\\Dữ liệu")));
    EXPECT_EQ(readFile(path), "; cấu hình\n[ Admin ]\nFont=VK Sans Serif\n# note\nSize=9\nColor=red\n\n"
                              "[Other]\nq=\"  quoted  \"\n[Mới]\nk=C:\\Dữ liệu\n");
    EXPECT_EQ(read("other", "Q"), "  quoted  ");
    for (const auto &[section, key] : {std::pair{"X", "Font"}, {"Admin", "Y"}, {"Other", "Font"}})
        EXPECT_EQ(read(section, key), "<none>");
}

TEST_F(IniFileTest, KeepsWindowsLineEndings)
{
    writeFile(path, "[A]\r\nq=1\r\n");
    write("A", "n", QStringLiteral("2"));
    EXPECT_EQ(readFile(path), "[A]\r\nq=1\r\nn=2\r\n");
}

TEST_F(IniFileTest, RefusesWhatWouldBreakTheFileAndReplacesItWhole)
{
    writeFile(path, "[A]\nk=old\n");
    EXPECT_FALSE(write("A", "k", QStringLiteral("1\n[B]")));
    EXPECT_FALSE(write("A]", "k", QStringLiteral("1")));
    EXPECT_FALSE(write("A", "k=j", QStringLiteral("1")));
    EXPECT_FALSE(write("", "k", QStringLiteral("1")));
    const QString link = dir.filePath(QStringLiteral("link.ini"));
    ASSERT_EQ(::link(QFile::encodeName(path).constData(), QFile::encodeName(link).constData()), 0);
    EXPECT_TRUE(write("A", "k", QStringLiteral("new")));
    EXPECT_EQ(readFile(link), "[A]\nk=old\n");   // never rewritten in place
    EXPECT_EQ(readFile(path), "[A]\nk=new\n");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 2);   // no temporary or lock left
    EXPECT_FALSE(WriteProfileString(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("v"), dir.path()));
}

TEST_F(IniFileTest, TwoWritersAtOnceKeepEachOthersKeys)
{
    const QStringList writers[] = {{QStringLiteral("ini"), path, QStringLiteral("a"), QStringLiteral("40")},
                                   {QStringLiteral("ini"), path, QStringLiteral("b"), QStringLiteral("40")}};
    auto first = test::startWriter(writers[0]);
    auto second = test::startWriter(writers[1]);
    test::finish({first.get(), second.get()});
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(ReadProfileString(QStringLiteral("S"), QStringLiteral("a%1").arg(i), QString(), path), QString::number(i));
        EXPECT_EQ(ReadProfileString(QStringLiteral("S"), QStringLiteral("b%1").arg(i), QString(), path), QString::number(i));
    }
}
