// SPDX-License-Identifier: MIT
#include "core/text/PrefixMatcher.h"

#include "core/text/TextFold.h"

namespace zolt {

PrefixMatcher::PrefixMatcher(const QString &typed, bool accentBlindSearch)
    : m_typed(typed.normalized(QString::NormalizationForm_C))
{
    m_fold = AccentBlindFor(m_typed, accentBlindSearch) ? BareFold() : CaseFold();
    for (QChar &c : m_typed)
        c = QChar(m_fold[c.unicode()]);
}

} // namespace zolt
