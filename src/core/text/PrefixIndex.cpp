// SPDX-License-Identifier: MIT
#include "core/text/PrefixIndex.h"

#include <algorithm>
#include <numeric>

namespace zolt {

PrefixIndex::PrefixIndex(std::shared_ptr<const PackedStrings> names, const char16_t *fold,
                         const std::atomic<bool> *stop)
    : m_names(std::move(names))
    , m_fold(fold)
    , m_stop(stop)
    , m_sorted(size_t(m_names->size()))
{
    std::iota(m_sorted.begin(), m_sorted.end(), 0);
    sort(m_sorted.data(), qsizetype(m_sorted.size()), 0);
    const size_t runs = (m_sorted.size() + size_t(RunLength) - 1) / size_t(RunLength);
    m_runs.resize(2 * runs);
    for (size_t k = 0; k < runs; ++k) {
        const size_t begin = k * size_t(RunLength), end = std::min(begin + size_t(RunLength), m_sorted.size());
        m_runs[runs + k] = *std::min_element(m_sorted.begin() + qsizetype(begin), m_sorted.begin() + qsizetype(end));
    }
    for (size_t node = runs - 1; node >= 1 && runs > 1; --node)
        m_runs[node] = std::min(m_runs[2 * node], m_runs[2 * node + 1]);
}

// The folded code unit of a name at depth, or -1 past its end (a shorter
// name sorts first).
int PrefixIndex::unitAt(qint32 position, qsizetype depth) const
{
    const QStringView name = m_names->at(position);
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
    return smallestIn(from - m_sorted.begin(), to - m_sorted.begin());
}

// The smallest position over [from, to) of the sorted order: the parts of
// runs at either end looked at one by one, the whole runs between by
// climbing their tree from both ends; -1 for an empty range.
qint32 PrefixIndex::smallestIn(qsizetype from, qsizetype to) const
{
    qint32 smallest = -1;
    const auto take = [&](qint32 position) { smallest = smallest < 0 ? position : std::min(smallest, position); };
    const qsizetype firstWhole = (from + RunLength - 1) / RunLength, endWhole = to / RunLength;
    if (firstWhole >= endWhole) {
        for (qsizetype i = from; i < to; ++i)
            take(m_sorted[size_t(i)]);
        return smallest;
    }
    for (qsizetype i = from; i < firstWhole * RunLength; ++i)
        take(m_sorted[size_t(i)]);
    for (qsizetype i = endWhole * RunLength; i < to; ++i)
        take(m_sorted[size_t(i)]);
    const size_t runs = m_runs.size() / 2;
    for (size_t l = size_t(firstWhole) + runs, r = size_t(endWhole) + runs; l < r; l /= 2, r /= 2) {
        if (l & 1)
            take(m_runs[l++]);
        if (r & 1)
            take(m_runs[--r]);
    }
    return smallest;
}

} // namespace zolt
