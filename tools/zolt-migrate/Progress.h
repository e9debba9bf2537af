// SPDX-License-Identifier: MIT
#pragma once

// A progress bar on the terminal: rows done, rows a second, time left.
// Quiet when standard error is not a terminal.

#include <QElapsedTimer>
#include <QString>

namespace zolt::migrate {

class Progress {
public:
    explicit Progress(qint64 total);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void add(const QString &table, qint64 rows);

private:
    void draw(const QString &table);

    qint64 m_total;
    qint64 m_done = 0;
    bool m_shown;
    QElapsedTimer m_clock;
    qint64 m_drawnAt = -1;
};

} // namespace zolt::migrate
