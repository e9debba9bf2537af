// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

// Failures print texts as texts.
inline void PrintTo(const QString &text, std::ostream *os) { *os << '"' << text.toStdString() << '"'; }

namespace zolt::test {

// The engines the library is tested on: an SQLite file, the suite's own
// PostgreSQL server reached through Qt's driver and through unixODBC, and its
// own MariaDB server.
enum class Engine { SQLite, PostgreSQL, Odbc, MariaDB };
inline const Engine Engines[] = {Engine::SQLite, Engine::PostgreSQL, Engine::Odbc, Engine::MariaDB};
std::string EngineName(const ::testing::TestParamInfo<Engine> &info);
// The folder of the suite's PostgreSQL server: its socket and data source.
QString ServerFolder();
// The folder of the suite's MariaDB server: its socket.
QString MariaDbFolder();

// A fresh database on an engine, open for the test's lifetime and installed
// as the library's current connection: an SQLite file in a temporary folder,
// a schema of its own on the PostgreSQL server, a database of its own on the
// MariaDB server. A database that cannot be reached fails the test.
class TempDatabase {
public:
    explicit TempDatabase(Engine engine = Engine::SQLite);
    ~TempDatabase();
    TempDatabase(const TempDatabase &) = delete;
    TempDatabase &operator=(const TempDatabase &) = delete;

    QSqlDatabase db() const;
    QString name() const { return m_name; }
    Engine engine() const { return m_engine; }
    // On a server: the folder of its socket, and the test's own schema
    // (MariaDB: its own database).
    QString serverFolder() const { return m_engine == Engine::MariaDB ? MariaDbFolder() : ServerFolder(); }
    QString schema() const { return m_schema; }
    // Every statement SQLite runs on this database from now on, as it ran it.
    // The other engines are not traced: the library's texts are the same on
    // each, so tests pin them where traced().
    const QStringList &statements() const { return *m_statements; }
    bool traced() const { return m_engine == Engine::SQLite; }
    // Creates the library's tables of version 1, the original program's, with
    // the SQL of the library's first step.
    void createLibraryTables() const;
    // Runs statements, written as the library writes its own, that set up a
    // test; fails the test on an error.
    void exec(const QString &sql) const;
    // The first column of the first row of a query.
    QVariant scalar(const QString &sql) const;
    // On the server: the server ends this connection, as when it goes down.
    void dropConnection() const;

private:
    Engine m_engine;
    QTemporaryDir m_dir;
    std::unique_ptr<QStringList> m_statements = std::make_unique<QStringList>();
    QString m_name;
    QString m_schema;   // on a server
};

// How many generated trials a test runs: few by default, many when
// ZOLT_LONG_TRIALS is set (for a run of its own, not for CI).
int trials(int few, int many);

// The number of the zolt::Error that f raises; 0 when it raises none.
qint32 errorNumberOf(const std::function<void()> &f);

// A file's bytes, "<missing>" when it cannot be read; and a file written whole.
QByteArray readFile(const QString &path);
void writeFile(const QString &path, const QByteArray &data);

} // namespace zolt::test
