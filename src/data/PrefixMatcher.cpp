// SPDX-License-Identifier: MIT
#include "data/PrefixMatcher.h"

#include <memory>

namespace zolt {

namespace {

// Every UTF-16 code unit upper-cased, and in a second table also stripped of
// its diacritics; built once, so that matching a million names only looks up.
struct FoldTables {
    std::unique_ptr<char16_t[]> upper = std::make_unique<char16_t[]>(0x10000);
    std::unique_ptr<char16_t[]> bare = std::make_unique<char16_t[]>(0x10000);

    FoldTables()
    {
        for (char32_t u = 0; u < 0x10000; ++u) {
            const QChar c{char16_t(u)};
            upper[u] = c.isSurrogate() ? char16_t(u) : c.toUpper().unicode();
            bare[u] = upper[u];
        }
        // Latin letters with marks decompose to their base letter; Đ does not.
        for (char32_t u = 0xC0; u < 0x1F00; ++u) {
            QChar base(upper[u]);
            while (base.decompositionTag() == QChar::Canonical)
                base = base.decomposition().at(0);
            bare[u] = base.unicode();
        }
        bare[0x0110] = bare[0x0111] = u'D';
    }
};

const FoldTables &tables()
{
    static const FoldTables folds;
    return folds;
}

} // namespace

PrefixMatcher::PrefixMatcher(const QString &typed, bool accentBlind)
    : m_typed(typed.normalized(QString::NormalizationForm_C))
{
    m_fold = accentBlind && !HasDiacritics(m_typed) ? tables().bare.get() : tables().upper.get();
    for (QChar &c : m_typed)
        c = QChar(m_fold[c.unicode()]);
}

bool HasDiacritics(QStringView text)
{
    const FoldTables &folds = tables();
    for (const QChar c : text) {
        if (folds.bare[c.unicode()] != folds.upper[c.unicode()])
            return true;
    }
    return false;
}

} // namespace zolt
