// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include <zolt/Enums.h>
#include <zolt/MenuRights.h>
#include <zolt/Tesmir.h>
#include <zolt/clsLogon.h>

#include <QCloseEvent>
#include <QDate>
#include <QHeaderView>
#include <QMenuBar>
#include <QSqlQuery>
#include <QSqlError>
#include <QSqlQueryModel>
#include <QSqlRecord>
#include <QStatusBar>
#include <QStyledItemDelegate>
#include <QTableView>

namespace {

// The rows of Menu and SubMenu that stand for the library's administration.
enum : int { SystemBar = 4, UsersItem = 9, GroupsItem = 10, PasswordItem = 11 };

// Prices as a Vietnamese clerk reads them: "125.000".
class PriceDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant &value, const QLocale &) const override
    {
        return zolt::Tesmir().CvNStr(QString::number(value.toLongLong()));
    }
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->displayAlignment = Qt::AlignRight | Qt::AlignVCenter;
    }
};

// Dates are kept as ISO text and read day first.
class DateDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant &value, const QLocale &) const override
    {
        return QDate::fromString(value.toString(), Qt::ISODate).toString(QStringLiteral("dd/MM/yyyy"));
    }
};

QVariant scalar(const QSqlDatabase &db, const QString &sql, const QVariant &bound)
{
    QSqlQuery query(db);
    query.prepare(sql);
    query.addBindValue(bound);
    return query.exec() && query.next() ? query.value(0) : QVariant();
}

} // namespace

MainWindow::MainWindow(const QSqlDatabase &db, qint32 userCode, zolt::clsLogon &logon)
    : m_db(db)
    , m_logon(logon)
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Danh mục hàng hoá"));   // Qt appends the application's name

    m_user = scalar(db, QStringLiteral("SELECT [Name] FROM [User] WHERE Code = ?"), userCode).toString();
    m_goods = new QSqlQueryModel(this);
    showGoods(QString());
    const QStringList headers = {QStringLiteral("Mã hàng"), QStringLiteral("Tên hàng"),
                                 QStringLiteral("Đơn vị"), QStringLiteral("Giá bán"),
                                 QStringLiteral("Ngày nhập")};
    for (int column = 0; column < headers.size(); ++column)
        m_goods->setHeaderData(column, Qt::Horizontal, headers.at(column));
    auto *table = new QTableView(this);
    table->setModel(m_goods);
    table->setItemDelegateForColumn(3, new PriceDelegate(table));
    table->setItemDelegateForColumn(4, new DateDelegate(table));
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    table->resizeColumnToContents(0);
    table->setColumnWidth(3, 110);
    setCentralWidget(table);

    const qint32 group = scalar(db, QStringLiteral("SELECT IdGroup FROM [User] WHERE Code = ?"), userCode).toInt();
    addRightsMenus(group);
    addSearchMenu();
    resize(820, 520);
}

// The goods that meet the condition (all of them for ""), and their count.
void MainWindow::showGoods(const QString &condition)
{
    const QString where = condition.isEmpty() ? QString() : QStringLiteral(" WHERE ") + condition;
    QSqlQuery count(m_db);
    if (!count.exec(QStringLiteral("SELECT COUNT(*) FROM Hang") + where) || !count.next()) {
        m_logon.MgBox(QStringLiteral("Không lọc được danh mục: ") + count.lastError().text(), zolt::vbOKOnly,
                      QStringLiteral("Bán hàng ZOLT"), zolt::vbExclamation);
        return;
    }
    m_goods->setQuery(QStringLiteral("SELECT MaHang, TenHang, DonVi, GiaBan, NgayNhap FROM Hang") + where
                          + QStringLiteral(" ORDER BY MaHang"),
                      m_db);
    QString status = QStringLiteral("Người sử dụng: %1   —   %2 mặt hàng")
                         .arg(m_user, zolt::Tesmir().CvNStr(count.value(0).toString()));
    if (!condition.isEmpty())
        status += QStringLiteral("   —   lọc theo ") + condition;
    statusBar()->showMessage(status);
}

