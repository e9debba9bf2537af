// SPDX-License-Identifier: MIT
#include "TestSupport.h"

#include <zolt/DriverSql.h>
#include <zolt/Error.h>
#include <zolt/Schema.h>

#include <QSqlQuery>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class SchemaTest : public ::testing::TestWithParam<test::Engine> {
protected:
    // How many rows each of the library's tables holds, "" for a table that is missing.
    QString counts() const
    {
        QStringList counts;
        for (const char *table : {"[User]", "Groups", "Menu", "SubMenu", "Options", "LstFld", "Operator"}) {
            QSqlQuery query(db.db());
            counts << (query.exec(DriverSql(db.db(), u"Select Count(*) From "_s + QLatin1String(table))) && query.next()
                           ? query.value(0).toString() : QString());
        }
        return counts.join(u',');
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, SchemaTest, ::testing::ValuesIn(test::Engines), test::EngineName);

} // namespace

TEST_P(SchemaTest, CreatingAndSeedingTwiceChangesNothingTheSecondTime)
{
    EXPECT_EQ(TablesVersion(db.db()), 0);
    CreateTables(db.db());
    EXPECT_EQ(TablesVersion(db.db()), SchemaVersion);
    EXPECT_EQ(counts(), "0,0,0,0,1,0,0");   // the version's own row
    db.exec(u"Insert Into Operator Values(77, 'LIKE', 'Có chữ', 10)"_s);   // the host's own words for text
    SeedTables(db.db(), u"quantri"_s, u"123"_s);
    const QString seeded = counts();
    CreateTables(db.db());
    SeedTables(db.db(), u"QUANTRI"_s, u"khac"_s);   // the same user, as the logon compares names
    EXPECT_EQ(counts(), seeded);
    EXPECT_EQ(db.scalar(u"Select Count(*) From Operator Where [Type]=10"_s).toInt(), 1);   // the host's row alone
    for (int type : {1, 3, 8, 11, 13})
        EXPECT_GE(db.scalar(u"Select Count(*) From Operator Where [Type]=%1"_s.arg(type)).toInt(), 1) << type;
    EXPECT_EQ(db.scalar(u"Select Count(*) From Groups Where Code In (1, 8)"_s).toInt(), 2);
    EXPECT_EQ(db.scalar(u"Select IdGroup From [User] Where [Name]='quantri'"_s).toInt(), 1);
    EXPECT_EQ(db.scalar(u"Select [Password] From [User] Where [Name]='quantri'"_s).toInt(), 1065);   // the digest of "123"
}

TEST_P(SchemaTest, AFailureLeavesTheDatabaseAsItWas)
{
    // Settings that cannot be written: the version is the last thing written.
    db.exec(u"Create View Options As Select Distinct 'x' As Section, 'y' As KeyName, 'z' As KeyValue, 'w' As Description"_s);
    EXPECT_EQ(test::errorNumberOf([&] { CreateTables(db.db()); }), Error::DatabaseFailure);
    EXPECT_EQ(counts(), ",,,,1,,");
    EXPECT_EQ(test::errorNumberOf([] { CreateTables(QSqlDatabase()); }), Error::TypeMismatch);
}

// A database written by desks without the unique keys may hold duplicates:
// the upgrade reports them and deletes nothing, and a later call makes the
// keys once they are put right. Then no desk can add a name twice.
TEST_P(SchemaTest, UniqueKeysAreMadeWhereNoRowBreaksThemAndTheRestReported)
{
    db.createLibraryTables();   // the tables of version 1, as a host made them before
    db.exec(u"Insert Into [User]([Name],[Dec],IdGroup,[Password]) Values('An', 'x', 8, 1), ('an', 'y', 8, 1), ('Bình', 'z', 8, 1)"_s);
    db.exec(u"Insert Into Options Values('Kho', 'k', '1', Null), ('Kho', 'K', '2', Null)"_s);
    const QStringList report = CreateTables(db.db());
    ASSERT_EQ(report.size(), 2);
    EXPECT_TRUE(report[0].startsWith(u"Người sử dụng trùng tên: "_s) && report[0].endsWith(u"(2 dòng)"_s)) << report[0].toStdString();
    EXPECT_TRUE(report[1].startsWith(u"Thiết lập trùng khoá: Kho / "_s)) << report[1].toStdString();
    EXPECT_EQ(db.scalar(u"Select Count(*) From [User]"_s).toInt(), 3);   // nothing deleted

    db.exec(u"Update [User] Set [Name]='An Hoà' Where [Dec]='y'"_s);
    db.exec(u"Delete From Options Where KeyValue='2'"_s);
    EXPECT_EQ(CreateTables(db.db()), QStringList());
    QSqlQuery query(db.db());
    EXPECT_FALSE(query.exec(DriverSql(db.db(), u"Insert Into [User]([Name]) Values('BÌNH')"_s)));   // case-blind, as the logon
    EXPECT_FALSE(query.exec(DriverSql(db.db(), u"Insert Into Options([Section],KeyName) Values('kho', 'k')"_s)));
}
