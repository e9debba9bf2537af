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
