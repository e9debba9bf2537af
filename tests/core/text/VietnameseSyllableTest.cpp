// SPDX-License-Identifier: MIT
// Which words are Vietnamese syllables: every syllable of Debian's Vietnamese
// spelling dictionary (hunspell-vi) is one, and the readings of legacy text
// that no Vietnamese word has are none.
#include "core/text/VietnameseSyllable.h"

#include "TestSupport.h"

#include <QFile>
#include <QRegularExpression>

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(VietnameseSyllable, EverySyllableOfTheSpellingDictionaryIsOne)
{
    QFile dictionary(u"/usr/share/hunspell/vi_VN.dic"_s);
    ASSERT_TRUE(dictionary.open(QIODevice::ReadOnly)) << "hunspell-vi is missing (./run installs it)";
    dictionary.readLine();   // the count
    QStringList refused;
    int words = 0;
    while (!dictionary.atEnd()) {
        const QString word = QString::fromUtf8(dictionary.readLine()).trimmed().section(u'/', 0, 0);
        // Words with a Vietnamese letter: those of ASCII letters are never
        // judged (an English word is not Vietnamese in any reading), nor are
        // abbreviations (HĐND) and the loan "palăng", two syllables written as one.
        if (!word.contains(QRegularExpression(u"[^\\x00-\\x7f]"_s)) || word.toUpper() == word || word == u"palăng"_s)
            continue;
        ++words;
        if (!IsVietnameseSyllable(word))
            refused << word;
    }
    EXPECT_GT(words, 4000);
    EXPECT_EQ(refused, QStringList()) << refused.size();
}

TEST(VietnameseSyllable, ReadingsNoWordHasAreNone)
{
    // TCVN3 readings of VNI text, and the like: a final a vowel never takes,
    // a vowel group that needs a final, a tone "oo" never has.
    for (const QString &word : {u"Coõng"_s, u"Trỡnh"_s, u"tiê"_s, u"ơnh"_s, u"ing"_s, u"ấch"_s, u"uyê"_s, u"ưnh"_s,
                                u"Caùt"_s, u"vaøng"_s, u"oâ"_s})
        EXPECT_FALSE(IsVietnameseSyllable(word)) << word.toStdString();
    for (const QString &word : {u"Công"_s, u"Trình"_s, u"xoong"_s, u"soóc"_s, u"Đắk"_s, u"Lắk"_s, u"khuya"_s,
                                u"quyết"_s, u"giường"_s, u"NGƯỜI"_s, u"huỳnh"_s, u"khuếch"_s, u"thuở"_s, u"Toát"_s})
        EXPECT_TRUE(IsVietnameseSyllable(word)) << word.toStdString();
}

TEST(VietnameseSyllable, OnlyWordsWithLettersBeyondAsciiCount)
{
    const SyllableCount count = CountSyllables(u"Giá £ 12° Bánh kẹo"_s);
    EXPECT_EQ(count.words, 3);   // "Giá", "Bánh", "kẹo": signs are no words
    EXPECT_EQ(count.valid, 3);
}
