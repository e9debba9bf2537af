// SPDX-License-Identifier: MIT
// Access files read as a shop's old program left them: the Jackcess
// project's test databases (tests/tools/access), Access 97 and 2000-2003.

#include "AccessFile.h"

#include "TestSupport.h"

#include <zolt/LegacyText.h>

using namespace zolt;
using namespace zolt::migrate;
using namespace Qt::StringLiterals;

namespace {

QString shipped(const char *file)
{
    return QStringLiteral(ZOLT_ACCESS_DATA "/") + QLatin1String(file);
}

struct Opened {
    AccessFile file;
    Opened(const char *name, int codePage = 0)
    {
        QString error;
        EXPECT_TRUE(file.open(shipped(name), codePage, &error)) << error.toStdString();
    }
};

// Every row of a table, each value as text ("NULL" for a Null).
QList<QStringList> rowsOf(const AccessFile &file, const QString &table)
{
    QList<QStringList> rows;
    const qsizetype columns = file.columns(table).size();
    const auto read = file.rows(table);
    while (read && read->next()) {
        QStringList row;
        for (int i = 0; i < columns; ++i) {
            const QVariant value = read->value(i);
            row << (value.isNull() ? u"NULL"_s : value.toString());
        }
        rows << row;
    }
    return rows;
}

QStringList describe(const QList<AccessColumn> &columns)
{
    QStringList out;
    for (const AccessColumn &c : columns)
        out << u"%1 %2 %3 %4,%5"_s.arg(c.name, c.typeName, QLatin1String(c.type.name())).arg(c.length).arg(c.scale);
    return out;
}

} // namespace

TEST(AccessFile, EveryTableOfTheFileInItsOrder)
{
    Opened v97("testV1997.mdb");
    EXPECT_EQ(v97.file.tables(), (QStringList{u"Table1"_s, u"Table2"_s, u"Table3"_s, u"Table4"_s}));
    Opened codes("testIndexCodesV1997.mdb");
    EXPECT_EQ(codes.file.tables().size(), 29);
    EXPECT_EQ(codes.file.tables().first(), u"Table1"_s);
    EXPECT_EQ(rowsOf(codes.file, u"Table1"_s).size(), 275);
    EXPECT_EQ(codes.file.unreadable(), QStringList());
}

// Each type carried as it is: integers, a currency and decimals by their
// digits, dates day and time, yes/no, text, memo and OLE objects.
TEST(AccessFile, EachTypeReadsWithoutLoss)
{
    Opened v97("testV1997.mdb");
    EXPECT_EQ(describe(v97.file.columns(u"Table1"_s)),
              (QStringList{u"A Text QString 50,-1"_s, u"B Text QString 100,-1"_s, u"C Byte int -1,-1"_s,
                           u"D Integer int -1,-1"_s, u"E Long Integer int -1,-1"_s, u"F Double double -1,-1"_s,
                           u"G Date/Time QDateTime -1,-1"_s, u"H Currency double 19,4"_s, u"I Yes/No bool -1,-1"_s}));
    EXPECT_EQ(rowsOf(v97.file, u"Table1"_s),
              (QList<QStringList>{
                  {u"a"_s, u"b"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"1981-12-12T00:00:00"_s, u"0.0000"_s, u"false"_s},
                  {u"abcdefg"_s, u"hijklmnop"_s, u"2"_s, u"222"_s, u"333333333"_s, u"444.555"_s, u"1974-09-21T00:00:00"_s,
                   u"3.5000"_s, u"true"_s}}));

    Opened numbers("fixedNumericTestV2003.mdb");
    EXPECT_EQ(describe(numbers.file.columns(u"test"_s)).mid(1, 1), QStringList{u"col2 Decimal double 18,0"_s});
    EXPECT_EQ(rowsOf(numbers.file, u"test"_s),
              (QList<QStringList>{{u"some data"_s, u"1"_s, u"0"_s, u"0"_s, u"4"_s, u"-1"_s, u"1"_s}}));

    // The same project in Access 97 and 2003: a memo and an OLE object read whole.
    for (const char *name : {"test2V1997.mdb", "test2V2003.mdb"}) {
        SCOPED_TRACE(name);
        Opened project(name);
        const QList<AccessColumn> columns = project.file.columns(u"MSP_PROJECTS"_s);
        const auto at = [&](const QString &column) {
            return int(std::find_if(columns.begin(), columns.end(), [&](const AccessColumn &c) { return c.name == column; })
                       - columns.begin());
        };
        const auto row = project.file.rows(u"MSP_PROJECTS"_s);
        ASSERT_TRUE(row && row->next());
        const QString author = row->value(at(u"PROJ_PROP_AUTHOR"_s)).toString();   // a memo
        EXPECT_EQ(author.size(), 348);
        EXPECT_TRUE(author.startsWith(u"Jon Iles this is a a vawesrasoih"_s));
        EXPECT_EQ(row->value(at(u"PROJ_OPT_CURRENCY_SYMBOL"_s)).toString(), u"£"_s);
        EXPECT_EQ(row->value(at(u"PROJ_INFO_CURRENT_DATE"_s)).toString(), u"2006-02-03T08:00:00"_s);
        const QByteArray document = row->value(at(u"RESERVED_BINARY_DATA"_s)).toByteArray();   // an OLE object
        EXPECT_EQ(document.size(), 22970);
        EXPECT_TRUE(document.startsWith(QByteArray("\x15\x1c-\x00\x02\x00", 6)));
        EXPECT_TRUE(document.contains("Word.Document.8"));
        EXPECT_FALSE(row->next());
    }
}

