// SPDX-License-Identifier: MIT
#include "core/text/PackedStrings.h"

#include <zolt/Error.h>

#include <algorithm>

namespace zolt {

void PackedStrings::append(QStringView text)
{
    const quint64 length = quint64(text.size());
    if (m_blocks.empty() || !fits(m_blocks.back(), length))
        openBlock(length);
    Block &block = m_blocks.back();
    m_starts.push_back(quint32(((m_blocks.size() - 1) << BlockBits) + block.used));
    std::copy_n(text.utf16(), text.size(), block.units.get() + block.used);   // an empty view may have no data at all
    block.used += quint32(length);
}

// Room for the string, at an offset its place can name.
bool PackedStrings::fits(const Block &block, quint64 length)
{
    return block.used < BlockUnits && block.capacity - block.used >= length;
}

// A string longer than a slot takes the slots it spans, its block in the
// last of them, so that the next string starts after it.
void PackedStrings::openBlock(quint64 length)
{
    const quint64 spanned = std::max<quint64>(1, (length + BlockUnits - 1) / BlockUnits);
    if ((quint64(m_blocks.size()) + spanned) << BlockBits >= quint64(1) << 32)
        throw Error(Error::Overflow);
    m_blocks.resize(m_blocks.size() + spanned - 1);
    Block block;
    block.capacity = quint32(std::max<quint64>(BlockUnits, length));
    block.units = std::make_unique_for_overwrite<char16_t[]>(block.capacity);
    m_blocks.push_back(std::move(block));
}

QStringView PackedStrings::at(qsizetype i) const
{
    const quint32 start = m_starts[size_t(i)];
    const Block &block = m_blocks[start >> BlockBits];
    const quint32 offset = start & (BlockUnits - 1);
    // It ends where the next string starts in the same block, else at the block's end.
    const bool nextHere = i + 1 < size() && (m_starts[size_t(i) + 1] >> BlockBits) == (start >> BlockBits);
    const quint32 end = nextHere ? m_starts[size_t(i) + 1] & (BlockUnits - 1) : block.used;
    return QStringView(block.units.get() + offset, qsizetype(end - offset));
}

} // namespace zolt
