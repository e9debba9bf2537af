// SPDX-License-Identifier: MIT
// The index gives the plain scan's answer: the first name in list order that
// begins with the typed text, by both folds, on generated lists full of
// shared beginnings, case and marks.
#include "core/text/PrefixIndex.h"
#include "core/text/PrefixMatcher.h"
#include "core/text/TextFold.h"

#include "TestSupport.h"

#include <QRandomGenerator>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

// A name of a few syllables from a small stock, so that many share their beginning.
QString generatedName(QRandomGenerator &random)
{
    static const QStringList syllables = {u"Nguyễn"_s, u"nguyen"_s, u"NGUYỄN"_s, u"Văn"_s, u"van"_s, u"Đường"_s,
                                          u"duong"_s, u"Bánh"_s, u"banh"_s, u"a"_s, u"ạ"_s, u" "_s, u""_s};
    QString name;
    for (int k = int(random.bounded(4)); k >= 0; --k)
        name += syllables.at(random.bounded(int(syllables.size())));
    return name;
}

qint32 scan(const QStringList &names, const PrefixMatcher &typed)
{
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (typed.Matches(names[i]))
            return qint32(i);
    }
    return -1;
}

} // namespace

TEST(PrefixIndex, GivesThePlainScansAnswerOnGeneratedLists)
{
    QRandomGenerator random(20261123);
    for (int list = 0; list < test::trials(20, 400); ++list) {
        QStringList names;
        // Short lists, and some long enough for ranges over many runs of the sorted order.
        for (int n = int(random.bounded(list % 4 ? 300 : 5000)); n > 0; --n)
            names << generatedName(random);
        auto packed = std::make_shared<PackedStrings>();
        for (const QString &name : names)
            packed->append(name);
        const PrefixIndex bare(packed, BareFold()), cased(packed, CaseFold());
        for (int t = 0; t < 100; ++t) {
            // What a clerk types: the beginning of a name (or of a generated one), in any case.
            QString typed = names.isEmpty() || t % 3 == 0 ? generatedName(random) : names.at(random.bounded(int(names.size())));
            typed = typed.left(int(random.bounded(int(typed.size()) + 1)));
            if (t % 2)
                typed = typed.toUpper();
            const PrefixMatcher matcher(typed, t % 4 < 2);
            const PrefixIndex &index = matcher.Fold() == BareFold() ? bare : cased;
            ASSERT_EQ(index.First(matcher.Typed()), scan(names, matcher))
                << typed.toStdString() << " in " << names.join(u'|').toStdString();
        }
    }
}
