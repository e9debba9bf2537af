// SPDX-License-Identifier: MIT
#include <zolt/EncodingGuess.h>

#include "core/text/VietnameseSyllable.h"

#include <algorithm>

namespace zolt {

namespace {

// A reading of a value: how Vietnamese it looks.
struct Reading {
    TextEncoding encoding;
    double score = 0;
    int words = 0;       // words holding a letter outside ASCII, and bytes without meaning
    bool upper = false;
    // It makes syllables of at least half its words.
    bool vietnamese() const { return words > 0 && score >= 0.5; }
};

Reading judge(TextEncoding encoding, const QString &text, qint32 unconvertible, bool upper = false)
{
    const SyllableCount count = CountSyllables(text);
    const int words = count.words + unconvertible;
    return {encoding, words == 0 ? 1.0 : double(count.valid) / words, words, upper};
}

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

bool isTcvn3(TextEncoding e) { return e == TextEncoding::Tcvn3 || e == TextEncoding::Tcvn3Ansi; }

// TCVN3 is read for a capitals font too: its capitals but Ă Â Ê Ô Ơ Ư Đ are
// lower-case bytes, which read as small letters inside capital words.
Reading readAs(const QVariant &value, TextEncoding encoding)
{
    qint32 unconvertible = 0;
    const QString text = ToUnicode(value, encoding, false, &unconvertible);
    const Reading plain = judge(encoding, text, unconvertible);
    if (!isTcvn3(encoding))
        return plain;
    const Reading upper = judge(encoding, text.toUpper(), unconvertible, true);
    return upper.score > plain.score ? upper : plain;
}

// Readings come in order of preference; a later one must look better, and a
// legacy reading must look Vietnamese in at least half its words to be
// taken. Another reading that makes syllables of as many words as the chosen
// one leaves the value uncertain; one that makes fewer does not.
EncodingGuess choose(const QList<Reading> &readings)
{
    Reading best = readings.first();
    for (const Reading &reading : readings) {
        if (reading.score > best.score && reading.score >= 0.5)
            best = reading;
    }
    EncodingGuess guess{best.encoding, best.score, TextEncoding::Ascii, best.upper};
    if (!best.vietnamese())
        return guess;
    for (const Reading &reading : readings) {
        if (reading.encoding != best.encoding && reading.vietnamese() && reading.score == best.score) {
            guess.alternative = reading.encoding;
            break;
        }
    }
    return guess;
}

} // namespace

EncodingGuess GuessEncoding(const QVariant &value)
{
    if (value.typeId() == QMetaType::QByteArray) {
        const QByteArray bytes = value.toByteArray();
        if (isAscii(bytes))
            return {};
        const QString utf8 = QString::fromUtf8(bytes);
        const Reading unicode = utf8.contains(QChar::ReplacementCharacter) ? Reading{TextEncoding::Binary}
                                                                          : judge(TextEncoding::Unicode, utf8, 0);
        return choose({unicode, readAs(value, TextEncoding::Tcvn3), readAs(value, TextEncoding::Vni)});
    }
    const QString text = value.toString();
    if (isAscii(text))
        return {};
    const Reading unicode = judge(TextEncoding::Unicode, text.normalized(QString::NormalizationForm_C), 0);
    if (!IsAnsiText(text))   // letters beyond Windows-1252: Unicode, and nothing else
        return {TextEncoding::Unicode, unicode.score};
    return choose({unicode, readAs(value, TextEncoding::Tcvn3Ansi), readAs(value, TextEncoding::VniAnsi)});
}

ColumnGuess GuessColumn(const QList<QVariant> &sample)
{
    ColumnGuess column;
    QMap<TextEncoding, double> scores;
    QList<EncodingGuess> uncertain;
    int upper = 0;
    for (const QVariant &value : sample) {
        if (value.isNull() || (value.typeId() == QMetaType::QString && value.toString().isEmpty()))
            continue;
        const EncodingGuess guess = GuessEncoding(value);
        if (!guess.certain()) {
            uncertain << guess;
            ++column.readableAs[guess.encoding];
            ++column.readableAs[guess.alternative];
            continue;
        }
        ++column.certain[guess.encoding];
        scores[guess.encoding] += guess.score;
        upper += guess.upper;
    }
    column.uncertain = int(uncertain.size());
    // The reading: the legacy encoding certain values hold most; a mix only
    // of both legacy encodings (one odd value among many is the guess being wrong).
    QList<std::pair<int, TextEncoding>> legacy;
    int legacyValues = 0;
    for (auto held = column.certain.cbegin(); held != column.certain.cend(); ++held) {
        if (IsLegacyEncoding(held.key())) {
            legacy += {held.value(), held.key()};
            legacyValues += held.value();
        }
    }
    std::sort(legacy.begin(), legacy.end(), std::greater<>());
    if (!legacy.isEmpty()) {
        const bool mixed = legacy.size() > 1 && legacy[1].first >= std::max(2, legacyValues / 20);
        column.encoding = mixed ? TextEncoding::Mixed : legacy.first().second;
    } else if (column.certain.value(TextEncoding::Unicode) > 0 || column.certain.value(TextEncoding::Binary) > 0) {
        column.encoding = column.certain.value(TextEncoding::Unicode) >= column.certain.value(TextEncoding::Binary)
                              ? TextEncoding::Unicode : TextEncoding::Binary;
    } else if (!uncertain.isEmpty()) {
        // Values that read two ways, and nothing else: the reading most of
        // them share, Unicode first (nothing changes).
        column.encoding = uncertain.first().encoding;
        for (auto readable = column.readableAs.cbegin(); readable != column.readableAs.cend(); ++readable) {
            if (readable.value() > column.readableAs.value(column.encoding))
                column.encoding = readable.key();
        }
        if (column.readableAs.value(TextEncoding::Unicode) == column.readableAs.value(column.encoding))
            column.encoding = TextEncoding::Unicode;
    }
    column.counts = column.certain;
    for (const EncodingGuess &guess : uncertain) {
        const TextEncoding side = guess.alternative == column.encoding ? guess.alternative : guess.encoding;
        ++column.counts[side];
        scores[side] += guess.score;
        upper += guess.upper && side == guess.encoding;
    }
    const int held = column.counts.value(column.encoding);
    if (held > 0) {
        column.score = scores[column.encoding] / held;
        column.upper = isTcvn3(column.encoding) && upper * 2 > held;
    }
    return column;
}

bool ReadsAsVietnamese(const QString &reading, qint32 unconvertible)
{
    return judge(TextEncoding::Unicode, reading, unconvertible).score == 1;
}

std::optional<QString> ReadRuns(const QVariant &value)
{
    const bool bytes = value.typeId() == QMetaType::QByteArray;
    const TextEncoding tcvn3 = bytes ? TextEncoding::Tcvn3 : TextEncoding::Tcvn3Ansi;
    const TextEncoding vni = bytes ? TextEncoding::Vni : TextEncoding::VniAnsi;
    // A run reads as Vietnamese: it has words, and every one is a syllable.
    const auto reads = [](const QVariant &run, TextEncoding encoding, QString *text) {
        qint32 unconvertible = 0;
        *text = ToUnicode(run, encoding, false, &unconvertible);
        const Reading reading = judge(encoding, *text, unconvertible);
        return reading.words > 0 && reading.score == 1;
    };
    QString left, right;
    for (TextEncoding encoding : {TextEncoding::Unicode, tcvn3, vni}) {
        if (reads(value, encoding, &left))
            return std::nullopt;   // read whole
    }
    const QByteArray raw = bytes ? value.toByteArray() : QByteArray();
    const QString typed = bytes ? QString() : value.toString();
    const qsizetype size = bytes ? raw.size() : typed.size();
    const auto part = [&](qsizetype from, qsizetype length) {
        return bytes ? QVariant(raw.mid(from, length)) : QVariant(typed.mid(from, length));
    };
    for (qsizetype cut = 1; cut < size; ++cut) {   // runs part at a blank
        if (bytes ? raw[cut] != ' ' : typed[cut] != u' ')
            continue;
        for (const auto &[first, second] : {std::pair{tcvn3, vni}, std::pair{vni, tcvn3}}) {
            if (reads(part(0, cut), first, &left) && reads(part(cut, -1), second, &right))
                return left + right;
        }
    }
    return std::nullopt;
}

} // namespace zolt
