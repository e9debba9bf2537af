// SPDX-License-Identifier: MIT
#pragma once

// Queries of the search wizard: record sets on the library's connection, the
// field catalogue (tables LstFld and Operator) and the literals of typed values.

#include "core/database/Recordset.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace zolt {

class ItemDataList;

// Value-type codes of the catalogue's fields and operators (LstFld.Type and
// Operator.Type). Other codes have no literal.
enum ValueType : qint32 {
    UncheckedNumberType = 1,   // formatted as a number; its row opens the next unchecked
    NumberType = 3,
    NumberType13 = 13,
    DateType = 8,
    TextType = 10,
    TextType11 = 11,
};

// The lookup source (Relation) and value type (Type) of each catalogue field of
// the table the search dialog shows, by the field's position in its list.
extern thread_local QStringList FieldRelation;
extern thread_local QList<qint32> FieldType;

// Fills the list from sql (ordered by order when given): the second column as
// shown text, the first as item data. The selection is kept when the list
// still has that row, else the first row is selected. A failing query leaves
// the list as far as it got.
void FillList(ItemDataList &list, const QString &order, QString sql);
// The rest of the record set's rows: the second column as text, the first as
// item data. Error 3265 when there is no second column.
void ReadRows(Recordset &rs, QStringList &texts, QStringList &data);

// Fills FieldRelation and FieldType from sql, a query of LstFld, in order.
void LoadFieldInfo(QString sql, const QString &order);

// The SQL literal of a typed value by value type and operator; "" for types
// that have no literal, and for a value that is not of its type.
QString FormatValue(int type, const QString &predicate, const QString &value);
// The day-first date value as the month-first text of a #...# literal; "" when
// it is not a date.
QString FormatDate(const QString &value);
QString EscapeQuotes(const QString &value);
// The numbers of a value typed as the screen shows numbers ("490.000",
// "1.234.567,5"), as SQL ("490000", "1234567.5"): one, or with the predicate
// "IN" a list of them separated by ","; nothing when the value is no such
// number or list.
std::optional<QStringList> TypedNumbers(const QString &predicate, const QString &value);
// Occurrences of pattern in text; 0 for an empty text.
int CountOf(const QString &text, const QString &pattern);

} // namespace zolt
