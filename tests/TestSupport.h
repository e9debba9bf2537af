#pragma once

#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class QWidget;

namespace zolt::test {

// A real SQLite database file in a temporary folder, open for the test's
// lifetime and installed as the library's current connection.
class TempDatabase {
public:
    TempDatabase();
    ~TempDatabase();
    TempDatabase(const TempDatabase &) = delete;
    TempDatabase &operator=(const TempDatabase &) = delete;

    QSqlDatabase db() const;
    QString path() const { return m_path; }
    // Every statement SQLite runs on this database from now on, as it ran it.
    const QStringList &statements() const { return *m_statements; }
    // Runs statements that set up a test; fails the test on an error.
    void exec(const QString &sql) const;
    // The first column of the first row of a query.
    QVariant scalar(const QString &sql) const;

private:
    QTemporaryDir m_dir;
    std::unique_ptr<QStringList> m_statements = std::make_unique<QStringList>();
    QString m_name;
    QString m_path;
};

// The number of the zolt::Error that f raises; 0 when it raises none.
qint32 errorNumberOf(const std::function<void()> &f);

// Runs action on the next modal dialog as soon as it shows (for dialogs that
// block in exec()); gives up after timeoutMs.
void whenModalShows(std::function<void(QWidget *)> action, int timeoutMs = 5000);

// Types text into the widget key by key, Vietnamese letters included.
void typeText(QWidget *widget, const QString &text);

// Saves a picture of the widget under the build folder's screenshots/.
QString saveScreenshot(QWidget *widget, const QString &name);

} // namespace zolt::test
