#pragma once

// The contract of a list whose every row carries a string of item data beside
// its shown text. DataCombo1 and clsListBox offer it; FillList fills any of them.

#include <QString>

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
};

} // namespace zolt
