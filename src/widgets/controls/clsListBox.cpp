// SPDX-License-Identifier: MIT
#include "widgets/controls/clsListBox.h"

#include "core/base/Conversions.h"
#include "widgets/controls/ComboSelection.h"

#include <zolt/Error.h>

#include <QComboBox>
#include <QFocusEvent>
#include <QListView>
#include <QStringListModel>

namespace zolt {

clsListBox::clsListBox(QObject *parent)
    : QObject(parent)
{
}

clsListBox::~clsListBox() = default;

void clsListBox::SetTListBox(QWidget *txtCmb)
{
    if (m_control)
        m_control->removeEventFilter(this);
    m_control = txtCmb;
    m_combo = qobject_cast<QComboBox *>(txtCmb);
    m_view = qobject_cast<QAbstractItemView *>(txtCmb);
    if (!m_combo && !m_view)
        throw Error(Error::TypeMismatch);
    if (m_view && !m_view->model())
        m_view->setModel(new QStringListModel(m_view));
    m_itemData = QStringList(ListCount());
    m_newIndex = -1;
    m_control->installEventFilter(this);
}

QAbstractItemModel *clsListBox::model() const
{
    if (!m_control)
        throw Error(Error::InvalidArgument, QStringLiteral("No list is bound"));
    return m_combo ? m_combo->model() : m_view->model();
}

void clsListBox::AddItem(const QString &item, std::optional<int> index)
{
    const int at = index.value_or(ListCount());
    if (m_combo) {
        InsertKeepingSelection(m_combo, at, item);
        m_newIndex = at;
    } else {
        CheckItemIndex(at, ListCount() + 1);
        QAbstractItemModel *rows = model();
        rows->insertRow(at);
        // A sorting list moves the row as soon as it has its text.
        const QPersistentModelIndex added = rows->index(at, 0);
        rows->setData(added, item);
        m_newIndex = added.row();
    }
    m_itemData.insert(m_newIndex, QString());
}

void clsListBox::RemoveItem(int index)
{
    if (index < 0)
        return;
    if (m_combo) {
        RemoveKeepingSelection(m_combo, index);
    } else {
        CheckItemIndex(index, ListCount());
        const bool selected = ListIndex() == index;
        model()->removeRow(index);
        if (selected)
            SetListIndex(-1);   // a view would select a neighbour
    }
    if (index < m_itemData.size())
        m_itemData.removeAt(index);
}

void clsListBox::Clear()
{
    if (m_combo)
        m_combo->clear();
    else
        model()->removeRows(0, model()->rowCount());
    m_itemData.clear();
    m_newIndex = -1;
}

QString clsListBox::ItemData(int index) const
{
    CheckItemIndex(index, m_itemData.size());
    return m_itemData.at(index);
}

void clsListBox::SetItemData(int index, const QString &data)
{
    CheckItemIndex(index, m_itemData.size());
    m_itemData[index] = data;
}

void clsListBox::AppendItems(const QStringList &texts, const QStringList &data)
{
    auto *strings = m_view ? qobject_cast<QStringListModel *>(model()) : nullptr;
    if (m_combo) {
        AppendKeepingSelection(m_combo, texts);
    } else if (strings) {
        const int selected = ListIndex();
        strings->setStringList(strings->rowCount() == 0 ? texts : strings->stringList() + texts);
        if (selected >= 0)
            SetListIndex(selected);
    } else {
        return ItemDataList::AppendItems(texts, data);
    }
    // An empty list takes the data as it is, shared, not copied item by item.
    m_itemData = m_itemData.isEmpty() ? data : m_itemData + data;
    m_newIndex = ListCount() - 1;
}

QString clsListBox::Value() const
{
    const int index = ListIndex();
    return index >= 0 && index < m_itemData.size() ? m_itemData.at(index) : QString();
}

void clsListBox::SetValue(const QString &value)
{
    SetListIndex(FindString(m_itemData, value));
}

int clsListBox::ListIndex() const
{
    if (!m_control)
        return -1;
    return m_combo ? m_combo->currentIndex() : m_view->currentIndex().row();
}

void clsListBox::SetListIndex(int index)
{
    if (index < -1 || index >= ListCount())
        throw Error(Error::InvalidPropertyValue);
    if (m_combo) {
        m_combo->setCurrentIndex(index);
        return;
    }
    if (index < 0) {
        m_view->setCurrentIndex(QModelIndex());
        m_view->clearSelection();
    } else {
        m_view->setCurrentIndex(model()->index(index, 0));
    }
}

QString clsListBox::Text() const
{
    if (!m_control)
        return QString();
    if (m_combo)
        return m_combo->currentText();
    return m_view->currentIndex().data().toString();
}

void clsListBox::SetText(const QString &text)
{
    if (m_combo && m_combo->isEditable()) {
        m_combo->setEditText(text);
        return;
    }
    const QModelIndexList found = model()->match(model()->index(0, 0), Qt::DisplayRole, text, 1,
                                                 Qt::MatchFixedString);
    SetListIndex(found.isEmpty() ? -1 : found.first().row());
}

QString clsListBox::List(int index) const
{
    if (index < 0 || index >= ListCount())
        return QString();
    return model()->index(index, 0).data().toString();
}

void clsListBox::SetList(int index, const QString &text)
{
    CheckItemIndex(index, ListCount());
    model()->setData(model()->index(index, 0), text);
}

int clsListBox::ListCount() const
{
    return m_control ? model()->rowCount() : 0;
}

int clsListBox::FindString(const QStringList &mClt, const QString &StFind)
{
    for (int i = 0; i < mClt.size(); ++i) {
        if (SameText(mClt.at(i), StFind))
            return i;
    }
    return -1;
}

bool clsListBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_control) {
        if (event->type() == QEvent::FocusIn) {
            m_textOnEntry = Text();
        } else if (event->type() == QEvent::FocusOut
                   && static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason
                   && !SameText(Text(), m_textOnEntry)) {
            Q_EMIT TextChanged();
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zolt
