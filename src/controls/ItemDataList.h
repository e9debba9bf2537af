// SPDX-License-Identifier: MIT
#pragma once

// The contract of a list whose every row carries a string of item data beside
// its shown text. DataCombo1 and clsListBox offer it; FillList fills any of
// them. (Lists whose rows carry a whole number follow MdGrid.) It needs no
// widget: the catalogue queries fill it from the core.

#include <QString>
#include <QStringList>

#include <optional>

namespace zolt {

class ItemDataList {
public:
    virtual ~ItemDataList() = default;

    virtual int ListIndex() const = 0;
    virtual void SetListIndex(int index) = 0;
    virtual int ListCount() const = 0;
    // The row the last AddItem put its text in.
    virtual int NewIndex() const = 0;
    // Adds a row with empty item data, at index when given, else at the end.
    virtual void AddItem(const QString &item, std::optional<int> index = std::nullopt) = 0;
    virtual void Clear() = 0;
    virtual QString ItemData(int index) const = 0;
    virtual void SetItemData(int index, const QString &data) = 0;
    // Appends rows with their item data (texts and data of one length), as
    // AddItem and SetItemData would one by one; lists that can take them at
    // once do, for catalogues of a million rows.
    virtual void AppendItems(const QStringList &texts, const QStringList &data);
};

// Raises error 381 unless index names one of count rows.
void CheckItemIndex(int index, int count);

} // namespace zolt
