// SPDX-License-Identifier: MIT
#include "Language.h"

#include <QLocale>

namespace zolt::migrate {

bool SpeaksVietnamese()
{
    static const bool vietnamese = QLocale::system().language() == QLocale::Vietnamese;
    return vietnamese;
}

QString Say(const char *vietnamese, const char *english)
{
    return QString::fromUtf8(SpeaksVietnamese() ? vietnamese : english);
}

} // namespace zolt::migrate
