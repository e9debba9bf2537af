// SPDX-License-Identifier: MIT
#include "widgets/search/FrmFind.h"

#include "core/base/Conversions.h"
#include "core/database/ClerkComparisons.h"
#include "core/database/Database.h"
#include "core/database/SqlFunc.h"
#include "core/search/MFind.h"
#include "widgets/controls/AccessibleNames.h"
#include "widgets/controls/FmSelHang.h"
#include "widgets/desktop/General.h"
#include "widgets/desktop/KeyPreview.h"
#include "widgets/msgbox/MdlMsg.h"

#include <zolt/DataCombo1.h>
#include <zolt/Tesmir.h>

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace zolt {

namespace {

QString indexed(const char *name, int index)
{
    return QLatin1String(name) + u'(' + QString::number(index) + u')';
}

template <typename Control>
Control *element(Control *control, const char *name, int index)
{
    control->setObjectName(indexed(name, index));
    return control;
}

// The pick list of a relation: the rows whose names begin with typed.
QString pickListSql(const QString &relation, const QString &typed)
{
    const QString query = UCase(relation).startsWith(QLatin1String("SELECT"))
                              ? relation
                              : QStringLiteral("Select * From ") + relation + QStringLiteral(" Where Name ");
    return ClerkComparisons(CurrentConnection(),
                            query + QStringLiteral("  Like ") + SqlValue(typed, QStringLiteral("LR")));
}

bool hasRows(const QString &sql)
{
    Recordset rs;
    return OpenQuery(rs, sql, Cursor::ForwardOnly) == 0 && HasRows(rs);
}

} // namespace

FrmFind::FrmFind(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("FrmFind"));
    setWindowTitle(tr("Search 1.1"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));

    auto *rows = new QGridLayout;
    rows->setHorizontalSpacing(8);
    rows->setVerticalSpacing(8);
    const char *const headings[] = {QT_TR_NOOP("Nối"), QT_TR_NOOP("Trường"), QT_TR_NOOP("So sánh"), QT_TR_NOOP("Giá trị")};
    QLabel *heading[4];
    for (int column = 0; column < 4; ++column) {
        heading[column] = new QLabel(tr(headings[column]), this);
        rows->addWidget(heading[column], 0, column);
    }
    // A screen reader names each control by its column and row, whatever it
    // holds, and tells the column's heading as its label.
    const auto name = [&](QWidget *control, int column, int i) {
        control->setAccessibleName(tr("%1 dòng %2").arg(heading[column]->text()).arg(i + 1));
        SetAccessibleHeading(control, heading[column]);
    };
    for (int i = 0; i < Rows; ++i) {
        cmbLg[i] = i == 0 ? nullptr : element(new DataCombo1(this), "cmbLg", i);
        CmbFld[i] = element(new DataCombo1(this), "CmbFld", i);
        CmbPredicate[i] = element(new DataCombo1(this), "CmbPredicate", i);
        MskValue[i] = element(new QLineEdit(this), "MskValue", i);
        name(CmbFld[i], 1, i);
        name(CmbPredicate[i], 2, i);
        name(MskValue[i], 3, i);
        if (cmbLg[i]) {
            name(cmbLg[i], 0, i);
            rows->addWidget(cmbLg[i], i + 1, 0);
        }
        rows->addWidget(CmbFld[i], i + 1, 1);
        rows->addWidget(CmbPredicate[i], i + 1, 2);
        rows->addWidget(MskValue[i], i + 1, 3);
    }
    rows->setColumnMinimumWidth(0, 80);
    rows->setColumnMinimumWidth(1, 190);
    rows->setColumnMinimumWidth(2, 150);
    rows->setColumnMinimumWidth(3, 190);
    TxtResult = Named(new QPlainTextEdit(this), "TxtResult");
    TxtResult->setReadOnly(true);
    TxtResult->setAccessibleName(tr("Điều kiện"));
    TxtResult->setFixedHeight(70);
    TxtResult->setTabChangesFocus(true);
    FrCmd = Named(new QFrame(this), "FrCmd");
    CmdOK = Named(new QPushButton(tr("Đồ&ng ý"), FrCmd), "CmdOK");
    CmdCancel = Named(new QPushButton(tr("Th&oát"), FrCmd), "CmdCancel");
    CmdHelp = Named(new QPushButton(tr("&Hướng dẫn"), FrCmd), "CmdHelp");
    auto *buttons = ButtonRow({CmdOK, CmdCancel, CmdHelp});
    buttons->setContentsMargins(0, 0, 0, 0);
    FrCmd->setLayout(buttons);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(12);
    layout->addLayout(rows);
    layout->addWidget(TxtResult);
    layout->addWidget(FrCmd);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // OK follows the row whose control fired.
    for (int i = 0; i < Rows; ++i) {
        connect(CmbFld[i], &DataCombo1::Click, this, [this, i] {
            ChkVisible(i);
            rowChanged(i);
        });
        connect(CmbPredicate[i], &DataCombo1::Click, this, [this, i] { rowChanged(i); });
        connect(MskValue[i], &QLineEdit::textChanged, this, [this, i] { rowChanged(i); });
        MskValue[i]->installEventFilter(this);
        if (cmbLg[i])
            connect(cmbLg[i], &DataCombo1::Click, this, &FrmFind::SetEnable);
    }
    connect(CmdOK, &QPushButton::clicked, this, &FrmFind::CmdOK_Click);
    connect(CmdCancel, &QPushButton::clicked, this, [this] {
        Result.clear();
        ResultWords.clear();
        reject();
    });
    EnterMovesToNextControl(this);
}

