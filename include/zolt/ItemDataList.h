// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The contract of a list whose every row carries a string of item data beside
/// its shown text. zolt::DataCombo1 offers it, and so do the library's own
/// lists; the search wizard's catalogue queries fill any of them.

#include <zolt/zolt_export.h>

#include <QString>
#include <QStringList>

#include <optional>

namespace zolt {

/// A list whose rows carry a string of item data beside their text.
class ZOLT_EXPORT ItemDataList {
public:
    virtual ~ItemDataList() = default;

    /// The selected row, -1 for none.
    virtual int ListIndex() const = 0;
    virtual void SetListIndex(int index) = 0;   ///< \copydoc ListIndex()
    /// The number of rows.
    virtual int ListCount() const = 0;
    /// The row the last AddItem put its text in.
    virtual int NewIndex() const = 0;
    /// Adds a row with empty item data, at index when given, else at the end.
    virtual void AddItem(const QString &item, std::optional<int> index = std::nullopt) = 0;
    /// Removes every row.
    virtual void Clear() = 0;
    /// A row's item data; error 381 for a row out of range.
    virtual QString ItemData(int index) const = 0;
    virtual void SetItemData(int index, const QString &data) = 0;   ///< \copydoc ItemData()
    /// Appends rows with their item data (texts and data of one length), as
    /// AddItem and SetItemData would one by one; lists that can take them at
    /// once do, for catalogues of a million rows.
    virtual void AppendItems(const QStringList &texts, const QStringList &data);
};

} // namespace zolt
