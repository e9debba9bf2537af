// SPDX-License-Identifier: MIT
#include <zolt/LegacyText.h>

#include <QHash>

#include <algorithm>
#include <array>

namespace zolt {

namespace {

using Table = std::array<char16_t, 256>;

// Windows-1252's characters for 0x80-0x9F; the five it leaves undefined read
// as the control character of the same number, as Windows reads them.
constexpr char16_t Ansi80[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t ansiChar(unsigned char b) { return b >= 0x80 && b < 0xA0 ? Ansi80[b - 0x80] : char16_t(b); }

// The byte whose Windows-1252 reading is c; -1 when there is none.
int ansiByte(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return c;
    static const QHash<char16_t, int> bytes = [] {
        QHash<char16_t, int> h;
        for (int b = 0x80; b < 0xA0; ++b)
            h.insert(Ansi80[b - 0x80], b);
        return h;
    }();
    return bytes.value(c, -1);
}

// A table that reads bytes as Windows-1252 but for the given runs of bytes;
// holes (bytes of the upper half that mean nothing) are 0.
struct Run {
    unsigned char first;
    const char16_t *chars;
};

Table makeTable(std::initializer_list<Run> runs, std::initializer_list<unsigned char> holes)
{
    Table t{};
    for (int b = 0; b < 256; ++b)
        t[b] = ansiChar(b);
    for (const Run &run : runs)
        for (int i = 0; run.chars[i]; ++i)
            t[run.first + i] = run.chars[i];
    for (unsigned char hole : holes)
        t[hole] = 0;
    return t;
}

// TCVN3 (VN3): the upper half holds the lower-case letters, seven capitals and
// five tone marks that combine with the vowel before them. The gaps between
// them are VN1's further capitals, which VN3 data never holds.
const Table &tcvn3Table()
{
    static const Table t = makeTable(
        {{0xA1, u"ĂÂÊÔƠƯĐăâêôơưđ"},
         {0xB0, u"\u0300\u0309\u0303\u0301\u0323àảãáạ"},
         {0xBB, u"ằẳẵắ"},
         {0xC6, u"ặầẩẫấậè"},
         {0xCE, u"ẻẽéẹềểễếệìỉ"},
         {0xDC, u"ĩíịò"},
         {0xE1, u"ỏõóọồổỗốộờởỡớợù"},
         {0xF1, u"ủũúụừửữứựỳỷỹýỵ"}},
        {0xAF, 0xBA, 0xBF, 0xC0, 0xC1, 0xC2, 0xC3, 0xC4, 0xC5, 0xCD, 0xD9, 0xDA, 0xDB, 0xE0, 0xF0, 0xFF});
    return t;
}

constexpr bool isTcvn3Tone(unsigned char b) { return b >= 0xB0 && b <= 0xB4; }

// VNI-Windows: the letters of one byte; the mark bytes, each a vowel mark, a
// tone or both, after the base letter they belong to; capitals' bytes are the
// lower-case ones less 0x20.
const Table &vniTable()
{
    static const Table t = makeTable({{0xC6, u"Ỉ"}, {0xCC, u"ÌÍỴ"}, {0xD1, u"ĐỊĨƠ"}, {0xD6, u"Ư"},
                                      {0xE6, u"ỉ"}, {0xEC, u"ìíỵ"}, {0xF1, u"địĩơ"}, {0xF6, u"ư"}},
                                     {});
    return t;
}

enum Shape : char16_t { Plain = 0, Circumflex = 0x302, Breve = 0x306 };
struct Mark {
    unsigned char byte;   // lower-case form
    Shape shape;
    char16_t tone;        // a combining tone, 0 for none
};
constexpr Mark VniMarks[] = {
    {0xE2, Circumflex, 0},     {0xEA, Breve, 0},          {0xF9, Plain, 0x301},      {0xF8, Plain, 0x300},
    {0xFB, Plain, 0x309},      {0xF5, Plain, 0x303},      {0xEF, Plain, 0x323},      {0xE1, Circumflex, 0x301},
    {0xE0, Circumflex, 0x300}, {0xE5, Circumflex, 0x309}, {0xE3, Circumflex, 0x303}, {0xE4, Circumflex, 0x323},
    {0xE9, Breve, 0x301},      {0xE8, Breve, 0x300},      {0xFA, Breve, 0x309},      {0xFC, Breve, 0x303},
    {0xEB, Breve, 0x323}};
// The bases, lower-case byte and letter: a e o u y, "ô" for ơ, "ö" for ư.
constexpr std::pair<unsigned char, char16_t> VniBases[] = {{'a', u'a'},  {'e', u'e'},  {'o', u'o'}, {'u', u'u'},
                                                            {'y', u'y'},  {0xF4, u'ơ'}, {0xF6, u'ư'}};

bool shapeFits(Shape shape, char16_t base)
{
    if (shape == Circumflex)
        return base == u'a' || base == u'e' || base == u'o';
    return shape == Plain || base == u'a';
}

// Letter of each (base byte, mark byte) pair, 0 for pairs that are none.
struct VniPairs {
    QHash<quint16, char16_t> letters;
    std::array<bool, 256> isMark{};

    VniPairs()
    {
        for (const Mark &mark : VniMarks) {
            isMark[mark.byte] = isMark[mark.byte - 0x20] = true;
            for (const auto &[byte, base] : VniBases) {
                if (!shapeFits(mark.shape, base))
                    continue;
                QString letter{QChar(base)};
                if (mark.shape != Plain)
                    letter += QChar(mark.shape);
                if (mark.tone)
                    letter += QChar(mark.tone);
                letter = letter.normalized(QString::NormalizationForm_C);
                letters.insert(quint16(byte << 8 | mark.byte), letter[0].unicode());
                letters.insert(quint16((byte - 0x20) << 8 | (mark.byte - 0x20)), letter.toUpper()[0].unicode());
            }
        }
    }
};

const VniPairs &vniPairs()
{
    static const VniPairs pairs;
    return pairs;
}

// Reads count units through byteOf (a byte, or -1 for a unit no byte gives)
// and the table; a hole is kept as its Windows-1252 character and counted.
// Returns false when a unit gives no byte.
// TCVN3 as the decoder reads it: each byte's character (a hole's
// Windows-1252 one), and the bytes that need a second look (holes, tones).
struct Tcvn3Reading {
    Table chars{};
    std::array<bool, 256> special{};

    Tcvn3Reading()
    {
        for (int b = 0; b < 256; ++b) {
            const char16_t c = tcvn3Table()[b];
            chars[b] = c ? c : ansiChar(b);
            special[b] = c == 0 || isTcvn3Tone(b);
        }
    }
};

// Reads count units through byteOf (a byte, or -1 for a unit no byte gives):
// one look-up a byte, and a second pass only for text with holes or tones.
// Returns false when a unit gives no byte.
template <typename ByteOf>
bool decodeTcvn3(qsizetype count, ByteOf byteOf, QString *out, qint32 *unconvertible)
{
    static const Tcvn3Reading reading;
    *out = QString(count, Qt::Uninitialized);
    char16_t *to = reinterpret_cast<char16_t *>(out->data());
    bool special = false;
    for (qsizetype i = 0; i < count; ++i) {
        const int b = byteOf(i);
        if (b < 0)
            return false;
        to[i] = reading.chars[b];
        special |= reading.special[b];
    }
    if (!special)
        return true;
    bool tones = false;
    for (qsizetype i = 0; i < count; ++i) {
        const int b = byteOf(i);
        tones |= isTcvn3Tone(b);
        if (unconvertible && tcvn3Table()[b] == 0)
            ++*unconvertible;
    }
    if (tones)
        *out = out->normalized(QString::NormalizationForm_C);
    return true;
}

template <typename ByteOf>
bool decodeVni(qsizetype count, ByteOf byteOf, QString *out, qint32 *unconvertible)
{
    const Table &table = vniTable();
    const VniPairs &pairs = vniPairs();
    *out = QString(count, Qt::Uninitialized);
    char16_t *to = reinterpret_cast<char16_t *>(out->data());
    qsizetype n = 0;
    qint32 loose = 0;   // mark bytes without their base
    for (qsizetype i = 0; i < count; ++i) {
        const int b = byteOf(i);
        if (b < 0)
            return false;
        if (i + 1 < count) {
            const int next = byteOf(i + 1);
            const char16_t pair = next >= 0 ? pairs.letters.value(quint16(b << 8 | next)) : 0;
            if (pair) {
                to[n++] = pair;
                ++i;
                continue;
            }
        }
        if (pairs.isMark[b]) {   // a mark typed before its vowel, or without one: it marks nothing
            ++loose;
            continue;
        }
        to[n++] = table[b];
    }
    out->truncate(n);
    if (unconvertible)
        *unconvertible += loose;
    return true;
}

QByteArray encodeWith(const QHash<char16_t, QByteArray> &bytes, QStringView text, qint32 *unencodable)
{
    const QString composed = text.toString().normalized(QString::NormalizationForm_C);
    QByteArray out;
    out.reserve(composed.size());
    for (const QChar c : composed) {
        if (c.unicode() < 0x80) {
            out += char(c.unicode());
        } else if (const auto found = bytes.constFind(c.unicode()); found != bytes.cend()) {
            out += *found;
        } else {
            out += '?';
            if (unencodable)
                ++*unencodable;
        }
    }
    return out;
}

// The byte sequences each character is written as; a table's holes and
// combining tones are not written.
QHash<char16_t, QByteArray> reverse(const Table &table)
{
    QHash<char16_t, QByteArray> bytes;
    for (int b = 0x80; b < 256; ++b) {
        if (table[b] != 0 && !(table[b] >= 0x300 && table[b] < 0x370))
            bytes.insert(table[b], QByteArray(1, char(b)));
    }
    return bytes;
}

const QHash<char16_t, QByteArray> &tcvn3Bytes()
{
    static const QHash<char16_t, QByteArray> bytes = [] {
        QHash<char16_t, QByteArray> h = reverse(tcvn3Table());
        // A capital without a byte of its own is its lower-case byte.
        for (int b = 0xA8; b < 256; ++b) {
            const QChar lower(tcvn3Table()[b]);
            if (lower.isLower() && !h.contains(lower.toUpper().unicode()))
                h.insert(lower.toUpper().unicode(), QByteArray(1, char(b)));
        }
        return h;
    }();
    return bytes;
}

const QHash<char16_t, QByteArray> &vniBytes()
{
    static const QHash<char16_t, QByteArray> bytes = [] {
        QHash<char16_t, QByteArray> h = reverse(vniTable());
        // A mark byte alone is no letter: its Windows-1252 character
        // ("â" too) is written as a base and a mark.
        for (int b = 0xC0; b < 256; ++b) {
            if (vniPairs().isMark[b])
                h.remove(vniTable()[b]);
        }
        for (auto pair = vniPairs().letters.cbegin(); pair != vniPairs().letters.cend(); ++pair)
            h.insert(pair.value(), QByteArray().append(char(pair.key() >> 8)).append(char(pair.key() & 0xFF)));
        return h;
    }();
    return bytes;
}

} // namespace

QString EncodingName(TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::Ascii: return QStringLiteral("ascii");
    case TextEncoding::Unicode: return QStringLiteral("unicode");
    case TextEncoding::Tcvn3: return QStringLiteral("tcvn3");
    case TextEncoding::Tcvn3Ansi: return QStringLiteral("tcvn3-ansi");
    case TextEncoding::Vni: return QStringLiteral("vni");
    case TextEncoding::VniAnsi: return QStringLiteral("vni-ansi");
    case TextEncoding::Mixed: return QStringLiteral("mixed");
    case TextEncoding::Binary: return QStringLiteral("binary");
    }
    return {};
}

bool EncodingFromName(const QString &name, TextEncoding *encoding)
{
    for (TextEncoding e : {TextEncoding::Ascii, TextEncoding::Unicode, TextEncoding::Tcvn3, TextEncoding::Tcvn3Ansi,
                           TextEncoding::Vni, TextEncoding::VniAnsi, TextEncoding::Mixed, TextEncoding::Binary}) {
        if (EncodingName(e).compare(name, Qt::CaseInsensitive) == 0) {
            *encoding = e;
            return true;
        }
    }
    return false;
}

QString DecodeTcvn3(QByteArrayView bytes, bool upper, qint32 *unconvertible)
{
    QString text;
    decodeTcvn3(bytes.size(), [&](qsizetype i) { return int(static_cast<unsigned char>(bytes[i])); }, &text,
                unconvertible);
    return upper ? text.toUpper() : text;
}

QByteArray EncodeTcvn3(QStringView text, qint32 *unencodable) { return encodeWith(tcvn3Bytes(), text, unencodable); }

QString DecodeVni(QByteArrayView bytes, qint32 *unconvertible)
{
    QString text;
    decodeVni(bytes.size(), [&](qsizetype i) { return int(static_cast<unsigned char>(bytes[i])); }, &text,
              unconvertible);
    return text;
}

QByteArray EncodeVni(QStringView text, qint32 *unencodable) { return encodeWith(vniBytes(), text, unencodable); }

bool AnsiBytes(QStringView text, QByteArray *bytes)
{
    bytes->resize(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int b = ansiByte(text[i].unicode());
        if (b < 0)
            return false;
        (*bytes)[i] = char(b);
    }
    return true;
}

bool IsAnsiText(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return ansiByte(c.unicode()) >= 0; });
}