FrmFind::~FrmFind() = default;

int FrmFind::exec()
{
    Load();
    return QDialog::exec();
}

void FrmFind::Load()
{
    ApplyFormSettings(this);
    // A table name that would end its literal has no catalogue rows.
    if (!BreaksQuotedLiteral(TableName)) {
        ReadData();
        LoadFieldInfo(QStringLiteral("Select * From LstFld Where [InTable]='") + TableName + u'\'',
                      QStringLiteral("[code]"));
    }
    Result.clear();
    ResultWords.clear();
    CmdOK->setEnabled(false);
    if (CmbFld[0]->ListCount() >= 1)
        CmbFld[0]->SetListIndex(0);
    SetEnable();
}

void FrmFind::ReadData()
{
    FillList(*CmbFld[0], QStringLiteral("[code]"),
             QStringLiteral("Select [Name],[Desc] From LstFld Where [InTable]='") + TableName + u'\'');
    QStringList texts, data;
    for (int k = 0; k < CmbFld[0]->ListCount(); ++k) {
        texts << CmbFld[0]->List(k);
        data << CmbFld[0]->ItemData(k);
    }
    for (int i = 1; i < Rows; ++i) {
        cmbLg[i]->Clear();   // a second load starts afresh too
        CmbFld[i]->Clear();
        cmbLg[i]->AppendItems({tr("và"), tr("hoặc")}, {QStringLiteral("and"), QStringLiteral("or")});
        cmbLg[i]->SetListIndex(0);
        CmbFld[i]->AppendItems(texts, data);
    }
}

// Look-ups go through the field cache; this has never returned anything.
QVariant FrmFind::Get_RelaData() const
{
    return {};
}

qint32 FrmFind::fieldType(int Index) const
{
    return FieldType.value(CmbFld[Index]->ListIndex());
}

// The operators offered are those of the chosen field's type.
void FrmFind::ChkVisible(int Index)
{
    if (CmbFld[Index]->ListIndex() >= 0)
        FillList(*CmbPredicate[Index], QString(),
                 QStringLiteral("Select [Name],[Des] from [Operator] Where [Type]=") + QString::number(fieldType(Index))
                     + QStringLiteral("  Order By [Code]"));
}

