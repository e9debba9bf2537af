// SPDX-License-Identifier: MIT
#include <zolt/EncodingGuess.h>
#include <zolt/LegacyText.h>

#include <gtest/gtest.h>

#include <iconv.h>

#include "TestSupport.h"

using namespace zolt;

namespace {

// The 134 letters of Vietnamese outside ASCII: the twelve vowels with each of
// the five tones, and ă â ê ô ơ ư đ, in both cases.
QStringList vietnameseLetters()
{
    QStringList letters;
    const QString vowels = QStringLiteral("aăâeêioôơuưy");
    for (const QChar vowel : vowels) {
        for (const char16_t tone : {0x300, 0x301, 0x309, 0x303, 0x323})
            letters += (QString(vowel) + QChar(tone)).normalized(QString::NormalizationForm_C);
    }
    for (const QChar letter : QStringLiteral("ăâêôơưđ"))
        letters += letter;
    const qsizetype lower = letters.size();
    for (qsizetype i = 0; i < lower; ++i)
        letters += letters[i].toUpper();
    return letters;
}

QString tcvn3Ansi(const QString &text) { return AnsiText(EncodeTcvn3(text)); }
QString vniAnsi(const QString &text) { return AnsiText(EncodeVni(text)); }

} // namespace

TEST(LegacyText, EveryVietnameseLetterComesBackThroughEachCodecAndItsAnsiForm)
{
    const QStringList letters = vietnameseLetters();
    ASSERT_EQ(letters.size(), 134);
    for (const QString &letter : letters) {
        SCOPED_TRACE(letter.toStdString());
        ASSERT_EQ(letter.size(), 1);
        qint32 lost = 0;
        EXPECT_EQ(DecodeVni(EncodeVni(letter, &lost)), letter);
        EXPECT_EQ(ToUnicode(vniAnsi(letter), TextEncoding::VniAnsi), letter);
        // Capitals other than Ă Â Ê Ô Ơ Ư Đ are lower-case bytes in a capitals font.
        const bool ownByte = letter.isLower() || QStringLiteral("ĂÂÊÔƠƯĐ").contains(letter);
        EXPECT_EQ(DecodeTcvn3(EncodeTcvn3(letter, &lost), !ownByte), letter);
        EXPECT_EQ(ToUnicode(tcvn3Ansi(letter), TextEncoding::Tcvn3Ansi, !ownByte), letter);
        EXPECT_EQ(lost, 0);
    }
}

// glibc's TCVN5712-1 is the VN1 variant, whose extra capitals sit where VN3 has
// nothing or Windows-1252 punctuation; on the lower-case letters, the seven
// capitals and the tone marks the two agree.
TEST(LegacyText, TheTcvn3TableAgreesWithGlibcWhereVn1AndVn3Share)
{
    iconv_t cd = iconv_open("UTF-8", "TCVN5712-1");
    ASSERT_NE(cd, iconv_t(-1));
    int compared = 0;
    for (int b = 0xA1; b <= 0xFE; ++b) {
        qint32 meaningless = 0;
        const QString ours = DecodeTcvn3(QByteArray(1, char(b)), false, &meaningless);
        const QChar c = ours[0];
        const bool shared = meaningless == 0 && (c.isLower() || QStringLiteral("ĂÂÊÔƠƯĐ").contains(c) || (b >= 0xB0 && b <= 0xB4));
        if (!shared)
            continue;
        char in = char(b);
        char out[8] = {};
        char *inPtr = &in;
        char *outPtr = out;
        size_t inLeft = 1;
        size_t outLeft = sizeof out;
        iconv(cd, nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft), size_t(-1)) << b;
        iconv(cd, nullptr, nullptr, &outPtr, &outLeft);   // a tone mark is held back until the end
        EXPECT_EQ(ours, QString::fromUtf8(out)) << std::hex << b;
        ++compared;
    }
    iconv_close(cd);
    EXPECT_EQ(compared, 67 + 7 + 5);
}

