#include <zolt/Tesmir.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zolt;

namespace {

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

void writeAll(const QString &path, const QByteArray &data)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(data);
}

} // namespace

TEST(Numbers, CvNStrGroupsThousandsWithDots)
{
    Tesmir t;
    EXPECT_EQ(t.CvNStr(QStringLiteral("1234567")), "1.234.567");
    EXPECT_EQ(t.CvNStr(QStringLiteral("-1234,5")), "-1.234,5");
    EXPECT_EQ(t.CvNStr(QStringLiteral("123")), "123");
    EXPECT_EQ(t.CvNStr(QStringLiteral("+1000")), "+1.000");
    EXPECT_EQ(t.CvNStr(QStringLiteral("")), "");
    EXPECT_EQ(t.CvNStr(QStringLiteral("  1000000,25  ")), "1.000.000,25");
    EXPECT_EQ(t.CvNStr(QStringLiteral("1234.5")), "123.4.5");   // only "," is a decimal separator
    EXPECT_EQ(t.CvNStr(QStringLiteral("abcd")), "a.bcd");       // not checked to be a number
    EXPECT_EQ(t.CvNStr(QVariant(1234567)), "1.234.567");
    EXPECT_EQ(t.CvNStr(QVariant()), "");
}

TEST(Numbers, CvTextToNReadsTheGroupedForm)
{
    Tesmir t;
    EXPECT_DOUBLE_EQ(t.CvTextToN(QStringLiteral("-1.234,5")), -1234.5);
    EXPECT_DOUBLE_EQ(t.CvTextToN(QStringLiteral("1.234")), 1234);
    EXPECT_DOUBLE_EQ(t.CvTextToN(QStringLiteral("12,05")), 12.05);
    EXPECT_DOUBLE_EQ(t.CvTextToN(QStringLiteral("abc")), 0);
    EXPECT_DOUBLE_EQ(t.CvTextToN(QStringLiteral("-1.234")), -1234);   // sign kept without decimals
    EXPECT_DOUBLE_EQ(t.CvTextToN(QStringLiteral(" 1.000.000 , 25 ")), 1000000.25);
    EXPECT_DOUBLE_EQ(t.CvTextToN(QStringLiteral("")), 0);
    EXPECT_DOUBLE_EQ(t.CvTextToN(QStringLiteral("12,x")), 12);
    for (const char *text : {"1.234.567", "-1.234,5", "0,001", "999"})
        EXPECT_EQ(t.CvNStr(t.CvNStr(QString::fromLatin1(text)).remove(QLatin1Char('.'))),
                  QString::fromLatin1(text));
}

TEST(Numbers, SignAndMid1)
{
    Tesmir t;
    EXPECT_EQ(t.Sign(QStringLiteral("-5")), "-");
    EXPECT_EQ(t.Sign(QStringLiteral("+5")), "+");
    EXPECT_EQ(t.Sign(QStringLiteral("5-")), "");
    EXPECT_EQ(t.Sign(QString()), "");
    EXPECT_EQ(t.Mid1(QStringLiteral("abc"), 0), "");
    EXPECT_EQ(t.Mid1(QStringLiteral("abc"), 4), "");
    EXPECT_EQ(t.Mid1(QStringLiteral("abc"), -1), "");
    EXPECT_EQ(t.Mid1(QStringLiteral("abc"), 3), "c");
    EXPECT_EQ(t.Mid1(QStringLiteral("Đức"), 1), "Đ");
}

TEST(Names, UserAndComputerAreKnown)
{
    Tesmir t;
    EXPECT_FALSE(t.GetUSName().isEmpty());
    EXPECT_FALSE(t.GetPCName().isEmpty());
}

class CopyTest : public ::testing::Test {
protected:
    QString path(const QString &name) const { return dir.filePath(name); }
    QTemporaryDir dir;
    Tesmir t;
};

TEST_F(CopyTest, CopiesAndHonoursFailIfExists)
{
    QByteArray big(3 << 20, 'x');   // larger than one copy block
    big[big.size() - 1] = 'y';
    writeAll(path(QStringLiteral("data.db")), big);

    EXPECT_NE(t.CopyFile(path(QStringLiteral("data.db")), path(QStringLiteral("copy.db")), 1), 0);
    EXPECT_EQ(readAll(path(QStringLiteral("copy.db"))), big);

    writeAll(path(QStringLiteral("keep.db")), "old");
    EXPECT_EQ(t.CopyFile(path(QStringLiteral("data.db")), path(QStringLiteral("keep.db")), 1), 0);
    EXPECT_EQ(readAll(path(QStringLiteral("keep.db"))), "old");
    EXPECT_NE(t.CopyFile(path(QStringLiteral("data.db")), path(QStringLiteral("keep.db")), 0), 0);
    EXPECT_EQ(readAll(path(QStringLiteral("keep.db"))), big);
}

TEST_F(CopyTest, BackUpDataOverwrites)
{
    writeAll(path(QStringLiteral("data.db")), "new data");
    writeAll(path(QStringLiteral("backup.db")), "previous backup");
    EXPECT_NE(t.BackUpData(path(QStringLiteral("data.db")), path(QStringLiteral("backup.db"))), 0);
    EXPECT_EQ(readAll(path(QStringLiteral("backup.db"))), "new data");
}

TEST_F(CopyTest, FailuresReturnZeroAndLeaveNothingBehind)
{
    writeAll(path(QStringLiteral("data.db")), "data");
    EXPECT_EQ(t.CopyFile(path(QStringLiteral("missing.db")), path(QStringLiteral("out.db")), 0), 0);
    EXPECT_EQ(t.CopyFile(path(QStringLiteral("data.db")), path(QStringLiteral("no/such/dir/out.db")), 0), 0);
    EXPECT_EQ(t.CopyFile(path(QStringLiteral("data.db")), dir.path(), 0), 0);
    EXPECT_EQ(t.CopyFile(dir.path(), path(QStringLiteral("out.db")), 0), 0);
    EXPECT_EQ(t.BackUpData(path(QStringLiteral("data.db")), path(QStringLiteral("data.db"))), 0);
    EXPECT_EQ(readAll(path(QStringLiteral("data.db"))), "data");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("data.db")});
}

TEST(WinHelp, MissingFilesCannotBeOpened)
{
    Tesmir t;
    EXPECT_EQ(t.WinHelp(0, QStringLiteral("/no/such/help.chm"), 1, 0), 0);
    EXPECT_NE(t.WinHelp(0, QString(), 2, 0), 0);   // closing help always succeeds
}
