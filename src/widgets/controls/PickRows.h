// SPDX-License-Identifier: MIT
#pragma once

// The pick list's rows: each a name shown and the code it gives back, both
// kept packed (PackedStrings), so that a list of a million goods holds their
// characters and little more. The names are shared with the index that
// narrows the list, which reads them on a thread of its own.

#include "core/text/PackedStrings.h"

#include <QAbstractListModel>

#include <memory>

namespace zolt {

class PickRows : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    // Names and codes of one length.
    void reset(std::shared_ptr<const PackedStrings> names, std::shared_ptr<const PackedStrings> codes);

    const std::shared_ptr<const PackedStrings> &names() const { return m_names; }
    // The code of the row; "" for no row.
    QString code(int row) const;
    // The first row that carries the code, compared as the database compares
    // text (without regard to case); -1 when none does or the code is "".
    int rowOfCode(const QString &code) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    std::shared_ptr<const PackedStrings> m_names = std::make_shared<PackedStrings>();
    std::shared_ptr<const PackedStrings> m_codes = std::make_shared<PackedStrings>();
};

} // namespace zolt