TEST(LegacyText, KnownPitfallsDecodeRight)
{
    struct Case {
        const char *name;
        QVariant value;
        TextEncoding from;
        bool upper;
        QString unicode;
        qint32 unconvertible;
    };
    const QString nfd = QStringLiteral("Người").normalized(QString::NormalizationForm_D);
    const Case cases[] = {
        {"tcvn3 as Windows-1252", QStringLiteral("Ng­êi sö dông"), TextEncoding::Tcvn3Ansi, false, "Người sử dụng", 0},
        {"tcvn3 bytes", QByteArray("Ng\xAD\xEAi s\xF6 d\xF4ng"), TextEncoding::Tcvn3, false, "Người sử dụng", 0},
        {"tone bytes compose", QByteArray("a\xB3 \xA8\xB0 \xAD\xB4"), TextEncoding::Tcvn3, false, "á ằ ự", 0},
        {"capitals font", QByteArray("h\xB5 n\xE9i"), TextEncoding::Tcvn3, true, "HÀ NỘI", 0},
        {"punctuation of 0x80-0x9F", QByteArray("\x93g\xB9o\x94 \x96 \x85"), TextEncoding::Tcvn3, false, "“gạo” – …", 0},
        {"a VN1 capital is no VN3 byte", QByteArray("\xC0n"), TextEncoding::Tcvn3, false, "Àn", 1},
        {"vni pairs", QByteArray("Vi\x65\xE4t Nam ng\xF6\xF4\xF8i"), TextEncoding::Vni, false, "Việt Nam người", 0},
        {"vni base alone and paired", QByteArray("\xF4 \xF4\xF9 \xD4\xD9"), TextEncoding::Vni, false, "ơ ớ Ớ", 0},
        {"vni capitals", QByteArray("TR\xD6\xD4\xD8NG \xD1\x41\xCFI H\x4F\xCF" "C"), TextEncoding::Vni, false,
         "TRƯỜNG ĐẠI HỌC", 0},
        {"vni as Windows-1252", QStringLiteral("Tieáng Vieät"), TextEncoding::VniAnsi, false, "Tiếng Việt", 0},
        {"vni mark alone", QByteArray("x\xF8"), TextEncoding::Vni, false, "x", 1},
        {"decomposed Unicode is composed", nfd, TextEncoding::Unicode, false, "Người", 0},
        {"Unicode is never converted twice", QStringLiteral("Người"), TextEncoding::Tcvn3Ansi, false, "Người", 0},
        {"UTF-8 bytes", QStringLiteral("Đà Nẵng").toUtf8(), TextEncoding::Unicode, false, "Đà Nẵng", 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        qint32 unconvertible = 0;
        EXPECT_EQ(ToUnicode(c.value, c.from, c.upper, &unconvertible), c.unicode);
        EXPECT_EQ(unconvertible, c.unconvertible);
    }
}

TEST(LegacyText, EachValueIsGuessedFromHowVietnameseItsReadingLooks)
{
    // Texts the guess was not written against: addresses, goods, people.
    const QString texts[] = {
        QStringLiteral("Công ty trách nhiệm hữu hạn Thương mại Hoàng Long"),
        QStringLiteral("Số 12 đường Nguyễn Trãi, quận Thanh Xuân, Hà Nội"),
        QStringLiteral("Bánh quy bơ sữa hộp thiếc 500g"),
        QStringLiteral("Nước mắm Phú Quốc 40 độ đạm"),
        QStringLiteral("Kế toán trưởng"),
        QStringLiteral("Chị Nguyễn Thị Thuỷ"),
        QStringLiteral("xuất kho"),
        QStringLiteral("Điều chỉnh giảm giá"),
    };
    for (const QString &text : texts) {
        SCOPED_TRACE(text.toStdString());
        EXPECT_EQ(GuessEncoding(text).encoding, TextEncoding::Unicode);
        EXPECT_EQ(GuessEncoding(text.normalized(QString::NormalizationForm_D)).encoding, TextEncoding::Unicode);
        EXPECT_EQ(GuessEncoding(text.toUtf8()).encoding, TextEncoding::Unicode);
        EXPECT_EQ(GuessEncoding(tcvn3Ansi(text)).encoding, TextEncoding::Tcvn3Ansi) << tcvn3Ansi(text).toStdString();
        EXPECT_EQ(GuessEncoding(EncodeTcvn3(text)).encoding, TextEncoding::Tcvn3);
        EXPECT_EQ(GuessEncoding(vniAnsi(text)).encoding, TextEncoding::VniAnsi) << vniAnsi(text).toStdString();
        EXPECT_EQ(GuessEncoding(EncodeVni(text)).encoding, TextEncoding::Vni);
    }
    // Typed for a capitals font: the capitals TCVN3 has no byte for read small.
    const EncodingGuess heading = GuessEncoding(tcvn3Ansi(QStringLiteral("BÁNH KẸO CÁC LOẠI")));
    EXPECT_EQ(heading.encoding, TextEncoding::Tcvn3Ansi);
    EXPECT_TRUE(heading.upper);
    EXPECT_FALSE(GuessEncoding(tcvn3Ansi(QStringLiteral("Bánh kẹo các loại"))).upper);
    EXPECT_EQ(GuessEncoding(QStringLiteral("Nguyen Van Anh")).encoding, TextEncoding::Ascii);
    EXPECT_EQ(GuessEncoding(QStringLiteral("Müller & Söhne")).encoding, TextEncoding::Unicode);
    EXPECT_EQ(GuessEncoding(QStringLiteral("Café crème")).encoding, TextEncoding::Unicode);
}

// A column reads as the legacy encoding its values hold; values already in
// Unicode beside it are kept, and only TCVN3 beside VNI is a mix.
TEST(LegacyText, AColumnIsOneEncodingOrReportedAsMixed)
{
    const QStringList names{QStringLiteral("Gạo tám thơm"), QStringLiteral("Đường kính trắng"),
                            QStringLiteral("Sữa đặc có đường"), QStringLiteral("Mì ăn liền"),
                            QStringLiteral("Dầu ăn"), QStringLiteral("Nước ngọt"), QStringLiteral("Chè xanh"),
                            QStringLiteral("Cà phê"), QStringLiteral("Muối iốt"), QStringLiteral("Bột giặt"),
                            QStringLiteral("Xà phòng"), QStringLiteral("Kẹo lạc")};
    QList<QVariant> tcvn3, withUnicode, mixed;
    for (const QString &name : names) {
        tcvn3 += tcvn3Ansi(name);
        withUnicode += withUnicode.size() % 2 ? QVariant(name) : QVariant(tcvn3Ansi(name));
        mixed += mixed.size() % 2 ? QVariant(vniAnsi(name)) : QVariant(tcvn3Ansi(name));
    }
    tcvn3 += QStringLiteral("Bia 333");
    tcvn3 += QVariant();
    const ColumnGuess column = GuessColumn(tcvn3);
    EXPECT_EQ(column.encoding, TextEncoding::Tcvn3Ansi);
    EXPECT_EQ(column.counts.value(TextEncoding::Ascii), 1);
    EXPECT_GT(column.score, 0.9);
    const ColumnGuess beside = GuessColumn(withUnicode);
    EXPECT_EQ(beside.encoding, TextEncoding::Tcvn3Ansi);
    EXPECT_EQ(beside.certain.value(TextEncoding::Unicode), 6);
    EXPECT_EQ(GuessColumn(mixed).encoding, TextEncoding::Mixed);
    EXPECT_EQ(GuessColumn({QStringLiteral("A1"), QStringLiteral("B2")}).encoding, TextEncoding::Ascii);
}

// The shop's misreadings, each value as it was stored and as it is meant.
TEST(LegacyText, ReadingsThatMakeNoSyllablesLoseToOnesThatDo)
{
    struct Case {
        QString stored;
        TextEncoding encoding;
        bool certain;
    };
    const Case cases[] = {
        {QStringLiteral("Kho Coâng Ty"), TextEncoding::VniAnsi, true},   // TCVN3 reads "Kho Coõng Ty"
        {QStringLiteral("Coâng Trình"), TextEncoding::VniAnsi, true},    // TCVN3 reads "Coõng Trỡnh"
        {QStringLiteral("Caùt (vaøng)"), TextEncoding::VniAnsi, true},
        {QStringLiteral("Cát (vàng)"), TextEncoding::Unicode, true},
        {QStringLiteral("£"), TextEncoding::Unicode, true},              // a sign, no word: TCVN3 "Ê" is no evidence
        {QStringLiteral("Toát"), TextEncoding::Unicode, false},          // "toát", and VNI for "Tốt"
    };
    for (const Case &c : cases) {
        const EncodingGuess guess = GuessEncoding(c.stored);
        EXPECT_EQ(guess.encoding, c.encoding) << c.stored.toStdString();
        EXPECT_EQ(guess.certain(), c.certain) << c.stored.toStdString() << " or " << EncodingName(guess.alternative).toStdString();
    }
    EXPECT_EQ(GuessEncoding(QStringLiteral("Toát")).alternative, TextEncoding::VniAnsi);
}

TEST(LegacyText, AValueOfATcvn3RunAndAVniRunReadsRunByRun)
{
    EXPECT_EQ(ReadRuns(QStringLiteral("§Çu n¨m: Xe oâ toâ taûi")), QStringLiteral("Đầu năm: Xe ô tô tải"));
    EXPECT_EQ(ReadRuns(QByteArray("Xe o\xE2 to\xE2 ta\xFBi \xAE\xC7u n\xA8m")), QStringLiteral("Xe ô tô tải đầu năm"));
    EXPECT_EQ(ReadRuns(QStringLiteral("Xe oâ toâ taûi")), std::nullopt);   // VNI throughout
    EXPECT_EQ(ReadRuns(QStringLiteral("Xe ô tô tải")), std::nullopt);
}

// A VNI tone typed before its vowel ("ngùöôøi", which the old font showed as
// "người" with a stray accent over the g) attaches to nothing: dropped.
TEST(LegacyText, AStrayVniMarkIsDroppedAndCounted)
{
    qint32 stray = 0;
    EXPECT_EQ(ToUnicode(QStringLiteral("ngùöôøi"), TextEncoding::VniAnsi, false, &stray), QStringLiteral("người"));
    EXPECT_EQ(stray, 1);
    EXPECT_EQ(GuessEncoding(QStringLiteral("Nhaân vieân ngùöôøi")).encoding, TextEncoding::VniAnsi);
}
