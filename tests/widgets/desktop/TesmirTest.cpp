// SPDX-License-Identifier: MIT
#include <zolt/Tesmir.h>

#include "TestSupport.h"

#include <QDir>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::readFile;
using test::writeFile;

TEST(Tesmir, NumbersWithDotsBetweenThousands)
{
    const Tesmir t;
    for (const auto &[input, text] : {std::pair{"1234567", "1.234.567"}, {"-1234,5", "-1.234,5"}, {"+1000", "+1.000"},
                                      {"", ""}, {"  1000000,25  ", "1.000.000,25"},
                                      {"1234.5", "123.4.5"} /* only "," separates decimals */,
                                      {"abcd", "a.bcd"} /* not checked to be a number */})
        EXPECT_EQ(t.CvNStr(QString::fromLatin1(input)), text);
    for (const auto &[input, number] : {std::pair{"-1.234,5", -1234.5}, {"12,05", 12.05}, {"abc", 0.0},
                                        {"-1.234", -1234.0}, {" 1.000.000 , 25 ", 1000000.25}, {"12,x", 12.0}})
        EXPECT_DOUBLE_EQ(t.CvTextToN(QString::fromLatin1(input)), number) << input;
    EXPECT_EQ(t.Sign(u"-5"_s) + t.Sign(u"5-"_s) + t.Sign({}), "-");
    EXPECT_EQ(t.Mid1(u"Đức"_s, 1) + t.Mid1(u"abc"_s, 0) + t.Mid1(u"abc"_s, 4), "Đ");
}

TEST(Tesmir, ProfileValuesComeBackThroughATwoHundredFiftyFiveCharacterBuffer)
{
    QTemporaryDir dir;
    const Tesmir t;
    t.WriteRegA(u"Admin"_s, u"LastDb"_s, QString(300, u'x'), dir.filePath(u"user.ini"_s));
    EXPECT_EQ(t.ReadRegVlA(u"admin"_s, u"LASTDB"_s, dir.filePath(u"user.ini"_s)), QString(254, u'x'));
}

TEST(Tesmir, CopiesWholeOrNotAtAll)
{
    QTemporaryDir dir;
    const auto path = [&](const char *name) { return dir.filePath(QLatin1String(name)); };
    QByteArray big(3 << 20, 'x');   // larger than one copy block
    big[big.size() - 1] = 'y';
    writeFile(path("data.db"), big);
    writeFile(path("keep.db"), "old");
    const Tesmir t;
    EXPECT_NE(t.CopyFile(path("data.db"), path("copy.db"), 1), 0);
    EXPECT_EQ(readFile(path("copy.db")), big);
    EXPECT_EQ(t.CopyFile(path("data.db"), path("keep.db"), 1), 0);   // fail if it exists
    EXPECT_EQ(readFile(path("keep.db")), "old");
    EXPECT_NE(t.BackUpData(path("data.db"), path("keep.db")), 0);
    EXPECT_EQ(readFile(path("keep.db")), big);
    for (const auto &[from, to] : {std::pair{path("missing.db"), path("out.db")}, {path("data.db"), path("no/dir/out.db")},
                                   {path("data.db"), dir.path()}, {path("data.db"), path("data.db")}})
        EXPECT_EQ(t.BackUpData(from, to), 0) << to.toStdString();
    EXPECT_EQ(readFile(path("data.db")), big);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 3);   // nothing left behind
    EXPECT_EQ(t.WinHelp(0, u"/no/such/help.chm"_s, 1, 0), 0);
    EXPECT_NE(t.WinHelp(0, {}, 2, 0), 0);   // closing help always succeeds
}
