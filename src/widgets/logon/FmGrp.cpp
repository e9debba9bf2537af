// SPDX-License-Identifier: MIT
#include "widgets/logon/FmGrp.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/database/SqlFunc.h"
#include "core/logon/LockedServer.h"
#include "core/search/MFind.h"
#include "widgets/desktop/General.h"
#include "widgets/desktop/KeyPreview.h"
#include "widgets/desktop/MdGrid.h"
#include "widgets/logon/FrPms.h"
#include "widgets/logon/GroupRows.h"
#include "widgets/logon/QuoteGuard.h"
#include "widgets/msgbox/MdlMsg.h"

#include <zolt/Error.h>

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace zolt {

namespace {

QString add() { return FmGrp::tr("T&hêm"); }
QString cancelAdd() { return FmGrp::tr("&Huỷ thêm"); }
QString saveError() { return FmGrp::tr("Save Error"); }
QString deleteTitle() { return FmGrp::tr("Delete"); }

} // namespace

FmGrp::FmGrp(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("FmGrp"));
    setWindowTitle(tr("Groups User"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));

    m_groups = new GroupRows(this);
    Lv1 = Named(new QListView(this), "Lv1");
    Lv1->setModel(m_groups);
    Lv1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Lv1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    Lv1->setFixedWidth(330);
    Lv1->setUniformItemSizes(true);   // one line each: thousands of groups are not each laid out
    Frame1 = Named(new QGroupBox(tr("Thông tin"), this), "Frame1");
    Label1 = Named(new QLabel(tr("Tên nhóm"), Frame1), "Label1");
    TxtName = Named(new QLineEdit(Frame1), "TxtName");
    Label2 = Named(new QLabel(tr("Diễn giải"), Frame1), "Label2");
    TxtDesc = Named(new QLineEdit(Frame1), "TxtDesc");
    Label1->setBuddy(TxtName);   // a screen reader names each box by its label
    Label2->setBuddy(TxtDesc);
    Lv1->setAccessibleName(tr("Nhóm người sử dụng"));
    FrDetail = Named(new QGroupBox(tr("Danh sách"), this), "FrDetail");
    lvUser = Named(new QTreeWidget(FrDetail), "lvUser");
    lvUser->setHeaderLabels({tr("Tên"), tr("Diễn giải")});
    lvUser->setRootIsDecorated(false);
    lvUser->setAccessibleName(tr("Người sử dụng của nhóm"));
    lvUser->setColumnWidth(0, 140);
    CmdPms = Named(new QPushButton(tr("&Phân quyền"), FrDetail), "CmdPms");
    CmdAdd = Named(new QPushButton(add(), this), "CmdAdd");
    CmdWrite = Named(new QPushButton(tr("&Ghi"), this), "CmdWrite");
    CmdDelete = Named(new QPushButton(tr("&Xoá"), this), "CmdDelete");
    CmdExit = Named(new QPushButton(tr("&Thoát"), this), "CmdExit");

    auto *info = new QGridLayout(Frame1);
    info->addWidget(Label1, 0, 0);
    info->addWidget(TxtName, 0, 1);
    info->addWidget(Label2, 1, 0);
    info->addWidget(TxtDesc, 1, 1);
    info->setColumnMinimumWidth(1, 260);
    auto *detail = new QVBoxLayout(FrDetail);
    detail->addWidget(lvUser);
    detail->addWidget(CmdPms, 0, Qt::AlignRight);
    auto *right = new QVBoxLayout;
    right->addWidget(Frame1);
    right->addWidget(FrDetail);
    auto *buttons = ButtonRow({CmdAdd, CmdWrite, CmdDelete, CmdExit});
    CmdPms->setMinimumWidth(110);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addWidget(Lv1, 0, 0);
    layout->addLayout(right, 0, 1);
    layout->addLayout(buttons, 1, 0, 1, 2);
    layout->setRowMinimumHeight(0, 340);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(Lv1->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &FmGrp::Lv1_Click);
    Lv1->installEventFilter(this);
    connect(TxtName, &QLineEdit::textChanged, this, &FmGrp::CheckWrite);
    connect(CmdAdd, &QPushButton::clicked, this, &FmGrp::CmdAdd_Click);
    connect(CmdWrite, &QPushButton::clicked, this, &FmGrp::CmdWrite_Click);
    connect(CmdDelete, &QPushButton::clicked, this, &FmGrp::CmdDelete_Click);
    connect(CmdPms, &QPushButton::clicked, this, &FmGrp::CmdPms_Click);
    connect(CmdExit, &QPushButton::clicked, this, &QDialog::accept);
    EnterMovesToNextControl(this);

    ApplyFormSettings(this);
    m_table = QStringLiteral("[Groups]");
    m_viewing = true;
    ReadInfo(m_table);
    ViewInit();
    CheckWrite();
}

