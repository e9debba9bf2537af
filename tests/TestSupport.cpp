#include "TestSupport.h"

#include "data/Database.h"

#include <QDir>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QWidget>

#include <gtest/gtest.h>

namespace zolt::test {

TempDatabase::TempDatabase()
    : m_name(QUuid::createUuid().toString())
    , m_path(m_dir.filePath(QStringLiteral("test.db")))
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
    db.setDatabaseName(m_path);
    EXPECT_TRUE(db.open()) << db.lastError().text().toStdString();
    CurrentConnection = db;
}

TempDatabase::~TempDatabase()
{
    CurrentConnection = QSqlDatabase();
    QSqlDatabase::database(m_name, false).close();
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase TempDatabase::db() const
{
    return QSqlDatabase::database(m_name, false);
}

void TempDatabase::exec(const QString &sql) const
{
    QSqlQuery query(db());
    EXPECT_TRUE(query.exec(sql)) << sql.toStdString() << ": "
                                 << query.lastError().text().toStdString();
}

QVariant TempDatabase::scalar(const QString &sql) const
{
    QSqlQuery query(db());
    EXPECT_TRUE(query.exec(sql) && query.next()) << sql.toStdString();
    return query.value(0);
}

QString saveScreenshot(QWidget *widget, const QString &name)
{
    QDir().mkpath(QStringLiteral(ZOLT_SCREENSHOT_DIR));
    const QString path = QDir(QStringLiteral(ZOLT_SCREENSHOT_DIR)).filePath(name + QStringLiteral(".png"));
    EXPECT_TRUE(widget->grab().save(path)) << path.toStdString();
    return path;
}

} // namespace zolt::test
