// SPDX-License-Identifier: MIT
#pragma once

// Changing a combo box's items the way a list box changes its own.

#include <QString>
#include <QStringList>

class QComboBox;

namespace zolt {

// A combo box selects the first item put into it and moves its selection to a
// neighbour of a removed item; a list keeps its selection on the same item, or
// has none once that item is gone. These change a combo's items the way a
// list does, without a selection signal. A bad index raises error 381.
void InsertKeepingSelection(QComboBox *combo, int at, const QString &text);
void AppendKeepingSelection(QComboBox *combo, const QStringList &texts);
void RemoveKeepingSelection(QComboBox *combo, int index);

} // namespace zolt
