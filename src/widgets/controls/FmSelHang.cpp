// SPDX-License-Identifier: MIT
#include "widgets/controls/FmSelHang.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/search/MFind.h"
#include "core/text/PrefixIndex.h"
#include "core/text/PrefixMatcher.h"
#include "core/text/TextFold.h"
#include "widgets/controls/PickRows.h"
#include "widgets/desktop/General.h"
#include "widgets/desktop/KeyPreview.h"

#include <zolt/Error.h>

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <atomic>
#include <thread>

namespace zolt {

FmSelHang::FmSelHang(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("FmSelHang"));
    setWindowTitle(tr("Danh mục hàng hoá"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));

    Label1 = Named(new QLabel(tr("Tên danh mục"), this), "Label1");
    TxtSelH = Named(new QLineEdit(this), "TxtSelH");
    FrDetail = Named(new QGroupBox(tr("Danh sách"), this), "FrDetail");
    lv1IP = Named(new QListView(FrDetail), "lv1IP");
    Label1->setBuddy(TxtSelH);   // how a screen reader names them
    lv1IP->setAccessibleName(FrDetail->title());
    lv1IP->setUniformItemSizes(true);   // a million rows are laid out without measuring each
    lv1IP->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lv1IP->setFixedSize(420, 320);
    m_rows = new PickRows(this);
    lv1IP->setModel(m_rows);
    CmdSel = Named(new QPushButton(tr("&Chọn"), this), "CmdSel");
    CmdQuit = Named(new QPushButton(tr("&Thoát"), this), "CmdQuit");

    auto *search = new QHBoxLayout;
    search->addWidget(Label1);
    search->addWidget(TxtSelH, 1);
    (new QVBoxLayout(FrDetail))->addWidget(lv1IP);
    auto *buttons = ButtonRow({CmdSel, CmdQuit});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addLayout(search);
    layout->addWidget(FrDetail);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(TxtSelH, &QLineEdit::textChanged, this, &FmSelHang::TxtSelH_Change);
    TxtSelH->installEventFilter(this);
    // The row highlighted is the row taken, however it got there: mouse,
    // keys, typing, or the load. Enter or a double click on it chooses it.
    connect(lv1IP->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        SelectedValue = currentCode();
    });
    connect(lv1IP, &QListView::doubleClicked, this, &FmSelHang::choose);
    connect(CmdSel, &QPushButton::clicked, this, &FmSelHang::choose);
    connect(CmdQuit, &QPushButton::clicked, this, [this] {
        Chosen = false;
        reject();
    });
    EnterMovesToNextControl(this);
    lv1IP->installEventFilter(this);   // after the key preview, so that it sees Enter first
}

// The names' indexes for the folds typed text can take (without marks only
// while accent-blind search is on), built one after the other on a thread of
// their own over the list's names (shared, never copied). FindString asks for
// the one it needs and scans while it is not ready.
class FmSelHang::NameIndexes {
public:
    NameIndexes(const std::shared_ptr<const PackedStrings> &names, bool accentBlind)
        : m_thread([this, names, accentBlind] {
            if (accentBlind) {
                m_bare = std::make_unique<PrefixIndex>(names, BareFold(), &m_stop);
                m_bareReady.store(!m_stop, std::memory_order_release);
            }
            m_case = std::make_unique<PrefixIndex>(names, CaseFold(), &m_stop);
            m_caseReady.store(!m_stop, std::memory_order_release);
        })
    {
    }
    // A list closed or loaded again does not wait for an index it no longer needs.
    ~NameIndexes()
    {
        m_stop = true;
        Wait();
    }

    void Wait()
    {
        if (m_thread.joinable())
            m_thread.join();
    }
    // The index for the fold, or none while it is being built.
    const PrefixIndex *For(const char16_t *fold) const
    {
        if (fold == BareFold())
            return m_bareReady.load(std::memory_order_acquire) ? m_bare.get() : nullptr;
        return m_caseReady.load(std::memory_order_acquire) ? m_case.get() : nullptr;
    }

private:
    std::unique_ptr<PrefixIndex> m_bare, m_case;
    std::atomic<bool> m_bareReady{false}, m_caseReady{false}, m_stop{false};
    std::thread m_thread;   // last: started once the rest is in place
};