QString AnsiText(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i)
        text[i] = QChar(ansiChar(static_cast<unsigned char>(bytes[i])));
    return text;
}

QString ToUnicode(const QVariant &value, TextEncoding from, bool upper, qint32 *unconvertible)
{
    const bool tcvn3 = from == TextEncoding::Tcvn3 || from == TextEncoding::Tcvn3Ansi;
    const bool vni = from == TextEncoding::Vni || from == TextEncoding::VniAnsi;
    if (value.typeId() == QMetaType::QByteArray) {
        const QByteArray bytes = value.toByteArray();
        if (tcvn3)
            return DecodeTcvn3(bytes, upper, unconvertible);
        if (vni)
            return DecodeVni(bytes, unconvertible);
        return QString::fromUtf8(bytes).normalized(QString::NormalizationForm_C);
    }
    // A text holds the bytes one a character, as Windows-1252 reads them.
    const QString text = value.toString();
    const auto byteOf = [&](qsizetype i) { return ansiByte(text[i].unicode()); };
    QString out;
    if (tcvn3 && decodeTcvn3(text.size(), byteOf, &out, unconvertible))
        return upper ? out.toUpper() : out;
    if (vni && decodeVni(text.size(), byteOf, &out, unconvertible))
        return out;
    return text.normalized(QString::NormalizationForm_C);
}

} // namespace zolt
