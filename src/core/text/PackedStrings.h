// SPDX-License-Identifier: MIT
#pragma once

// Many short strings kept end to end in large blocks: a million names cost
// their characters and four bytes each, not an allocation each. The blocks
// never move, so the strings grow without a second copy of them all (a
// growing single buffer would hold the old and the new at once), and each
// string is read in place as a QStringView.

#include <QStringView>

#include <memory>
#include <vector>

namespace zolt {

class PackedStrings {
public:
    // Raises zolt::Error 6 (overflow) past 2^32 units in all, which a
    // string's four-byte place cannot name.
    void append(QStringView text);

    qsizetype size() const { return qsizetype(m_starts.size()); }
    QStringView at(qsizetype i) const;

private:
    // Each block takes one slot of BlockUnits in one address space, so that
    // a string's place is a single number; a longer string has a block of its
    // own and the slots it spans.
    static constexpr int BlockBits = 16;
    static constexpr quint32 BlockUnits = 1u << BlockBits;
    struct Block {
        std::unique_ptr<char16_t[]> units;
        quint32 used = 0;
        quint32 capacity = 0;
    };
    static bool fits(const Block &block, quint64 length);
    void openBlock(quint64 length);

    std::vector<Block> m_blocks;
    std::vector<quint32> m_starts;   // each string's place: its block's slot, then its offset there
};

} // namespace zolt
