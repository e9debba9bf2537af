// SPDX-License-Identifier: MIT
#include "widgets/controls/PickRows.h"

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

int PickRows::rowOfCode(const QString &code) const
{
    if (code.isEmpty())
        return -1;
    for (qsizetype row = 0; row < m_codes->size(); ++row) {
        if (m_codes->at(row).compare(code, Qt::CaseInsensitive) == 0)
            return int(row);
    }
    return -1;
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
