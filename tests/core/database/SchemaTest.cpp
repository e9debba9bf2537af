// SPDX-License-Identifier: MIT
#include "TestSupport.h"

#include <zolt/DriverSql.h>
#include <zolt/Error.h>
#include <zolt/Schema.h>

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

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

// MariaDB commits each change of a table at once: there a failure keeps the
// tables made, without their version, and the next run finishes the work.
TEST_P(SchemaTest, AFailureLeavesTheDatabaseAsItWas)
{
    // Settings that cannot be written: the version is the last thing written.
    db.exec(u"Create View Options As Select Distinct 'x' As Section, 'y' As KeyName, 'z' As KeyValue, 'w' As Description"_s);
    EXPECT_EQ(test::errorNumberOf([&] { CreateTables(db.db()); }), Error::DatabaseFailure);
    if (db.engine() == test::Engine::MariaDB) {
        EXPECT_EQ(counts(), "0,0,0,0,1,0,0");
        db.exec(u"Drop View Options"_s);
        EXPECT_EQ(CreateTables(db.db()), QStringList());
        EXPECT_EQ(TablesVersion(db.db()), SchemaVersion);
    } else {
        EXPECT_EQ(counts(), ",,,,1,,");
    }
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

namespace {

// The tables, their columns, keys, indexes and triggers as the engine's
// catalogue describes them (the test's own schema name left out).
QStringList catalogue(const test::TempDatabase &db)
{
    const QStringList queries = db.engine() == test::Engine::SQLite
        ? QStringList{u"SELECT type, name, tbl_name, sql FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY type, name"_s}
        : db.engine() == test::Engine::MariaDB
        ? QStringList{u"SELECT table_name, column_name, column_type, collation_name, column_default, ordinal_position "
                      "FROM information_schema.columns WHERE table_schema = database() ORDER BY table_name, ordinal_position"_s,
                      u"SELECT table_name, index_name, non_unique, column_name, seq_in_index FROM information_schema.statistics "
                      "WHERE table_schema = database() ORDER BY table_name, index_name, seq_in_index"_s}
        : QStringList{u"SELECT table_name, column_name, data_type, column_default, ordinal_position FROM information_schema.columns"
                      " WHERE table_schema = current_schema() ORDER BY table_name, ordinal_position"_s,
                      u"SELECT tablename, indexname, indexdef FROM pg_indexes WHERE schemaname = current_schema() ORDER BY indexname"_s,
                      u"SELECT event_object_table, trigger_name, action_statement FROM information_schema.triggers"
                      " WHERE trigger_schema = current_schema() ORDER BY trigger_name"_s,
                      u"SELECT proname, prosrc FROM pg_proc WHERE pronamespace = current_schema()::regnamespace ORDER BY proname"_s};
    const QString schema = db.scalar(db.engine() == test::Engine::SQLite    ? u"Select 'main'"_s
                                     : db.engine() == test::Engine::MariaDB ? u"Select database()"_s
                                                                            : u"Select current_schema()"_s)
                               .toString();
    QStringList rows;
    for (const QString &sql : queries) {
        QSqlQuery query(db.db());
        EXPECT_TRUE(query.exec(sql)) << sql.toStdString();
        while (query.next()) {
            QStringList values;
            for (int column = 0; column < query.record().count(); ++column)
                values << query.value(column).toString().replace(schema + u'.', u"<schema>."_s);
            rows << values.join(u'|');
        }
    }
    return rows;
}

// Runs the installed script as an administrator would: every statement ends its line with ";".
void runScript(const test::TempDatabase &db, const QString &path)
{
    QString statement;
    for (const QString &line : QString::fromUtf8(test::readFile(path)).split(u'\n')) {
        if (line.startsWith(u"--"_s) || line.trimmed().isEmpty())
            continue;
        statement += line + u'\n';
        if (line.trimmed().endsWith(u';')) {
            QSqlQuery query(db.db());
            EXPECT_TRUE(query.exec(statement)) << statement.toStdString() << query.lastError().text().toStdString();
            statement.clear();
        }
    }
}

class InstalledSchemaTest : public ::testing::TestWithParam<test::Engine> {};
INSTANTIATE_TEST_SUITE_P(Engines, InstalledSchemaTest, ::testing::Values(test::Engine::SQLite, test::Engine::PostgreSQL, test::Engine::MariaDB),
                         test::EngineName);

} // namespace

// The script installed for administrators makes the very tables, keys and
// indexes CreateTables makes, at the same version: CreateTables finds nothing
// to do on a database it made.
TEST_P(InstalledSchemaTest, GivesTheTablesCreateTablesGives)
{
    test::TempDatabase created(GetParam());
    CreateTables(created.db());
    const QStringList expected = catalogue(created);

    test::TempDatabase scripted(GetParam());
    runScript(scripted, QString::fromUtf8(GetParam() == test::Engine::SQLite    ? ZOLT_SQLITE_SCHEMA
                                          : GetParam() == test::Engine::MariaDB ? ZOLT_MARIADB_SCHEMA
                                                                                : ZOLT_POSTGRESQL_SCHEMA));
    EXPECT_EQ(catalogue(scripted), expected);
    EXPECT_EQ(TablesVersion(scripted.db()), SchemaVersion);
    EXPECT_EQ(CreateTables(scripted.db()), QStringList());
    EXPECT_EQ(catalogue(scripted), expected);
    EXPECT_GT(expected.filter(u"UserName"_s, Qt::CaseInsensitive).size(), 0);
}
