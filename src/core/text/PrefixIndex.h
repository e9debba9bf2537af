// SPDX-License-Identifier: MIT
#pragma once

// The first name in list order that begins with a typed text, found without
// looking at every name: the positions sorted by folded name (those that
// begin with the text are then one range of that order) and the smallest
// position of each run of that order, with a tree over the runs, for the
// smallest position in the range. Same answer as a PrefixMatcher scan.

#include "core/text/PackedStrings.h"

#include <QStringView>

#include <atomic>
#include <memory>
#include <vector>

namespace zolt {

class PrefixIndex {
public:
    // fold: one of TextFold's tables, the one typed text will be folded by.
    // Building stops early, leaving an index not to be asked, once *stop is
    // set (from another thread: its owner no longer needs it).
    PrefixIndex(std::shared_ptr<const PackedStrings> names, const char16_t *fold,
                const std::atomic<bool> *stop = nullptr);

    // The smallest position whose name begins with typed (already folded by
    // the same fold); -1 when none does.
    qint32 First(QStringView typed) const;

private:
    // Positions of the sorted order per run: many enough that the runs' tree
    // is small beside the names, few enough to be looked at in a moment.
    static constexpr qsizetype RunLength = 32;

    int unitAt(qint32 position, qsizetype depth) const;
    void sort(qint32 *begin, qsizetype count, qsizetype depth);
    int comparePrefix(qint32 position, QStringView typed) const;
    qint32 smallestIn(qsizetype from, qsizetype to) const;

    std::shared_ptr<const PackedStrings> m_names;   // shared with the list, never copied
    const char16_t *m_fold;
    const std::atomic<bool> *m_stop;
    std::vector<qint32> m_sorted;     // positions, by folded name
    std::vector<qint32> m_runs;       // m_runs[r + k]: the smallest position of run k; each inner node the smaller of its two
};

} // namespace zolt
