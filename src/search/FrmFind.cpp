// SPDX-License-Identifier: MIT
#include "search/FrmFind.h"

#include "controls/DataCombo1.h"
#include "controls/FmSelHang.h"
#include "data/Conversions.h"
#include "data/Database.h"
#include "data/General.h"
#include "data/KeyPreview.h"
#include "data/SqlFunc.h"
#include "search/MFind.h"

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

} // namespace

FrmFind::FrmFind(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("FrmFind"));
    setWindowTitle(QStringLiteral("Search 1.1"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));

    auto *rows = new QGridLayout;
    rows->setHorizontalSpacing(8);
    rows->setVerticalSpacing(8);
    const char *headings[] = {"Nối", "Trường", "So sánh", "Giá trị"};
    for (int column = 0; column < 4; ++column)
        rows->addWidget(new QLabel(QString::fromUtf8(headings[column]), this), 0, column);
    for (int i = 0; i < Rows; ++i) {
        cmbLg[i] = i == 0 ? nullptr : element(new DataCombo1(this), "cmbLg", i);
        CmbFld[i] = element(new DataCombo1(this), "CmbFld", i);
        CmbPredicate[i] = element(new DataCombo1(this), "CmbPredicate", i);
        MskValue[i] = element(new QLineEdit(this), "MskValue", i);
        if (cmbLg[i])
            rows->addWidget(cmbLg[i], i + 1, 0);
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
    TxtResult->setFixedHeight(70);
    TxtResult->setTabChangesFocus(true);
    FrCmd = Named(new QFrame(this), "FrCmd");
    CmdOK = Named(new QPushButton(QStringLiteral("Đồ&ng ý"), FrCmd), "CmdOK");
    CmdCancel = Named(new QPushButton(QStringLiteral("Th&oát"), FrCmd), "CmdCancel");
    CmdHelp = Named(new QPushButton(QStringLiteral("&Hướng dẫn"), FrCmd), "CmdHelp");
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
    connect(CmdOK, &QPushButton::clicked, this, [this] {
        Result = GetRes();
        accept();
    });
    connect(CmdCancel, &QPushButton::clicked, this, [this] {
        Result.clear();
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
        cmbLg[i]->AppendItems({QStringLiteral("và"), QStringLiteral("hoặc")}, {QStringLiteral("and"), QStringLiteral("or")});
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

// The words always quote the value, whatever its type.
QString FrmFind::GetDisplay(int Index) const
{
    return u'(' + CmbFld[Index]->Text() + QStringLiteral("  ") + CmbPredicate[Index]->Text() + QStringLiteral("  '")
           + Trim(MskValue[Index]->text()) + QStringLiteral("')");
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
           && !(!IsNumeric(value) && (type == NumberType || type == NumberType13))
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
            s += (connector.isEmpty() ? QStringLiteral("và") : connector) + GetDisplay(i);
        }
    }
    return s;
}

void FrmFind::rowChanged(int Index)
{
    CmdOK->setEnabled(CheckSql(Index));
    SetEnable();
}

// F2 in a value box opens the field's pick list; a choice fills the box and
// moves on.
void FrmFind::lookUp(int Index)
{
    const QString relation = FieldRelation.value(CmbFld[Index]->ListIndex());
    if (relation.isEmpty())
        return;
    QString query = UCase(relation).startsWith(QLatin1String("SELECT"))
                        ? relation
                        : QStringLiteral("Select * From ") + relation + QStringLiteral(" Where Name ");
    query += QStringLiteral("  Like ") + SqlValue(MskValue[Index]->text(), QStringLiteral("LR"));
    FmSelHang pick(this);
    pick.ListSql = query;
    pick.SearchText = MskValue[Index]->text();
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
        } else if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_F2) {
            lookUp(int(box - MskValue.begin()));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace zolt