FmSelHang::~FmSelHang() = default;

void FmSelHang::WaitUntilIndexed()
{
    startIndexing();
    if (m_indexes)
        m_indexes->Wait();
}

void FmSelHang::startIndexing()
{
    if (!m_indexWaits)
        return;
    m_indexWaits = false;
    m_indexes = std::make_unique<NameIndexes>(m_rows->names(), m_accentBlind);
}

int FmSelHang::exec()
{
    Load();
    return QDialog::exec();
}

void FmSelHang::Load()
{
    ApplyFormSettings(this);
    m_accentBlind = AccentBlindSearchOn(CurrentConnection());
    ReadInfo(ListSql);
    SelectedValue = currentCode();
    Chosen = false;
    const int coded = m_rows->rowOfCode(CurrentCode);
    TxtSelH->setText(coded >= 0 ? QString() : SearchText);
    TxtSelH->setFocus();
    if (coded >= 0)
        selectRow(coded);
    else if (CurrentCode.isEmpty() && m_rows->rowCount() > 0)
        selectRow(0);
}

void FmSelHang::choose()
{
    Chosen = true;
    accept();
}

// Leaving by any way but Chọn gives no choice.
void FmSelHang::done(int result)
{
    if (!Chosen)
        SelectedValue.clear();
    QDialog::done(result);
}

qint32 FmSelHang::ReadInfo(const QString &Sql)
{
    Recordset rs;
    if (const qint32 n = OpenQuery(rs, Sql, Cursor::ForwardOnly); n != 0)
        return n;
    if (HasRows(rs)) {
        auto names = std::make_shared<PackedStrings>(), codes = std::make_shared<PackedStrings>();
        try {
            for (; !rs.Eof(); rs.MoveNext()) {
                // Names stored decomposed are matched and shown composed.
                const QString name = NullToStr(rs.Value(1)).normalized(QString::NormalizationForm_C);   // a single column is no list
                const QString code = NullToStr(rs.Value(0));
                names->append(name);
                codes->append(code);
            }
        } catch (const Error &e) {
            LogIgnored("A pick list of the rows read before a failure", e);
        }
        m_indexes.reset();   // stops building the index of the list before
        m_rows->reset(names, codes);
        m_indexWaits = true;
        QTimer::singleShot(0, this, &FmSelHang::startIndexing);
    }
    return 0;
}

qint32 FmSelHang::FindString(const QString &St) const
{
    const PrefixMatcher typed(St, m_accentBlind);
    if (const PrefixIndex *index = m_indexes ? m_indexes->For(typed.Fold()) : nullptr)
        return index->First(typed.Typed());
    const PackedStrings &names = *m_rows->names();
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (typed.Matches(names.at(i)))
            return qint32(i);
    }
    return -1;
}

void FmSelHang::TxtSelH_Change()
{
    selectRow(FindString(TxtSelH->text()));
}

void FmSelHang::selectRow(int row)
{
    if (row < 0) {
        lv1IP->setCurrentIndex(QModelIndex());
        lv1IP->clearSelection();
        return;
    }
    lv1IP->setCurrentIndex(m_rows->index(row));
    lv1IP->scrollTo(m_rows->index(row), QAbstractItemView::PositionAtTop);
}

QString FmSelHang::currentCode() const
{
    return m_rows->code(lv1IP->currentIndex().row());
}

// Up, Down, Page Up and Page Down typed in the name box move through the list
// and stay there.
bool FmSelHang::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == lv1IP && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && lv1IP->currentIndex().isValid()) {
            choose();
            return true;
        }
    }
    if (watched == TxtSelH && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down || key->key() == Qt::Key_PageUp
            || key->key() == Qt::Key_PageDown) {
            QKeyEvent copy(key->type(), key->key(), key->modifiers(), key->text());
            QApplication::sendEvent(lv1IP, &copy);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace zolt