QString FrmFind::GetSql(int Index) const
{
    const QString op = UCase(CmbPredicate[Index]->Value());
    return GetBrackets(u'(' + CmbFld[Index]->Value() + QStringLiteral("  ") + op + QStringLiteral("  ")
                       + FormatValue(fieldType(Index), op, Trim(MskValue[Index]->text())) + u')');
}

// The value as the screen shows it: numbers grouped ("490.000"), the rest as typed.
QString FrmFind::shownValue(int Index) const
{
    const QString typed = Trim(MskValue[Index]->text());
    const qint32 type = fieldType(Index);
    if (type != UncheckedNumberType && type != NumberType && type != NumberType13)
        return typed;
    auto numbers = TypedNumbers(CmbPredicate[Index]->Value(), typed);
    if (!numbers)
        return typed;
    for (QString &number : *numbers)
        number = Tesmir().CvNStr(QString(number).replace(u'.', u','));
    return numbers->join(QStringLiteral(", "));
}

// The words always quote the value, whatever its type.
QString FrmFind::GetDisplay(int Index) const
{
    return u'(' + CmbFld[Index]->Text() + QStringLiteral("  ") + CmbPredicate[Index]->Text() + QStringLiteral("  '")
           + shownValue(Index) + QStringLiteral("')");
}

// A row as a sentence: "Tên hàng bắt đầu bằng 'Bánh'", "Giá lớn hơn 490.000".
QString FrmFind::rowWords(int Index) const
{
    QString op = CmbPredicate[Index]->Text();
    if (op.size() > 1 && !op.at(1).isUpper())
        op[0] = op.at(0).toLower();
    const qint32 type = fieldType(Index);
    const bool text = type == TextType || type == TextType11;
    return CmbFld[Index]->Text() + u' ' + op + u' ' + (text ? u'\'' + shownValue(Index) + u'\'' : shownValue(Index));
}

QString FrmFind::GetWords() const
{
    QString s = rowWords(0);
    for (int i = 1; i < Rows; ++i) {
        if (CheckSql(i)) {
            const QString connector = cmbLg[i]->Text();
            s += u' ' + (connector.isEmpty() ? tr("và") : connector) + u' ' + rowWords(i);
        }
    }
    return s;
}

// What is wrong with the row's value for its field, said to the clerk; ""
// when nothing is (or the row is not in use).
QString FrmFind::rowProblem(int Index) const
{
    const QString typed = Trim(MskValue[Index]->text());
    if (typed.isEmpty() || !MskValue[Index]->isEnabled() || CmbFld[Index]->ListIndex() < 0)
        return QString();
    const QString row = tr("Dòng %1, %2: «%3» ").arg(Index + 1).arg(CmbFld[Index]->Text(), typed);
    switch (fieldType(Index)) {
    case UncheckedNumberType: case NumberType: case NumberType13:
        if (TypedNumbers(CmbPredicate[Index]->Value(), typed))
            return QString();
        return row + tr("không phải là số. Số viết như trên màn hình: dấu chấm ngăn hàng nghìn, "
                                        "dấu phẩy trước phần lẻ (ví dụ 1.234.567,5)%1.")
                         .arg(UCase(CmbPredicate[Index]->Value()) == QLatin1String("IN")
                                  ? tr("; các số của danh sách cách nhau bằng dấu phẩy")
                                  : QString());
    case DateType:
        return IsDate(typed) ? QString()
                             : row + tr("không phải là một ngày có thật. Ngày viết ngày/tháng/năm, "
                                                        "ví dụ 31/12/2026.");
    default:
        return QString();
    }
}

// Tells the clerk what is wrong with the row and puts the keyboard there.
bool FrmFind::toldProblem(int Index)
{
    const QString problem = rowProblem(Index);
    if (problem.isEmpty())
        return false;
    ShowMgBox(problem, 0, tr("Tìm kiếm"), 48);
    MskValue[Index]->setFocus();
    MskValue[Index]->selectAll();
    return true;
}

void FrmFind::CmdOK_Click()
{
    for (int i = 0; i < Rows; ++i) {
        if (toldProblem(i))
            return;
    }
    Result = GetRes();
    ResultWords = GetWords();
    accept();
}