TEST(AccessFile, KeysAndIndexesAreTheFilesOwn)
{
    Opened v97("testV1997.mdb");
    const QList<AccessIndex> indexes = v97.file.indexes(u"Table1"_s);
    ASSERT_EQ(indexes.size(), 2);
    EXPECT_EQ(indexes[0].columns, QStringList{u"B"_s});
    EXPECT_FALSE(indexes[0].primary);
    EXPECT_EQ(indexes[1].columns, QStringList{u"A"_s});
    EXPECT_TRUE(indexes[1].primary && indexes[1].unique);
}

// Access 97 keeps text as bytes of the file's code page (1252 here): each
// byte beyond ASCII reads as that code page's character, or another code
// page's where one is given.
TEST(AccessFile, Access97TextIsReadByteForByte)
{
    QString cp1252, cp1251;
    for (const auto &[codePage, out] : {std::pair{0, &cp1252}, std::pair{1251, &cp1251}}) {
        Opened codes("testIndexCodesV1997.mdb", codePage);
        for (const QStringList &row : rowsOf(codes.file, u"Table1"_s)) {
            if (row[0] == u"row161"_s)
                *out = row[1];
        }
    }
    EXPECT_EQ(cp1252, u"AA¡AA"_s);   // 0xA1
    EXPECT_EQ(cp1251, u"AAЎAA"_s);
    // Rows 160 to 255 hold "AA", the byte of their number, "AA".
    Opened codes("testIndexCodesV1997.mdb");
    int exact = 0;
    for (const QStringList &row : rowsOf(codes.file, u"Table1"_s)) {
        const int n = row[0].mid(3).toInt();
        if (row[0].startsWith(u"row"_s) && n >= 160 && n <= 255)
            exact += row[1] == u"AA"_s + AnsiText(QByteArray(1, char(n))) + u"AA"_s;
    }
    EXPECT_EQ(exact, 96);
}

TEST(AccessFile, Access2003UnicodeTextAsStored)
{
    Opened unicode("testUnicodeCompV2003.mdb");
    const QList<QStringList> rows = rowsOf(unicode.file, u"Table"_s);
    ASSERT_GE(rows.size(), 5);
    EXPECT_EQ(rows[1], (QStringList{u"2"_s, u"ääkkösiä"_s}));
    EXPECT_EQ(rows[2], (QStringList{u"3"_s, u"Мир"_s}));
    EXPECT_EQ(rows[3], (QStringList{u"4"_s, u"\u03f0\u03b1\u1f76 \u03c4\u1f79\u03c4' \u1f10\u03b3\u1f7c \u039a\u1f7b\u03f0\u03bb\u03c9\u03c0\u03b1"_s}));
    EXPECT_EQ(rows[4], (QStringList{u"5"_s, u"漢字仮名交じり文"_s}));
    EXPECT_TRUE(unicode.file.indexes(u"Table"_s).value(0).primary);
}

TEST(AccessFile, AFileLibmdbCannotReadIsRefused)
{
    test::TempDatabase empty;   // an SQLite file
    AccessFile file;
    QString error;
    EXPECT_FALSE(file.open(empty.db().databaseName(), 0, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(file.tables(), QStringList());
}
