#include "data/General.h"

#include "data/Conversions.h"
#include "data/Database.h"
#include "data/Recordset.h"
#include "data/SqlFunc.h"
#include "search/MFind.h"

#include <zolt/Error.h>
#include <zolt/Tesmir.h>

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QMessageBox>
#include <QScreen>

namespace zolt {

QString DefaultFontName;

namespace {

const QString FallbackFont = QStringLiteral("VK Sans Serif");

QString keyCondition(const QString &section, const QString &key)
{
    return QStringLiteral(" Where [Section]=") + SqlValue(section, QStringLiteral("S"))
           + QStringLiteral(" And KeyName=") + SqlValue(key, QStringLiteral("S"));
}

// 1 when the option's row exists, 0 when not, or the error number of the query.
qint32 optionExists(const QString &section, const QString &key)
{
    Recordset rs;
    const qint32 n = OpenQuery(rs, QStringLiteral("Select * From Options") + keyCondition(section, key));
    return n != 0 ? n : (HasRows(rs) ? 1 : 0);
}

QString insertOption(const QString &section, const QString &key, const QString &value,
                     const QString &description)
{
    const QString sql = QStringLiteral("Insert Into Options([Section],KeyName,KeyValue) Values(")
                        + SqlValue(section, QStringLiteral("S")) + QLatin1Char(',')
                        + SqlValue(key, QStringLiteral("S")) + QLatin1Char(',')
                        + SqlValue(value, QStringLiteral("S")) + QLatin1Char(')');
    return description.isEmpty() ? sql : AddValues(sql, QStringLiteral("Description"), description);
}

QString updateOption(const QString &section, const QString &key, const QString &value,
                     const QString &description)
{
    const QString sql = QStringLiteral("Update Options Set KeyValue=") + SqlValue(value, QStringLiteral("S"))
                        + QLatin1Char(' ') + keyCondition(section, key);
    return description.isEmpty() ? sql : AddSet(sql, QStringLiteral("Description"), description);
}

} // namespace

void CentreOnScreen(QWidget *form)
{
    const QScreen *screen = form->screen() ? form->screen() : QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect area = screen->geometry();
    const QSize size = form->frameGeometry().size();
    form->move(area.left() + (area.width() - size.width()) / 2,
               area.top() + (area.height() - size.height()) / 2);
}

namespace {

int findUserData(const QAbstractItemModel *model, qint32 value)
{
    for (int row = 0; row < model->rowCount(); ++row) {
        if (LngVal(model->index(row, 0).data(Qt::UserRole)) == value)
            return row;
    }
    return -1;
}

qint32 userDataAt(const QAbstractItemModel *model, int row)
{
    try {
        return row >= 0 ? LngVal(model->index(row, 0).data(Qt::UserRole)) : 0;
    } catch (const Error &) {
        return 0;
    }
}

} // namespace

QString ReadOption(const QString &section, const QString &key, const QString &defaultValue)
{
    QString value;
    try {
        Recordset rs;
        if (OpenQuery(rs, QStringLiteral("Select * From [Options]") + keyCondition(section, key)) == 0
            && HasRows(rs))
            value = NullToStr(rs.Value(QStringLiteral("KeyValue")));
    } catch (const Error &) {
        // a read that fails is a missing value
    }
    return value.isEmpty() ? defaultValue : value;
}

qint32 WriteOption(const QString &section, const QString &key, const QString &value,
                   const QString &description, qint32 isNew)
{
    try {
        // A failed existence query leaves its number: a negative one (the
        // database's) inserts, a positive one updates.
        const qint32 n = isNew ? 0 : optionExists(section, key);
        Execute(n < 1 ? insertOption(section, key, value, description)
                      : updateOption(section, key, value, description));
        return 0;
    } catch (const Error &e) {
        QMessageBox box(QMessageBox::NoIcon, QGuiApplication::applicationDisplayName(),
                        QStringLiteral("Không thể lưu được khoá") + section + QLatin1Char('-') + key
                            + QStringLiteral(". Lỗi là ") + e.description(),
                        QMessageBox::Ok, QApplication::activeWindow());
        box.exec();
        return e.number();
    }
}

void ApplyFormSettings(QWidget *form)
{
    if (!form)
        return;
    CentreOnScreen(form);
    DefaultFontName = ReadOption(QStringLiteral("Config"), QStringLiteral("DefaultFont"), QString());
    const QString sizeText = ReadOption(QStringLiteral("Config"), QStringLiteral("DefaultFontSize"),
                                        QStringLiteral("9"));
    const int size = IsNumeric(sizeText) ? LngVal(sizeText) : 0;
    if (DefaultFontName.isEmpty())
        DefaultFontName = FallbackFont;
    for (QWidget *control : form->findChildren<QWidget *>()) {
        QFont font = control->font();
        font.setFamily(DefaultFontName);
        if (size > 8)
            font.setPointSize(size);
        control->setFont(font);
    }
}

qint32 GetMaxValue(const QString &table, const QString &field, const QSqlDatabase &connection)
{
    try {
        Recordset rs;
        const QString sql = QStringLiteral("Select  [") + field + QStringLiteral("]  from [") + table
                            + QStringLiteral("] Order by [") + field + QLatin1Char(']');
        if (rs.Open(sql, connection) != 0 || rs.Eof())
            return 0;
        rs.MoveLast();
        return LngVal(rs.Value(0));
    } catch (const Error &) {
        return 0;
    }
}

int FindItemData(const QListWidget *list, qint32 value)
{
    return findUserData(list->model(), value);
}

int FindItemData(const QComboBox *list, qint32 value)
{
    return findUserData(list->model(), value);
}

qint32 SelectedItemData(const QListWidget *list)
{
    return userDataAt(list->model(), list->currentRow());
}

qint32 SelectedItemData(const QComboBox *list)
{
    return userDataAt(list->model(), list->currentIndex());
}

QString NullToStr(const QVariant &value)
{
    return VariantToText(value);
}

qint32 LngVal(const QVariant &value)
{
    return IsNumeric(value) ? RoundToLong(ToDouble(value)) : 0;
}

double NumVal(const QVariant &value)
{
    if (!IsNumeric(value))
        return 0.0;
    return RoundToLong(ToDouble(value));
}

void PressKey(qint32 Key, qint32 Shift)
{
    Tesmir().Gui_Phim(Key, Shift);
}

} // namespace zolt
