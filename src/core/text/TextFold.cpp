// SPDX-License-Identifier: MIT
#include "core/text/TextFold.h"

#include <QString>

#include <memory>

namespace zolt {

namespace {

struct FoldTables {
    std::unique_ptr<char16_t[]> cased = std::make_unique<char16_t[]>(0x10000);
    std::unique_ptr<char16_t[]> bare = std::make_unique<char16_t[]>(0x10000);

    FoldTables()
    {
        for (char32_t u = 0; u < 0x10000; ++u) {
            const QChar c{char16_t(u)};
            cased[u] = c.isSurrogate() ? char16_t(u) : c.toCaseFolded().unicode();
            bare[u] = cased[u];
        }
        // Latin letters with marks decompose to their base letter; Đ does not.
        for (char32_t u = 0xC0; u < 0x1F00; ++u) {
            QChar base(cased[u]);
            while (base.decompositionTag() == QChar::Canonical)
                base = base.decomposition().at(0);
            bare[u] = QChar(base).toCaseFolded().unicode();
        }
        bare[0x0110] = bare[0x0111] = u'd';
        for (char32_t u = 0x300; u <= 0x36F; ++u)
            bare[u] = 0;
    }
};

const FoldTables &tables()
{
    static const FoldTables folds;
    return folds;
}

} // namespace

const char16_t *CaseFold()
{
    return tables().cased.get();
}

const char16_t *BareFold()
{
    return tables().bare.get();
}

bool HasDiacritics(QStringView text)
{
    const FoldTables &folds = tables();
    for (const QChar c : text) {
        if (folds.bare[c.unicode()] != folds.cased[c.unicode()])
            return true;
    }
    return false;
}

} // namespace zolt
