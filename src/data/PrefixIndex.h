// SPDX-License-Identifier: MIT
#pragma once

// The first name in list order that begins with a typed text, found without
// looking at every name: the positions sorted by folded name (those that
// begin with the text are then one range of that order) and a tree of the
// smallest position over each range. Same answer as a PrefixMatcher scan.

#include <QStringList>
#include <QStringView>

#include <atomic>
#include <vector>

namespace zolt {

class PrefixIndex {
public:
    // fold: one of TextFold's tables, the one typed text will be folded by.
    // Building stops early, leaving an index not to be asked, once *stop is
    // set (from another thread: its owner no longer needs it).
    PrefixIndex(const QStringList &names, const char16_t *fold, const std::atomic<bool> *stop = nullptr);

    // The smallest position whose name begins with typed (already folded by
    // the same fold); -1 when none does.
    qint32 First(QStringView typed) const;

private:
    int unitAt(qint32 position, qsizetype depth) const;
    void sort(qint32 *begin, qsizetype count, qsizetype depth);
    int comparePrefix(qint32 position, QStringView typed) const;

    QStringList m_names;       // shared with the list, never copied
    const char16_t *m_fold;
    const std::atomic<bool> *m_stop;
    std::vector<qint32> m_sorted;   // positions, by folded name
    std::vector<qint32> m_smallest; // m_smallest[n + k] = m_sorted[k]; each inner node the smaller of its two
};

} // namespace zolt