// Balances the counts of brackets only, at the end: a ")" inside a quoted value
// is answered by a "(" after the condition.
QString FrmFind::GetBrackets(QString St)
{
    const int d = CountOf(St, QStringLiteral(")")) - CountOf(St, QStringLiteral("("));
    return d > 0 ? St + QString(d, u'(') : St + QString(-d, u')');
}

// A complete row: a value, a field and an operator, a value of the field's
// type (type 1 is never checked), and every row above complete too.
bool FrmFind::CheckSql(int Index) const
{
    const QString value = MskValue[Index]->text();
    const qint32 type = fieldType(Index);
    return !value.isEmpty() && CmbFld[Index]->ListIndex() >= 0 && CmbPredicate[Index]->ListIndex() >= 0
           && !(!TypedNumbers(CmbPredicate[Index]->Value(), value) && (type == NumberType || type == NumberType13))
           && !(!IsDate(value) && type == DateType) && CmbFld[Index]->Enabled();
}

// Each row opens only when the row above is complete.
void FrmFind::SetEnable()
{
    for (int i = 1; i < Rows; ++i) {
        const bool open = CheckSql(i - 1);
        cmbLg[i]->SetEnabled(open);
        CmbFld[i]->SetEnabled(open);
        CmbPredicate[i]->SetEnabled(open);
        MskValue[i]->setEnabled(open);
    }
    TxtResult->setPlainText(GetDis());
}

QString FrmFind::GetRes() const
{
    QString s = GetSql(0);
    for (int i = 1; i < Rows && !s.isEmpty(); ++i) {
        if (CheckSql(i)) {
            const QString connector = cmbLg[i]->Value();
            s += (connector.isEmpty() ? QStringLiteral("And") : connector) + GetSql(i);
        }
    }
    return s;
}

QString FrmFind::GetDis() const
{
    QString s = GetDisplay(0);
    for (int i = 1; i < Rows; ++i) {
        if (CheckSql(i)) {
            const QString connector = cmbLg[i]->Text();
            s += (connector.isEmpty() ? tr("và") : connector) + GetDisplay(i);
        }
    }
    return s;
}

void FrmFind::rowChanged(int Index)
{
    CmdOK->setEnabled(CheckSql(Index));
    SetEnable();
}

// F2 in a value box opens the field's pick list on the names that begin with
// what the box holds. Text that begins no name is taken for a code of the
// list (what a choice put there): the whole list opens on its row. A choice
// fills the box and moves on.
void FrmFind::lookUp(int Index)
{
    const QString relation = FieldRelation.value(CmbFld[Index]->ListIndex());
    if (relation.isEmpty())
        return;
    const QString typed = MskValue[Index]->text();
    FmSelHang pick(this);
    pick.ListSql = pickListSql(relation, typed);
    pick.SearchText = typed;
    if (!typed.isEmpty() && !hasRows(pick.ListSql)) {
        pick.ListSql = pickListSql(relation, QString());
        pick.CurrentCode = typed;
    }
    pick.exec();
    if (!pick.SelectedValue.isEmpty()) {
        MskValue[Index]->setText(pick.SelectedValue);
        MskValue[Index]->setFocus();
        focusNextChild();
    }
}

bool FrmFind::eventFilter(QObject *watched, QEvent *event)
{
    const auto box = std::find(MskValue.begin(), MskValue.end(), watched);
    if (box != MskValue.end()) {
        QLineEdit *edit = *box;
        if (event->type() == QEvent::FocusIn) {
            // After the box's own focus handling, which may select its text.
            QMetaObject::invokeMethod(edit, [edit] { edit->setCursorPosition(0); }, Qt::QueuedConnection);
        } else if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_F2) {
                lookUp(int(box - MskValue.begin()));
                return true;
            }
            // Enter reaches here as Tab: a value of the wrong kind keeps the clerk in its box.
            if (key == Qt::Key_Tab && toldProblem(int(box - MskValue.begin())))
                return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace zolt
