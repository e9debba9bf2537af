// SPDX-License-Identifier: MIT
// The rewrite of a clerk's text comparisons, on an SQLite connection: no
// crash, and typed text is never touched: every text between apostrophes
// comes out as it went in, and no apostrophe is added or lost.
#include "FuzzInput.h"

#include "core/database/ClerkComparisons.h"

#include <QCoreApplication>
#include <QSqlDatabase>

using namespace zolt;

namespace {

QSqlDatabase connection()
{
    static int argc = 1;
    static char name[] = "fuzz_clerk_comparisons";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);   // Qt finds its SQL drivers through the application
    QSqlDatabase db = QSqlDatabase::database(QStringLiteral("fuzz"), false);
    if (!db.isValid()) {
        db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("fuzz"));
        db.setDatabaseName(QStringLiteral(":memory:"));
        fuzz::check(db.open(), "no SQLite connection: nothing would be rewritten");
    }
    return db;
}

// The texts between apostrophes, in order.
QStringList quoted(const QString &sql)
{
    QStringList found;
    for (qsizetype i = sql.indexOf(u'\''); i >= 0; i = sql.indexOf(u'\'', i + 1)) {
        qsizetype end = i + 1;
        while (end < sql.size() && !(sql[end] == u'\'' && !(end + 1 < sql.size() && sql[end + 1] == u'\'')))
            end += sql[end] == u'\'' ? 2 : 1;
        found << sql.mid(i, end - i + 1);
        i = end;
    }
    return found;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString condition = fuzz::texts(data, size, 1).first();
    const QString rewritten = ClerkComparisons(connection(), condition);
    fuzz::check(rewritten.count(u'\'') == condition.count(u'\''), "an apostrophe added or lost");
    if (!condition.contains(u'"') && !condition.contains(u'[') && !condition.contains(u'`'))   // names quote their own way
        fuzz::check(quoted(rewritten) == quoted(condition), "typed text changed");
    return 0;
}
