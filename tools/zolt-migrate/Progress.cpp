// SPDX-License-Identifier: MIT
#include "Progress.h"

#include "Language.h"

#include <QLocale>

#include <unistd.h>

#include <cstdio>

namespace zolt::migrate {

Progress::Progress(qint64 total)
    : m_total(std::max<qint64>(total, 1))
    , m_shown(isatty(STDERR_FILENO) == 1)
{
    m_clock.start();
}

Progress::~Progress()
{
    if (m_shown && m_drawnAt >= 0)
        std::fputs("\n", stderr);
}

void Progress::add(const QString &table, qint64 rows)
{
    m_done += rows;
    // Five times a second is enough for an eye and costs nothing.
    if (m_shown && (m_drawnAt < 0 || m_clock.elapsed() - m_drawnAt >= 200 || m_done >= m_total))
        draw(table);
}

void Progress::draw(const QString &table)
{
    constexpr int Width = 30;
    m_drawnAt = m_clock.elapsed();
    const double share = std::min(1.0, double(m_done) / m_total);
    const int filled = int(share * Width);
    const double seconds = std::max(0.001, m_clock.elapsed() / 1000.0);
    const double perSecond = m_done / seconds;
    const qint64 left = perSecond > 0 ? qint64((m_total - std::min(m_done, m_total)) / perSecond) : 0;
    const QString line = QStringLiteral("\r[%1%2] %3% %4 %5 %6:%7  %8")
                             .arg(QString(filled, u'#'), QString(Width - filled, u'.'))
                             .arg(int(share * 100), 3)
                             .arg(QLocale(QLocale::Vietnamese).toString(qint64(perSecond)))
                             .arg(Say("dòng/giây, còn", "rows/s, left"))
                             .arg(left / 60)
                             .arg(left % 60, 2, 10, QLatin1Char('0'))
                             .arg(table.left(24).leftJustified(24));
    std::fputs(line.toLocal8Bit().constData(), stderr);
    std::fflush(stderr);
}

} // namespace zolt::migrate
