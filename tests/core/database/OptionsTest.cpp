// SPDX-License-Identifier: MIT
#include "core/database/Options.h"

#include "core/platform/WriterTool.h"
#include "TestSupport.h"

#include <zolt/Error.h>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

class OptionsTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override { db.createLibraryTables(); }
    QString read(const QString &key) const { return ReadOption(u"Kho"_s, key, u"d"_s); }
    void save(const QString &value, const QString &description = {}, qint32 isNew = 0)
    {
        SaveOption(u"Kho"_s, u"Mặc định"_s, value, description, isNew);
    }
    QString column(const char *name) const { return db.scalar(u"Select %1 From Options"_s.arg(QLatin1String(name))).toString(); }
    test::TempDatabase db{GetParam()};
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Engines, OptionsTest, ::testing::ValuesIn(test::Engines), test::EngineName);

TEST_P(OptionsTest, ReadsTheStoredValueOrTheDefault)
{
    db.exec(u"Insert Into Options Values('Kho','Font','Tahoma',Null), ('Kho','Null',Null,Null), ('Kho','Empty','',Null)"_s);
    EXPECT_EQ(read(u"Font"_s), "Tahoma");
    for (const QString &key : {u"Null"_s, u"Empty"_s, u"Missing"_s, u"O'Brien"_s})
        EXPECT_EQ(read(key), "d") << key.toStdString();
    db.exec(u"Drop Table Options"_s);
    EXPECT_EQ(read(u"Font"_s), "d");
    EXPECT_EQ(test::errorNumberOf([this] { save(u"v"_s); }), Error::DatabaseFailure);
}

TEST_P(OptionsTest, UpdatesAnExistingKeyAndInsertsANewOne)
{
    for (int time = 0; time < 2; ++time) {   // stored as typed, however often it is saved
        save(u"Kho 'A' \"B\""_s);
        EXPECT_EQ(column("KeyValue"), "Kho 'A' \"B\"");
    }
    EXPECT_TRUE(db.scalar(u"Select Description From Options"_s).isNull());
    save(u"Kho B"_s, u"chính"_s);
    EXPECT_EQ(column("Count(*)") + u'|' + column("Description"), "1|chính ");
    save(u"Kho C"_s);
    EXPECT_EQ(column("Description"), "chính ");   // without a description only the value changes
    EXPECT_EQ(read(u"Mặc định"_s), "Kho C");
    save(u"2"_s, {}, 1);
    EXPECT_EQ(column("Count(*)"), "2");           // isNew inserts even when the row exists
}

TEST_P(OptionsTest, TextComparesWithoutRegardToCaseVietnameseLettersIncluded)
{
    db.exec(u"Insert Into Options Values('Chung','đỗ văn','Bánh quy',Null)"_s);
    EXPECT_EQ(ReadOption(u"CHUNG"_s, u"ĐỖ VĂN"_s, u"d"_s), "Bánh quy");
    for (const auto &[condition, count] : {std::pair{u"KeyValue Like 'bánh%'"_s, 1}, {u"KeyValue Like 'BÁNH QU_'"_s, 1},
                                           {u"KeyValue <> 'BÁNH QUY'"_s, 0}, {u"KeyValue Like 'banh%'"_s, 0}})
        EXPECT_EQ(db.scalar(u"Select Count(*) From Options Where "_s + condition).toInt(), count) << condition.toStdString();
}

class GetMaxValueTest : public ::testing::TestWithParam<test::Engine> {};
INSTANTIATE_TEST_SUITE_P(Engines, GetMaxValueTest, ::testing::ValuesIn(test::Engines), test::EngineName);

TEST_P(GetMaxValueTest, LargestValueOrZero)
{
    test::TempDatabase db(GetParam());
    db.exec(u"Create Table Groups(Code Integer)"_s);
    EXPECT_EQ(GetMaxValue(u"Groups"_s, u"Code"_s, db.db()), 0);
    db.exec(u"Insert Into Groups Values(8), (1), (12), (3)"_s);
    EXPECT_EQ(GetMaxValue(u"Groups"_s, u"Code"_s, db.db()), 12);
    db.exec(u"Insert Into Groups Values(Null)"_s);   // sorted last on some engines, first on others
    EXPECT_EQ(GetMaxValue(u"Groups"_s, u"Code"_s, db.db()), 12);
    EXPECT_EQ(GetMaxValue(u"Missing"_s, u"Code"_s, db.db()), 0);
    EXPECT_EQ(GetMaxValue(u"Groups"_s, u"Code"_s, QSqlDatabase()), 0);
}

class SharedServer : public ::testing::TestWithParam<test::Engine> {};
INSTANTIATE_TEST_SUITE_P(Servers, SharedServer, ::testing::Values(test::Engine::PostgreSQL, test::Engine::MariaDB),
                         test::EngineName);

TEST_P(SharedServer, TwoDesksWritingAtOnceLoseNothingAndLeaveNoHalfRow)
{
    test::TempDatabase db(GetParam());
    db.createLibraryTables();
    const auto desk = [&](const char *prefix) {
        return test::startWriter({u"desk"_s, db.serverFolder(), db.schema(), QLatin1String(prefix), u"60"_s});
    };
    const auto first = desk("a"), second = desk("b");
    test::finish({first.get(), second.get()});
    EXPECT_EQ(db.scalar(u"Select Count(*) From Options Where KeyValue = Concat('giá trị ', KeyName)"_s).toInt(), 120);
    EXPECT_EQ(db.scalar(u"Select Count(Distinct Code) From [User] Where [Dec] = Concat('Nhân viên ', Name)"_s).toInt(), 120);
}