// The search wizard on the goods, open to every user.
void MainWindow::addSearchMenu()
{
    QMenu *search = menuBar()->addMenu(QStringLiteral("&Tìm kiếm"));
    QAction *find = search->addAction(QStringLiteral("&Tìm hàng hoá..."), this, [this] {
        const QString condition = zolt::Tesmir().FindShow(m_db, QStringLiteral("Hang"));
        if (!condition.isEmpty())
            showGoods(condition);
    });
    find->setObjectName(QStringLiteral("actionFind"));
    find->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F));
    search->addAction(QStringLiteral("&Bỏ lọc"), this, [this] { showGoods(QString()); });
}

// One menu per row of Menu; a sub-menu is enabled when its bit is set in the
// group's rights column for that menu. The system menu's sub-menus open the
// library's administration; the others are placeholders.
void MainWindow::addRightsMenus(qint32 group)
{
    QSqlQuery rights(m_db);
    rights.prepare(QStringLiteral("SELECT * FROM Groups WHERE Code = ?"));
    rights.addBindValue(group);
    const bool hasRights = rights.exec() && rights.next();

    QSqlQuery bars(QStringLiteral("SELECT ID, [Desc] FROM Menu ORDER BY ID"), m_db);
    for (int bar = 0; bars.next(); ++bar) {
        QMenu *menu = menuBar()->addMenu(QLatin1Char('&') + bars.value(1).toString());
        const QVariant mask = hasRights ? rights.value(3 + bar) : QVariant();
        QSqlQuery items(m_db);
        items.prepare(QStringLiteral("SELECT ID, [Desc] FROM SubMenu WHERE IdMenuBar = ? ORDER BY ID"));
        items.addBindValue(bars.value(0));
        items.exec();
        for (int bit = 0; items.next(); ++bit) {
            QAction *action = menu->addAction(items.value(1).toString());
            connectSubMenu(action, items.value(0).toInt());
            action->setEnabled(zolt::GetBit(mask, bit) == 1);
        }
        if (bars.value(0).toInt() == SystemBar)
            addSystemItems(menu);
    }
}

void MainWindow::connectSubMenu(QAction *action, int id)
{
    switch (id) {
    case UsersItem:
        action->setObjectName(QStringLiteral("actionUsers"));
        connect(action, &QAction::triggered, this, [this] { m_logon.UserManager(m_db); });
        break;
    case GroupsItem:
        action->setObjectName(QStringLiteral("actionGroups"));
        connect(action, &QAction::triggered, this, [this] { m_logon.ShowGroup(m_db); });
        break;
    case PasswordItem:
        action->setObjectName(QStringLiteral("actionPassword"));
        connect(action, &QAction::triggered, this, [this] { m_logon.ShowUser(m_db, m_user); });
        break;
    default:
        connect(action, &QAction::triggered, this, [this, name = action->text()] {
            m_logon.MgBox(QStringLiteral("Chức năng \u00ab%1\u00bb có trong phiên bản sau.").arg(name),
                          zolt::vbOKOnly, QStringLiteral("Bán hàng ZOLT"), zolt::vbInformation);
        });
    }
}

// Logging on again and quitting are open to every user.
void MainWindow::addSystemItems(QMenu *system)
{
    system->addSeparator();
    QAction *again = system->addAction(QStringLiteral("Đăng &nhập lại"), this, [this] {
        m_logonAgain = m_quitConfirmed = true;
        close();
    });
    again->setObjectName(QStringLiteral("actionLogonAgain"));
    QAction *quit = system->addAction(QStringLiteral("&Thoát"), this, &QWidget::close);
    quit->setObjectName(QStringLiteral("actionQuit"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

bool MainWindow::askToQuit()
{
    return m_logon.MgBox(QStringLiteral("Bạn có muốn thoát khỏi chương trình không?"), zolt::vbYesNo,
                         QStringLiteral("Bán hàng ZOLT"), zolt::vbQuestion) == QLatin1String("6");
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_quitConfirmed || askToQuit()) {
        m_quitConfirmed = true;
        event->accept();
    } else {
        event->ignore();
    }
}
