// SPDX-License-Identifier: MIT
// Strings packed end to end come back whole, however they fall on the
// blocks: empty ones, ones that end a block exactly, and ones longer than a
// block.
#include "core/text/PackedStrings.h"

#include "TestSupport.h"

using namespace zolt;

namespace {

constexpr qsizetype Block = 65536;   // the units of one block

QString filled(qsizetype length, char16_t from)
{
    QString text(length, Qt::Uninitialized);
    for (qsizetype i = 0; i < length; ++i)
        text[i] = QChar(char16_t(from + i % 50));
    return text;
}

} // namespace

TEST(PackedStrings, GivesBackEachStringAsAppended)
{
    // Lengths appended in turn, each run over from a fresh list.
    const QList<QList<qsizetype>> runs = {
        {},
        {0},
        {0, 0, 3, 0},
        {Block},                          // one block exactly
        {Block - 1, 1, 0, 1},             // fills a block, then an empty string at its end
        {Block - 2, 5, 7},                // the second does not fit and opens a block
        {Block + 1, 2},                   // longer than a block
        {4, 3 * Block + 17, 0, 6},        // spans four slots between short ones
        QList<qsizetype>(70000, 19),      // many short names over many blocks
    };
    for (const QList<qsizetype> &lengths : runs) {
        PackedStrings packed;
        QStringList expected;
        for (qsizetype i = 0; i < lengths.size(); ++i) {
            expected << filled(lengths[i], char16_t(u'a' + i % 7 + (i % 3 ? 0x1E00 : 0)));
            packed.append(expected.last());
        }
        ASSERT_EQ(packed.size(), expected.size());
        for (qsizetype i = 0; i < expected.size(); ++i)
            ASSERT_EQ(packed.at(i), expected[i]) << "string " << i << " of " << expected.size();
    }
}