FmGrp::~FmGrp() = default;

// The groups are read as the list shows them (GroupRows).
qint32 FmGrp::ReadInfo(const QString &Sql)
{
    const QSignalBlocker quiet(Lv1->selectionModel());
    return m_groups->load(Sql);
}

int FmGrp::currentRow() const
{
    return Lv1->currentIndex().isValid() ? Lv1->currentIndex().row() : -1;
}

void FmGrp::setCurrentRow(int row)
{
    Lv1->setCurrentIndex(m_groups->index(row));
}

qint32 FmGrp::selectedCode() const
{
    return m_groups->code(currentRow());
}

void FmGrp::ViewInit()
{
    const QSignalBlocker quiet(Lv1->selectionModel());   // the group is shown once, below
    if (m_current < 1) {
        setCurrentRow(0);
        if (selectedCode() > 0)
            ViewInfo(selectedCode());
    } else if (const int row = m_groups->find(m_current); row >= 0) {
        setCurrentRow(row);
        ViewInfo(m_current);
    }
}

// The group's name and description, and the users who belong to it.
void FmGrp::ViewInfo(qint32 Id)
{
    m_current = Id;
    m_read.Clear();
    const QString code = QString::number(Id);
    lvUser->clear();
    try {
        Recordset rs;
        if (OpenQuery(rs, QStringLiteral("Select * From ") + m_table + QStringLiteral(" Where Code=") + code) == 0
            && HasRows(rs)) {
            m_read.Take(rs, {QStringLiteral("Name"), QStringLiteral("Des")});
            TxtName->setText(NullToStr(rs.Value(QStringLiteral("Name"))));
            TxtDesc->setText(WithoutAddedBlank(NullToStr(rs.Value(QStringLiteral("Des")))));
        }
        if (OpenQuery(rs, QStringLiteral("Select [Name],[Dec] From [User] Where IdGroup=") + code) == 0) {
            for (; !rs.Eof(); rs.MoveNext())
                new QTreeWidgetItem(lvUser, {NullToStr(rs.Value(0)), NullToStr(rs.Value(1))});
        }
    } catch (const Error &e) {
        LogIgnored("A group shown without its row", e);   // a table without these columns shows nothing
    }
}

// Proposes the next group: the largest name read as a number, plus one.
void FmGrp::AddRecord()
{
    TxtName->setText(QString::number(GetMaxValue(QStringLiteral("Groups"), QStringLiteral("Name"), CurrentConnection()) + 1));
    TxtDesc->clear();
}

qint32 FmGrp::WriteData(qint32 Id)
{
    const QString sql =
        Id != 0 ? AddSet(QStringLiteral("Update ") + m_table + QStringLiteral(" Set [Name]='") + TxtName->text()
                             + QStringLiteral("' Where [Code]=") + QString::number(Id),
                         QStringLiteral("[Des]"), TxtDesc->text())
                : AddValues(QStringLiteral("Insert Into ") + m_table + QStringLiteral("([Name]) Values('")
                                + TxtName->text() + QStringLiteral("')"),
                            QStringLiteral("[Des]"), TxtDesc->text());
    const QString description = StoredWithBlank(TxtDesc->text());
    try {
        if (Id == 0) {
            m_added = ServerLocked() ? LockedAddGroup(TxtName->text(), description) : (Execute(sql), 0);
            return 0;
        }
        if (m_read.IsEmpty())
            return Error::NoCurrentRecord;   // the boxes were never filled from the group
        // Renamed only while the group holds what the boxes were filled from
        // or this dialog wrote last.
        const qint64 written = ServerLocked() ? LockedUpdateGroup(Id, TxtName->text(), description,
                                                                  m_read.Value(QStringLiteral("Name")).toString(),
                                                                  m_read.Value(QStringLiteral("Des")).toString())
                                              : Execute(sql + m_read.StillHolds());
        if (written == 0)
            return Error::NoCurrentRecord;
        m_read.Wrote({{QStringLiteral("Name"), TxtName->text()}, {QStringLiteral("Des"), description}});
        return 0;
    } catch (const Error &e) {
        m_writeFailure = e.number() == Error::ServerUnreachable ? u'\n' + e.description() : QString();
        return e.number();
    }
}

