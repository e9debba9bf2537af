// SPDX-License-Identifier: MIT
#include "core/platform/IniFile.h"

#include "TestSupport.h"
#include "WriterTool.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <unistd.h>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

namespace {

class IniFileTest : public ::testing::Test {
protected:
    bool write(const QString &section, const QString &key, const QString &value)
    {
        return WriteProfileString(section, key, value, path);
    }
    QString read(const QString &section, const QString &key) { return ReadProfileString(section, key, u"<none>"_s, path); }
    QTemporaryDir dir;
    const QString path = dir.filePath(u"user.ini"_s);
};

} // namespace

TEST_F(IniFileTest, KeepsEveryOtherLineAndMatchesNamesWithoutCase)
{
    EXPECT_EQ(read(u"A"_s, u"B"_s), "<none>");   // no file yet
    writeFile(path, "; cấu hình\n[ Admin ]\n  font = Arial  \n# note\nSize=9\n\n[Other]\nq=\"  quoted  \"\n");
    EXPECT_TRUE(write(u"ADMIN"_s, u"Font"_s, u"VK Sans Serif"_s) && write(u"admin"_s, u"Color"_s, u"red"_s));
    EXPECT_TRUE(write(u"Mới"_s, u"k"_s, u"C:\\Dữ liệu"_s));
    EXPECT_EQ(readFile(path), "; cấu hình\n[ Admin ]\nFont=VK Sans Serif\n# note\nSize=9\nColor=red\n\n"
                              "[Other]\nq=\"  quoted  \"\n[Mới]\nk=C:\\Dữ liệu\n");
    EXPECT_EQ(read(u"other"_s, u"Q"_s), "  quoted  ");
    for (const auto &[section, key] : {std::pair{u"X"_s, u"Font"_s}, {u"Admin"_s, u"Y"_s}, {u"Other"_s, u"Font"_s}})
        EXPECT_EQ(read(section, key), "<none>");
    writeFile(path, "[A]\r\nq=1\r\n");   // Windows line endings stay
    write(u"A"_s, u"n"_s, u"2"_s);
    EXPECT_EQ(readFile(path), "[A]\r\nq=1\r\nn=2\r\n");
}

TEST_F(IniFileTest, RefusesWhatWouldBreakTheFileAndReplacesItWhole)
{
    writeFile(path, "[A]\nk=old\n");
    for (const auto &[section, key, value] : {std::tuple{u"A"_s, u"k"_s, u"1\n[B]"_s}, {u"A]"_s, u"k"_s, u"1"_s},
                                              {u"A"_s, u"k=j"_s, u"1"_s}, {u""_s, u"k"_s, u"1"_s},
                                              {u"A"_s, u"[Other]"_s, u"9"_s}, {u"A"_s, u"[]"_s, u"9"_s}})
        EXPECT_FALSE(write(section, key, value)) << section.toStdString() << key.toStdString();
    const QString link = dir.filePath(u"link.ini"_s);
    ASSERT_EQ(::link(QFile::encodeName(path).constData(), QFile::encodeName(link).constData()), 0);
    EXPECT_TRUE(write(u"A"_s, u"k"_s, u"new"_s));
    EXPECT_EQ(readFile(link), "[A]\nk=old\n");   // never rewritten in place
    EXPECT_EQ(readFile(path), "[A]\nk=new\n");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 2);   // no temporary or lock left
    EXPECT_FALSE(WriteProfileString(u"A"_s, u"k"_s, u"v"_s, dir.path()));
}

TEST_F(IniFileTest, EachLineKeepsItsBytesAndItsEndingAndBlanksAroundNamesDoNotCount)
{
    writeFile(path, "; caf\xe9\r\n[A]\nq=1\r[B]\r\nr=2");
    EXPECT_EQ(read(u"a"_s, u"q"_s) + read(u"B"_s, u"r"_s), "12");
    for (const QString &section : {u" A "_s, u"\vA\f"_s})
        EXPECT_TRUE(write(section, u" n\t"_s, u"3"_s));
    EXPECT_TRUE(write(u"B"_s, u"s"_s, u"4"_s));
    EXPECT_EQ(readFile(path), "; caf\xe9\r\n[A]\nq=1\rn=3\r\n[B]\r\nr=2\r\ns=4\r\n");
    EXPECT_EQ(read(u"\tA"_s, u"N "_s), "3");
    writeFile(path, "[A]\nq=1");   // a last line without its ending gets one before a new section
    EXPECT_TRUE(write(u"C"_s, u"k"_s, u"5"_s));
    EXPECT_EQ(readFile(path), "[A]\nq=1\n[C]\nk=5\n");
}

TEST_F(IniFileTest, TwoWritersAtOnceKeepEachOthersKeys)
{
    auto first = test::startWriter({u"ini"_s, path, u"a"_s, u"40"_s});
    auto second = test::startWriter({u"ini"_s, path, u"b"_s, u"40"_s});
    test::finish({first.get(), second.get()});
    for (int i = 0; i < 40; ++i) {
        for (const QString &prefix : {u"a"_s, u"b"_s})
            EXPECT_EQ(ReadProfileString(u"S"_s, prefix + QString::number(i), {}, path), QString::number(i));
    }
}

TEST_F(IniFileTest, ALockLeftByAKilledWriterIsTakenOverAtOnce)
{
    writeFile(path + u".lock"_s, {});   // its writer died before saying who it was
    QElapsedTimer waited;
    waited.start();
    EXPECT_TRUE(write(u"Kho"_s, u"A"_s, u"1"_s));
    EXPECT_LT(waited.elapsed(), 1500);   // not the half minute of an unbounded wait
}
