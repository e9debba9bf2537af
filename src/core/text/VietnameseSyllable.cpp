// SPDX-License-Identifier: MIT
#include "core/text/VietnameseSyllable.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>

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
    static const QStringList list = QStringLiteral("ngh ng nh ch gh gi kh ph qu th tr b c d đ g h k l m n p q r s t v x")
                                        .split(u' ');
    return list;
}

// The rhymes of the language: each vowel group and the finals it takes.
// A group listed without finals ends a syllable by itself; one that ends a
// syllable also without a final is marked "-" (so "a" and "an", but "iê"
// only with a final: "tiên", never "tiê").
const QHash<QString, QStringList> &rhymes()
{
    static const QHash<QString, QStringList> table = [] {
        const std::pair<const char *, const char *> rows[] = {
            {"a", "- c ch k m n ng nh p t"}, {"ă", "c k m n ng p t"},   {"â", "c m n ng p t"},
            {"e", "- c m n ng p t"},         {"ê", "- ch m n nh p t"},  {"i", "- ch m n nh p t"},
            {"o", "- c m n ng p t"},         {"ô", "- c k m n ng p t"}, {"ơ", "- m n p t"},
            {"u", "- c k m n ng p t"},       {"ư", "- c m n ng t"},     {"y", "-"},
            {"iê", "c m n ng p t"},          {"yê", "c m n ng p t"},    {"oa", "- c ch m n ng nh p t"},
            {"oă", "c m n ng t"},            {"oe", "- n t"},           {"oo", "c ng"},
            {"uâ", "n ng t"},                {"uê", "- ch nh"},         {"uô", "c m n ng t"},
            {"ươ", "c m n ng p t"},          {"uy", "- ch n nh p t"},     {"uyê", "n t"},
        };
        QHash<QString, QStringList> t;
        for (const auto &[group, finals] : rows)
            t.insert(QString::fromUtf8(group), QString::fromLatin1(finals).split(u' '));
        for (const char *open : {"ai", "ao", "au", "ay", "âu", "ây", "eo", "êu", "ia", "iu", "oi", "ôi", "ơi", "ua",
                                 "ui", "uơ", "ưa", "ưi", "ưu", "iêu", "yêu", "oai", "oao", "oay", "oeo", "uây",
                                 "uôi", "uya", "uyu", "ươi", "ươu"})
            t.insert(QString::fromUtf8(open), {QStringLiteral("-")});
        return t;
    }();
    return table;
}

bool isStop(QStringView final)
{
    return final == u"c" || final == u"ch" || final == u"k" || final == u"p" || final == u"t";
}

// A vowel group and a final it takes: a stop takes only the rising or the
// heavy tone, and "oo" (xoong, soóc, goòng) only the level, rising and falling ones.
bool isRhyme(QStringView rhyme, Tone tone)
{
    for (qsizetype cut = rhyme.size(); cut > 0; --cut) {
        const QStringView group = rhyme.left(cut);
        const QString final = rhyme.mid(cut).toString();
        const auto found = rhymes().constFind(group.toString());
        if (found == rhymes().cend() || !found->contains(final.isEmpty() ? QStringLiteral("-") : final))
            continue;
        if (group == u"oo" && tone != Level && tone != Acute && tone != Grave)
            return false;
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
        // "gi" and "qu" lend their vowel: "gì" is g + ì, "quý" is qu + ý;
        // "q" stands before "u" only: "quýnh" is q + uýnh.
        const QStringView rest = QStringView(bare).mid(onset.size());
        if (bare.startsWith(onset) && !rest.isEmpty() && (onset != u"q" || rest.startsWith(u'u')) && isRhyme(rest, tone))
            return true;
    }
    return false;
}

namespace {

// A language has a few thousand syllables and a shop's data repeats its words:
// each word is judged once a thread (the memory bounded by starting afresh).
bool isSyllableRemembered(QStringView word)
{
    struct Hash {
        using is_transparent = void;
        size_t operator()(std::u16string_view w) const { return std::hash<std::u16string_view>{}(w); }
    };
    thread_local std::unordered_map<std::u16string, bool, Hash, std::equal_to<>> judged;
    const std::u16string_view key(word.utf16(), size_t(word.size()));
    if (const auto found = judged.find(key); found != judged.end())
        return found->second;
    if (judged.size() > 100000)
        judged.clear();
    return judged.emplace(std::u16string(key), IsVietnameseSyllable(word)).first->second;
}

} // namespace

SyllableCount CountSyllables(QStringView text)
{
    SyllableCount count;
    qsizetype start = 0;
    const auto word = [&](qsizetype end) {
        const QStringView w = text.mid(start, end - start);
        // A word holds a character beyond ASCII and a letter: a sign alone
        // ("£", "12°") is none, one among letters ("n¨m") is a wrong word.
        const bool beyondAscii = std::any_of(w.begin(), w.end(), [](QChar c) { return c.unicode() >= 0x80; })
                                 && std::any_of(w.begin(), w.end(), [](QChar c) { return c.isLetter(); });
        if (beyondAscii) {
            ++count.words;
            count.valid += isSyllableRemembered(w);
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
