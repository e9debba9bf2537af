// SPDX-License-Identifier: MIT
#include "data/VietnameseSyllable.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <algorithm>

namespace zolt {

namespace {

enum Tone { Level, Grave, Acute, Hook, Tilde, Dot, TwoTones };

Tone toneOf(char16_t mark)
{
    switch (mark) {
    case 0x300: return Grave;
    case 0x301: return Acute;
    case 0x309: return Hook;
    case 0x303: return Tilde;
    case 0x323: return Dot;
    default: return Level;
    }
}

// The word in lower case without its tone (its vowel marks kept), and the tone.
QString withoutTone(QStringView word, Tone *tone)
{
    *tone = Level;
    QString bare;
    for (const QChar c : word.toString().toLower().normalized(QString::NormalizationForm_D)) {
        const Tone t = toneOf(c.unicode());
        if (t == Level) {
            bare += c;
            continue;
        }
        *tone = *tone == Level ? t : TwoTones;
    }
    return bare.normalized(QString::NormalizationForm_C);
}

const QStringList &onsets()
{
    // Longest first, so that "ngh" is tried before "ng" and "n".
    static const QStringList list = QStringLiteral("ngh ng nh ch gh gi kh ph qu th tr b c d đ g h k l m n p r s t v x")
                                        .split(u' ');
    return list;
}

const QSet<QString> &vowelGroups()
{
    static const QSet<QString> set = [] {
        QSet<QString> s;
        for (const QString &v :
             QStringLiteral("a ă â e ê i o ô ơ u ư y ai ao au ay âu ây eo êu ia iê iu oa oă oe oi ôi ơi oo ua uâ uê "
                            "ui uô uơ uy ưa ưi ươ ưu yê iêu yêu oai oao oay oeo uây uôi uya uyê uyu ươi ươu")
                 .split(u' '))
            s.insert(v);
        return s;
    }();
    return set;
}

const QStringList &finals()
{
    // "k" ends the names of the highlands: Đắk Lắk, Búk.
    static const QStringList list = QStringLiteral("ch ng nh c k m n p t").split(u' ');
    return list;
}

bool isStop(QStringView final)
{
    return final == u"c" || final == u"ch" || final == u"k" || final == u"p" || final == u"t";
}

// A vowel group and a final: a stop takes only the rising or the heavy tone.
bool isRhyme(QStringView rhyme, Tone tone)
{
    if (vowelGroups().contains(rhyme.toString()))
        return true;
    for (const QString &final : finals()) {
        if (rhyme.size() > final.size() && rhyme.endsWith(final)
            && vowelGroups().contains(rhyme.chopped(final.size()).toString()))
            return !isStop(final) || tone == Acute || tone == Dot || tone == Level;
    }
    return false;
}

bool isWordCharacter(QChar c)
{
    if (c.unicode() < 0x80)
        return c.isLetter();
    return !c.isSpace() && !(c.unicode() >= 0x2000 && c.unicode() < 0x2070);
}

} // namespace

bool IsVietnameseSyllable(QStringView word)
{
    // Capitals stand at the start of a word or throughout it, never in its middle.
    const QStringView rest = word.mid(1);
    if (rest.toString() != rest.toString().toLower() && rest.toString() != rest.toString().toUpper())
        return false;
    Tone tone;
    const QString bare = withoutTone(word, &tone);
    if (tone == TwoTones || bare.isEmpty())
        return false;
    if (isRhyme(bare, tone))
        return true;
    for (const QString &onset : onsets()) {
        // "gi" and "qu" lend their vowel: "gì" is g + ì, "quý" is q(u) + uý.
        if (bare.startsWith(onset) && bare.size() > onset.size() && isRhyme(QStringView(bare).mid(onset.size()), tone))
            return true;
    }
    return false;
}

SyllableCount CountSyllables(QStringView text)
{
    SyllableCount count;
    qsizetype start = 0;
    const auto word = [&](qsizetype end) {
        const QStringView w = text.mid(start, end - start);
        const bool beyondAscii = std::any_of(w.begin(), w.end(), [](QChar c) { return c.unicode() >= 0x80; });
        if (beyondAscii) {
            ++count.words;
            count.valid += IsVietnameseSyllable(w);
        }
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isWordCharacter(text[i])) {
            word(i);
            start = i + 1;
        }
    }
    word(text.size());
    return count;
}

} // namespace zolt
