// SPDX-License-Identifier: MIT
#include "controls/PickRows.h"

namespace zolt {

void PickRows::reset(std::shared_ptr<const PackedStrings> names, std::shared_ptr<const PackedStrings> codes)
{
    beginResetModel();
    m_names = std::move(names);
    m_codes = std::move(codes);
    endResetModel();
}

QString PickRows::code(int row) const
{
    return row >= 0 && row < rowCount() ? m_codes->at(row).toString() : QString();
}

int PickRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_names->size());
}

QVariant PickRows::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid())
        return {};
    return m_names->at(index.row()).toString();
}

} // namespace zolt
