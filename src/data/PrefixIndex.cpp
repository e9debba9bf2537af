// SPDX-License-Identifier: MIT
#include "data/PrefixIndex.h"

#include <algorithm>
#include <numeric>

namespace zolt {

PrefixIndex::PrefixIndex(const QStringList &names, const char16_t *fold, const std::atomic<bool> *stop)
    : m_names(names)
    , m_fold(fold)
    , m_stop(stop)
    , m_sorted(size_t(names.size()))
{
    std::iota(m_sorted.begin(), m_sorted.end(), 0);
    sort(m_sorted.data(), qsizetype(m_sorted.size()), 0);
    const size_t n = m_sorted.size();
    m_smallest.resize(2 * n);
    std::copy(m_sorted.begin(), m_sorted.end(), m_smallest.begin() + qsizetype(n));
    for (size_t node = n - 1; node >= 1 && n > 1; --node)
        m_smallest[node] = std::min(m_smallest[2 * node], m_smallest[2 * node + 1]);
}

// The folded code unit of a name at depth, or -1 past its end (a shorter
// name sorts first).
int PrefixIndex::unitAt(qint32 position, qsizetype depth) const
{
    const QString &name = m_names.at(position);
    return depth < name.size() ? int(m_fold[name.at(depth).unicode()]) : -1;
}

// A three-way radix quicksort on the folded units from depth on: names that
// share a long beginning (every "Nguyễn Văn …") have it compared once per
// level rather than once per comparison.
void PrefixIndex::sort(qint32 *begin, qsizetype count, qsizetype depth)
{
    while (count > 1) {
        if (m_stop && m_stop->load(std::memory_order_relaxed))
            return;
        const int pivot = unitAt(begin[count / 2], depth);
        qsizetype less = 0, greater = count, i = 0;
        while (i < greater) {
            const int unit = unitAt(begin[i], depth);
            if (unit < pivot)
                std::swap(begin[less++], begin[i++]);
            else if (unit > pivot)
                std::swap(begin[i], begin[--greater]);
            else
                ++i;
        }
        sort(begin, less, depth);
        sort(begin + greater, count - greater, depth);
        if (pivot < 0)
            return;   // names that ended here are equal; they keep no order among themselves
        begin += less;
        count = greater - less;
        ++depth;
    }
}

// The name's first units against typed: <0, 0 when it begins with typed, >0.
int PrefixIndex::comparePrefix(qint32 position, QStringView typed) const
{
    for (qsizetype i = 0; i < typed.size(); ++i) {
        const int unit = unitAt(position, i), wanted = typed.at(i).unicode();
        if (unit != wanted)
            return unit < wanted ? -1 : 1;
    }
    return 0;
}

qint32 PrefixIndex::First(QStringView typed) const
{
    const auto from = std::partition_point(m_sorted.begin(), m_sorted.end(),
                                           [&](qint32 p) { return comparePrefix(p, typed) < 0; });
    const auto to = std::partition_point(from, m_sorted.end(), [&](qint32 p) { return comparePrefix(p, typed) == 0; });
    // The smallest position over [from, to), climbing the tree from both ends.
    qint32 smallest = -1;
    const size_t n = m_sorted.size();
    for (size_t l = size_t(from - m_sorted.begin()) + n, r = size_t(to - m_sorted.begin()) + n; l < r; l /= 2, r /= 2) {
        if (l & 1)
            smallest = smallest < 0 ? m_smallest[l] : std::min(smallest, m_smallest[l]), ++l;
        if (r & 1)
            --r, smallest = smallest < 0 ? m_smallest[r] : std::min(smallest, m_smallest[r]);
    }
    return smallest;
}

} // namespace zolt
