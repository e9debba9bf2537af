// SPDX-License-Identifier: MIT
#include "data/Options.h"

#include "TestSupport.h"

#include <zolt/Error.h>

#include <gtest/gtest.h>

using namespace zolt;

namespace {

class OptionsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.exec(QStringLiteral("Create Table Options([Section] Text, KeyName Text, KeyValue Text, Description Text)"));
    }
    QString read(const char *key) const { return ReadOption(QStringLiteral("Kho"), QString::fromUtf8(key), QStringLiteral("d")); }
    QString column(const char *name) const
    {
        return db.scalar(QStringLiteral("Select %1 From Options").arg(QLatin1String(name))).toString();
    }
    test::TempDatabase db;
};

} // namespace

TEST_F(OptionsTest, ReadsTheStoredValueOrTheDefault)
{
    db.exec(QStringLiteral("Insert Into Options Values('Kho','Font','Tahoma',Null), ('Kho','Null',Null,Null), "
                           "('Kho','Empty','',Null)"));
    EXPECT_EQ(read("Font"), "Tahoma");
    for (const char *key : {"Null", "Empty", "Missing", "O'Brien"})
        EXPECT_EQ(read(key), "d") << key;
    db.exec(QStringLiteral("Drop Table Options"));
    EXPECT_EQ(read("Font"), "d");
}

TEST_F(OptionsTest, UpdatesAnExistingKeyAndInsertsANewOne)
{
    SaveOption(QStringLiteral("Kho"), QStringLiteral("Mặc định"), QStringLiteral("Kho 'A' \"B\""), QString(), 0);
    EXPECT_TRUE(db.scalar(QStringLiteral("Select Description From Options")).isNull());
    // Double quotes are doubled too, and between apostrophes the database keeps both.
    EXPECT_EQ(column("KeyValue"), "Kho 'A' \"\"B\"\"");
    SaveOption(QStringLiteral("Kho"), QStringLiteral("Mặc định"), QStringLiteral("Kho B"), QStringLiteral("chính"), 0);
    EXPECT_EQ(column("Count(*)"), "1");
    EXPECT_EQ(column("Description"), "chính ");
    SaveOption(QStringLiteral("Kho"), QStringLiteral("Mặc định"), QStringLiteral("Kho C"), QString(), 0);
    EXPECT_EQ(column("Description"), "chính ");   // without a description only the value changes
    EXPECT_EQ(read("Mặc định"), "Kho C");
    SaveOption(QStringLiteral("Kho"), QStringLiteral("Mặc định"), QStringLiteral("2"), QString(), 1);
    EXPECT_EQ(column("Count(*)"), "2");           // isNew inserts even when the row exists
}

TEST_F(OptionsTest, AMissingTableFailsTheExistenceQueryAndTheInsert)
{
    db.exec(QStringLiteral("Drop Table Options"));
    EXPECT_EQ(test::errorNumberOf([] { SaveOption(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("v"), QString(), 0); }),
              Error::DatabaseFailure);
}

TEST(GetMaxValue, LargestValueOrZero)
{
    test::TempDatabase db;
    db.exec(QStringLiteral("Create Table Groups(Code Integer)"));
    EXPECT_EQ(GetMaxValue(QStringLiteral("Groups"), QStringLiteral("Code"), db.db()), 0);
    db.exec(QStringLiteral("Insert Into Groups Values(8), (1), (12), (3)"));
    EXPECT_EQ(GetMaxValue(QStringLiteral("Groups"), QStringLiteral("Code"), db.db()), 12);
    EXPECT_EQ(GetMaxValue(QStringLiteral("Missing"), QStringLiteral("Code"), db.db()), 0);
    EXPECT_EQ(GetMaxValue(QStringLiteral("Groups"), QStringLiteral("Code"), QSqlDatabase()), 0);
}
