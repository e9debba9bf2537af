// SPDX-License-Identifier: MIT
#pragma once

// Gives a plain list (QListWidget, QListView) or combo box the string item data
// of DataCombo1: each row's data sits at the same index in a list of strings.
// The rows live in the control's model, with no object per row where the
// model needs none, so catalogues of a hundred thousand goods stay quick.

#include "core/search/ItemDataList.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

class QAbstractItemModel;
class QAbstractItemView;
class QComboBox;
class QWidget;

namespace zolt {

class clsListBox : public QObject, public ItemDataList {
    Q_OBJECT

public:
    explicit clsListBox(QObject *parent = nullptr);
    ~clsListBox() override;

    // Binds a QComboBox or a list view; a QListView without a model is given one.
    void SetTListBox(QWidget *txtCmb);

    void AddItem(const QString &item, std::optional<int> index = std::nullopt) override;
    // Removes the row and its data; a negative index does nothing.
    void RemoveItem(int index);
    void Clear() override;

    // Error 381 for an index without a row.
    QString ItemData(int index) const override;
    void SetItemData(int index, const QString &data) override;
    // A list view on a string list model takes the rows in one go.
    void AppendItems(const QStringList &texts, const QStringList &data) override;

    // The item data of the selected row, "" when none; setting it selects the
    // first row whose data matches without regard to case, or none.
    QString Value() const;
    void SetValue(const QString &value);

    int ListIndex() const override;
    void SetListIndex(int index) override;
    QString Text() const;
    void SetText(const QString &text);
    QString List(int index) const;
    void SetList(int index, const QString &text);
    int NewIndex() const override { return m_newIndex; }
    int ListCount() const override;

    // The item data, row by row.
    const QStringList &Items() const { return m_itemData; }

    // 0-based position of the first entry equal to StFind without regard to case; -1 when none.
    static int FindString(const QStringList &mClt, const QString &StFind);

Q_SIGNALS:
    // The user left the control with another text than it had on entry (case aside).
    void TextChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractItemModel *model() const;

    QPointer<QWidget> m_control;
    QComboBox *m_combo = nullptr;
    QAbstractItemView *m_view = nullptr;
    QStringList m_itemData;
    int m_newIndex = -1;
    QString m_textOnEntry;
};

} // namespace zolt