void FmGrp::CheckWrite()
{
    CmdWrite->setEnabled(!TxtName->text().isEmpty());
}

// Groups 1 and 8 are built in: the statement never removes them.
void FmGrp::DeleteData(const QString &Predicate)
{
    if (ServerLocked()) {
        QList<qint32> codes;
        for (const QString &code : Predicate.split(u','))
            codes << code.toInt();
        return void(LockedDeleteGroups(codes));
    }
    Execute(QStringLiteral("Delete From ") + m_table + QStringLiteral(" Where Code In (") + Predicate
            + QStringLiteral(") and (Code Not In (1,8))"));
}

bool FmGrp::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Lv1 && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Delete && key->modifiers() == Qt::NoModifier) {
            CmdDelete_Click();
            return true;
        }
        if (key->matches(QKeySequence::SelectAll))
            m_groups->fetchAll();   // every group, not only those shown so far
    }
    return QDialog::eventFilter(watched, event);
}

void FmGrp::Lv1_Click()
{
    if (m_groups->rowCount() > 0)
        ViewInfo(selectedCode());
    else
        AddRecord();
}

// Adding locks the group's users and rights until it is cancelled.
void FmGrp::CmdAdd_Click()
{
    if (m_viewing) {
        AddRecord();
        CmdAdd->setText(cancelAdd());
        m_viewing = false;
        TxtName->setFocus();
    } else {
        m_viewing = true;
        CmdAdd->setText(add());
        Lv1_Click();
    }
    FrDetail->setEnabled(m_viewing);
}

QString FmGrp::rowText() const
{
    return TxtName->text() + QLatin1Char('-') + TxtDesc->text();
}

void FmGrp::CmdWrite_Click()
{
    if (RefuseQuote(TxtName, saveError()))
        return;
    if (!m_viewing) {
        if (WriteData(0) != 0) {
            ShowMgBox(tr("Không thể thêm dữ liệu vào bảng") + m_writeFailure, 0, saveError());
        } else {
            // A locked server tells the new group's code; else it is the largest.
            m_groups->append(m_added > 0 ? m_added : GetMaxValue(m_table, QStringLiteral("Code"), CurrentConnection()),
                             rowText());
            AddRecord();
        }
    } else if (const qint32 n = WriteData(m_current); n == Error::NoCurrentRecord) {
        ShowMgBox(tr("Nhóm này vừa được sửa hoặc xoá ở máy khác. Danh sách nhóm đã được đọc lại."), 0,
                  saveError());
        ReadInfo(m_table);
        if (m_groups->find(m_current) < 0)
            m_current = 0;
        ViewInit();
    } else if (n != 0) {
        ShowMgBox(tr("Không thể ghi dữ liệu vào bảng") + m_writeFailure, 0, saveError());
    } else {
        m_groups->setText(currentRow(), rowText());
    }
    TxtName->setFocus();
}

void FmGrp::CmdDelete_Click()
{
    if (LngVal(ShowMgBox(tr("Bạn có chắc chắn xoá các nhóm đã chọn không?"), 4, deleteTitle())) != 6)
        return;
    QStringList codes;
    QList<int> rows;
    for (const QModelIndex &selected : Lv1->selectionModel()->selectedRows()) {
        rows << selected.row();
        codes << QString::number(m_groups->code(selected.row()));
    }
    const qint32 count = qint32(rows.size());
    {
        const QSignalBlocker quiet(Lv1->selectionModel());
        m_groups->remove(rows);
    }
    if (m_groups->rowCount() == 0) {
        AddRecord();
    } else {
        Lv1_Click();
        Lv1->setFocus();
    }
    if (codes.isEmpty())
        return;
    try {
        DeleteData(codes.join(u','));
        ShowMgBox(tr("%n danh mục đã bị xoá", nullptr, count), 0, deleteTitle());
    } catch (const Error &e) {
        ShowMgBox(e.description(), 0, deleteTitle());   // nothing was deleted: the list shows the groups again
        ReadInfo(m_table);
        ViewInit();
    }
}

void FmGrp::CmdPms_Click()
{
    FrPms rights(selectedCode(), this);
    rights.exec();
}

} // namespace zolt
