#include "TestSupport.h"

#include "data/Database.h"

#include <zolt/Error.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTimer>
#include <QSqlDriver>
#include <QSqlError>
#include <QTest>
#include <QSqlQuery>
#include <QUuid>
#include <QWidget>

#include <gtest/gtest.h>

#include <sqlite3.h>

namespace zolt::test {

TempDatabase::TempDatabase()
    : m_name(QUuid::createUuid().toString())
    , m_path(m_dir.filePath(QStringLiteral("test.db")))
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
    db.setDatabaseName(m_path);
    EXPECT_TRUE(db.open()) << db.lastError().text().toStdString();
    CurrentConnection = db;
    auto *handle = *static_cast<sqlite3 *const *>(db.driver()->handle().data());
    sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, [](unsigned, void *log, void *statement, void *) {
        char *sql = sqlite3_expanded_sql(static_cast<sqlite3_stmt *>(statement));
        static_cast<QStringList *>(log)->append(QString::fromUtf8(sql));
        sqlite3_free(sql);
        return 0;
    }, m_statements.get());
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

qint32 errorNumberOf(const std::function<void()> &f)
{
    try {
        f();
    } catch (const Error &e) {
        return e.number();
    }
    return 0;
}

void whenModalShows(std::function<void(QWidget *)> action, int timeoutMs)
{
    auto *timer = new QTimer(qApp);
    auto *waited = new QElapsedTimer;
    waited->start();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, waited, action, timeoutMs] {
        // Act once the dialog is up and has the keyboard, as a user would.
        QWidget *modal = QApplication::activeModalWidget();
        if (modal && !modal->isActiveWindow())
            modal = nullptr;
        if (!modal && waited->elapsed() < timeoutMs)
            return;
        timer->stop();
        timer->deleteLater();
        delete waited;
        if (modal)
            action(modal);
        else
            ADD_FAILURE() << "no modal dialog showed";
    });
    timer->start(10);
}

void typeText(QWidget *widget, const QString &text)
{
    for (const QChar c : text) {
        const Qt::Key key = c.isLetterOrNumber() && c.unicode() < 128
                                ? Qt::Key(c.toUpper().unicode())
                                : (c == QLatin1Char(' ') ? Qt::Key_Space : Qt::Key_unknown);
        QTest::sendKeyEvent(QTest::Click, widget, key, QString(c), Qt::NoModifier);
    }
}

QString saveScreenshot(QWidget *widget, const QString &name)
{
    QDir().mkpath(QStringLiteral(ZOLT_SCREENSHOT_DIR));
    const QString path = QDir(QStringLiteral(ZOLT_SCREENSHOT_DIR)).filePath(name + QStringLiteral(".png"));
    EXPECT_TRUE(widget->grab().save(path)) << path.toStdString();
    return path;
}

} // namespace zolt::test
