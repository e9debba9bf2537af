// SPDX-License-Identifier: MIT
#include <zolt/Tesmir.h>

#include "TestSupport.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zolt;
using test::readFile;
using test::writeFile;

TEST(Tesmir, NumbersWithDotsBetweenThousands)
{
    const Tesmir t;
    const std::pair<const char *, const char *> shown[] = {
        {"1234567", "1.234.567"}, {"-1234,5", "-1.234,5"}, {"+1000", "+1.000"}, {"", ""},
        {"  1000000,25  ", "1.000.000,25"}, {"1234.5", "123.4.5"} /* only "," separates decimals */,
        {"abcd", "a.bcd"} /* not checked to be a number */};
    for (const auto &[input, text] : shown)
        EXPECT_EQ(t.CvNStr(QString::fromLatin1(input)), text);
    const std::pair<const char *, double> read[] = {
        {"-1.234,5", -1234.5}, {"12,05", 12.05}, {"abc", 0}, {"-1.234", -1234}, {" 1.000.000 , 25 ", 1000000.25},
        {"12,x", 12}};
    for (const auto &[input, number] : read)
        EXPECT_DOUBLE_EQ(t.CvTextToN(QString::fromLatin1(input)), number) << input;
    EXPECT_EQ(t.Sign(QStringLiteral("-5")) + t.Sign(QStringLiteral("5-")) + t.Sign(QString()), "-");
    EXPECT_EQ(t.Mid1(QStringLiteral("Đức"), 1) + t.Mid1(QStringLiteral("abc"), 0) + t.Mid1(QStringLiteral("abc"), 4), "Đ");
}

TEST(Tesmir, ProfileValuesComeBackThroughATwoHundredFiftyFiveCharacterBuffer)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("user.ini"));
    const Tesmir t;
    t.WriteRegA(QStringLiteral("Admin"), QStringLiteral("LastDb"), QString(300, QLatin1Char('x')), path);
    EXPECT_EQ(t.ReadRegVlA(QStringLiteral("admin"), QStringLiteral("LASTDB"), path), QString(254, QLatin1Char('x')));
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

    EXPECT_EQ(t.CopyFile(path("missing.db"), path("out.db"), 0), 0);
    EXPECT_EQ(t.CopyFile(path("data.db"), path("no/such/dir/out.db"), 0), 0);
    EXPECT_EQ(t.CopyFile(path("data.db"), dir.path(), 0), 0);
    EXPECT_EQ(t.BackUpData(path("data.db"), path("data.db")), 0);
    EXPECT_EQ(readFile(path("data.db")), big);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 3);   // nothing left behind

    EXPECT_EQ(t.WinHelp(0, QStringLiteral("/no/such/help.chm"), 1, 0), 0);
    EXPECT_NE(t.WinHelp(0, QString(), 2, 0), 0);   // closing help always succeeds
}
