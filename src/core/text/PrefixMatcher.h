// SPDX-License-Identifier: MIT
#pragma once

// Finding a name by its first letters as clerks type them, by the rule of
// TextFold ("nguyen" finds "Nguyễn", "duong" finds "Đường"). Typed text is
// taken in Unicode normal form C, so that what an input method sends
// decomposed matches the names, which the lists hold composed.

#include <QString>
#include <QStringView>

namespace zolt {

class PrefixMatcher {
public:
    // accentBlindSearch: the setting that lets typed text without diacritics
    // match names with them.
    PrefixMatcher(const QString &typed, bool accentBlindSearch);

    // True when text begins with the typed text.
    bool Matches(QStringView text) const
    {
        if (text.size() < m_typed.size())
            return false;
        for (qsizetype i = 0; i < m_typed.size(); ++i) {
            if (m_fold[text[i].unicode()] != m_typed[i])
                return false;
        }
        return true;
    }

    // The typed text folded, and the fold it was folded by.
    QStringView Typed() const { return m_typed; }
    const char16_t *Fold() const { return m_fold; }

private:
    QString m_typed;           // folded as m_fold folds
    const char16_t *m_fold;    // the fold of every UTF-16 code unit
};

} // namespace zolt
