// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "ElidedLabel.h"
#include "Mnemonics.h"

#include "Pictures.h"

#include <zolt/DriverSql.h>
#include <zolt/Enums.h>
#include <zolt/MenuRights.h>
#include <zolt/MessageBox.h>
#include <zolt/Tesmir.h>
#include <zolt/clsLogon.h>

#include <QActionGroup>
#include <QCloseEvent>
#include <QDate>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QSqlQuery>
#include <QSqlError>
#include <QSqlQueryModel>
#include <QSqlRecord>
#include <QStatusBar>
#include <QTableView>

#include <iterator>

namespace {

// The rows of Menu and SubMenu that stand for the library's administration.
enum : int { SystemBar = 4, UsersItem = 9, GroupsItem = 10, PasswordItem = 11 };

// The help and picture of each row of SubMenu, by its ID.
struct ItemLook {
    const char *help;
    Picture picture;
};
const ItemLook SubMenuLooks[] = {
    {QT_TRANSLATE_NOOP("MainWindow", "Thêm, sửa và xem danh mục hàng hoá"), Goods},
    {QT_TRANSLATE_NOOP("MainWindow", "Danh sách khách hàng và công nợ của từng khách"), Person},
    {QT_TRANSLATE_NOOP("MainWindow", "Danh sách nhà cung cấp hàng"), People},
    {QT_TRANSLATE_NOOP("MainWindow", "Lập phiếu nhập hàng vào kho"), Document},
    {QT_TRANSLATE_NOOP("MainWindow", "Lập phiếu xuất hàng khỏi kho"), Document},
    {QT_TRANSLATE_NOOP("MainWindow", "Lập hoá đơn bán hàng cho khách"), Document},
    {QT_TRANSLATE_NOOP("MainWindow", "Số lượng tồn của từng mặt hàng"), Chart},
    {QT_TRANSLATE_NOOP("MainWindow", "Doanh thu bán hàng của từng ngày"), Chart},
    {QT_TRANSLATE_NOOP("MainWindow", "Thêm, sửa, xoá người sử dụng chương trình"), Person},
    {QT_TRANSLATE_NOOP("MainWindow", "Nhóm người sử dụng và quyền của nhóm trên từng thực đơn"), People},
    {QT_TRANSLATE_NOOP("MainWindow", "Đổi mật khẩu đăng nhập của bạn"), Key},
};

void setLook(QAction *action, const QString &help, Picture picture)
{
    action->setStatusTip(help);
    action->setProperty("iButton", int(picture));
}

// The goods as a clerk reads them, on the screen and through a screen
// reader alike: prices "125.000", dates day first (kept as ISO text).
class GoodsModel : public QSqlQueryModel {
public:
    enum Column { Price = 3, Received = 4 };
    using QSqlQueryModel::QSqlQueryModel;

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::TextAlignmentRole && index.column() == Price)
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        const QVariant value = QSqlQueryModel::data(index, role);
        if (role != Qt::DisplayRole || value.isNull())
            return value;
        if (index.column() == Price)
            return zolt::Tesmir().CvNStr(QString::number(value.toLongLong()));
        if (index.column() == Received)
            return QDate::fromString(value.toString(), Qt::ISODate).toString(QStringLiteral("dd/MM/yyyy"));
        return value;
    }
};

QVariant scalar(const QSqlDatabase &db, const QString &sql, const QVariant &bound)
{
    QSqlQuery query(db);
    query.prepare(zolt::DriverSql(db, sql));
    query.addBindValue(bound);
    return query.exec() && query.next() ? query.value(0) : QVariant();
}

} // namespace

MainWindow::MainWindow(const QSqlDatabase &db, qint32 userCode, zolt::clsLogon &logon)
    : m_db(db)
    , m_logon(logon)
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(tr("Danh mục hàng hoá"));   // Qt appends the application's name

    m_user = scalar(db, QStringLiteral("SELECT [Name] FROM [User] WHERE Code = ?"), userCode).toString();
    m_goods = new GoodsModel(this);
    m_summary = new QLabel(this);
    m_filter = new ElidedLabel(this);
    m_filter->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(m_filter, 1);   // the menus' help takes its place while they are open
    statusBar()->addPermanentWidget(m_summary);
    showGoods(QString(), QString());
    const QStringList headers = {tr("Mã hàng"), tr("Tên hàng"),
                                 tr("Đơn vị"), tr("Giá bán"),
                                 tr("Ngày nhập")};
    for (int column = 0; column < headers.size(); ++column)
        m_goods->setHeaderData(column, Qt::Horizontal, headers.at(column));
    auto *table = new QTableView(this);
    table->setObjectName(QStringLiteral("Goods"));
    table->setAccessibleName(tr("Danh mục hàng hoá"));
    table->setModel(m_goods);
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
    addLookMenu();
    GiveMnemonics(menuBar());
    resize(820, 520);

    // The library draws the menus and tells the help of the highlighted item;
    // once the menus close, the status bar shows the filter again.
    m_coolMenu.Install(this, &m_help, demoPictures());
    connect(&m_help, &zolt::HelpCallBack::MenuHelp, this, [this](const QString &item, const QString &help, bool) {
        if (item.isEmpty())
            statusBar()->clearMessage();
        else
            statusBar()->showMessage(help);
    });
}

MainWindow::~MainWindow()
{
    m_coolMenu.Uninstall(this);
}

// The goods that meet the condition (all of them for ""), and their count;
// the status bar says the condition in words.
void MainWindow::showGoods(const QString &condition, const QString &words)
{
    // The wizard's condition, made ready for the engine once, compares text
    // as a clerk expects.
    const QString where = condition.isEmpty() ? QString() : QStringLiteral(" WHERE ") + zolt::ConditionSql(m_db, condition);
    QSqlQuery count(m_db);
    if (!count.exec(zolt::DriverSql(m_db, QStringLiteral("SELECT COUNT(*) FROM Hang")) + where) || !count.next()) {
        zolt::MessageBox::warning(this, QString(),
                                  tr("Không lọc được danh mục: %1").arg(count.lastError().text()));
        return;
    }
    m_goods->setQuery(zolt::DriverSql(m_db, QStringLiteral("SELECT MaHang, TenHang, DonVi, GiaBan, NgayNhap FROM Hang")) + where
                          + QStringLiteral(" ORDER BY MaHang"),
                      m_db);
    m_summary->setText(tr("Người sử dụng: %1   —   %2 mặt hàng")
                           .arg(m_user, zolt::Tesmir().CvNStr(count.value(0).toString())));
    m_filter->setWholeText(words.isEmpty() ? QString() : tr("Lọc: %1").arg(words));
}

// The search wizard on the goods, open to every user.
void MainWindow::addSearchMenu()
{
    QMenu *search = menuBar()->addMenu(tr("&Tìm kiếm"));
    search->setObjectName(QStringLiteral("menuSearch"));
    QAction *find = search->addAction(tr("&Tìm hàng hoá..."), this, [this] {
        QString words;
        const QString condition = zolt::Tesmir().FindShow(m_db, QStringLiteral("Hang"), &words, this);
        if (!condition.isEmpty())
            showGoods(condition, words);
    });
    find->setObjectName(QStringLiteral("actionFind"));
    find->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F));
    setLook(find, tr("Lọc danh mục hàng theo tối đa bốn điều kiện"), Find);
    QAction *all = search->addAction(tr("&Bỏ lọc"), this, [this] { showGoods(QString(), QString()); });
    setLook(all, tr("Hiện lại toàn bộ danh mục hàng"), Filter);
}

// One menu per row of Menu; a sub-menu is enabled when its bit is set in the
// group's rights column for that menu. The system menu's sub-menus open the
// library's administration; the others are placeholders.
void MainWindow::addRightsMenus(qint32 group)
{
    QSqlQuery rights(m_db);
    rights.prepare(zolt::DriverSql(m_db, QStringLiteral("SELECT * FROM Groups WHERE Code = ?")));
    rights.addBindValue(group);
    const bool hasRights = rights.exec() && rights.next();

    QSqlQuery bars(zolt::DriverSql(m_db, QStringLiteral("SELECT ID, [Desc] FROM Menu ORDER BY ID")), m_db);
    for (int bar = 0; bars.next(); ++bar) {
        QMenu *menu = menuBar()->addMenu(bars.value(1).toString());
        menu->setObjectName(QStringLiteral("menu%1").arg(bars.value(0).toInt()));
        const QVariant mask = hasRights ? rights.value(3 + bar) : QVariant();
        QSqlQuery items(m_db);
        items.prepare(zolt::DriverSql(m_db, QStringLiteral("SELECT ID, [Desc] FROM SubMenu WHERE IdMenuBar = ? ORDER BY ID")));
        items.addBindValue(bars.value(0));
        items.exec();
        for (int bit = 0; items.next(); ++bit) {
            QAction *action = menu->addAction(items.value(1).toString());
            const int id = items.value(0).toInt();
            if (id >= 1 && id <= int(std::size(SubMenuLooks)))
                setLook(action, tr(SubMenuLooks[id - 1].help), SubMenuLooks[id - 1].picture);
            connectSubMenu(action, id);
            action->setEnabled(zolt::GetBit(mask, bit) == 1);
        }
        if (bars.value(0).toInt() == SystemBar)
            addSystemItems(menu);
        GiveMnemonics(menu);
    }
}

void MainWindow::connectSubMenu(QAction *action, int id)
{
    switch (id) {
    case UsersItem:
        action->setObjectName(QStringLiteral("actionUsers"));
        connect(action, &QAction::triggered, this, [this] { m_logon.UserManager(m_db, this); });
        break;
    case GroupsItem:
        action->setObjectName(QStringLiteral("actionGroups"));
        connect(action, &QAction::triggered, this, [this] { m_logon.ShowGroup(m_db, this); });
        break;
    case PasswordItem:
        action->setObjectName(QStringLiteral("actionPassword"));
        connect(action, &QAction::triggered, this, [this] { m_logon.ShowUser(m_db, m_user, this); });
        break;
    default:
        connect(action, &QAction::triggered, this, [this, name = action->text()] {
            zolt::MessageBox::information(this, QString(),
                                          tr("Chức năng «%1» có trong phiên bản sau.").arg(name));
        });
    }
}

// Logging on again and quitting are open to every user.
void MainWindow::addSystemItems(QMenu *system)
{
    system->addSeparator();
    QAction *again = system->addAction(tr("Đăng &nhập lại"), this, [this] {
        m_logonAgain = m_quitConfirmed = true;
        close();
    });
    again->setObjectName(QStringLiteral("actionLogonAgain"));
    setLook(again, tr("Đóng cửa sổ này và đăng nhập với tên khác"), Again);
    QAction *quit = system->addAction(tr("&Thoát"), this, &QWidget::close);
    quit->setObjectName(QStringLiteral("actionQuit"));
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    setLook(quit, tr("Thoát khỏi chương trình"), Quit);
}

// The menus' look, switched while the program runs.
void MainWindow::addLookMenu()
{
    QMenu *look = menuBar()->addMenu(tr("&Giao diện"));
    look->setObjectName(QStringLiteral("menuLook"));
    using Setting = bool (zolt::clsCoolMenu::*)(QWidget *, const std::optional<QVariant> &);
    const struct {
        const char *name, *caption, *help;
        Setting setting;
        bool on;
    } switches[] = {
        {"actionFullSelect", QT_TR_NOOP("Tô &cả dòng khi chọn"), QT_TR_NOOP("Tô màu chọn trên cả dòng, hoặc chỉ sau tên mục"),
         &zolt::clsCoolMenu::FullSelect, true},
        {"actionComplexChecks", QT_TR_NOOP("Ô đánh dấu &nổi"), QT_TR_NOOP("Vẽ dấu chọn trong ô lõm ba chiều"),
         &zolt::clsCoolMenu::ComplexChecks, true},
        {"actionColorEmbossed", QT_TR_NOOP("&Hình mờ nổi"), QT_TR_NOOP("Hình của mục bị khoá vẽ nổi, hoặc xám"),
         &zolt::clsCoolMenu::ColorEmbossed, true},
        {"actionRightToLeft", QT_TR_NOOP("Từ &phải sang trái"), QT_TR_NOOP("Thực đơn viết từ phải sang trái"),
         &zolt::clsCoolMenu::RightToLeft, false},
    };
    for (const auto &item : switches) {
        QAction *action = look->addAction(tr(item.caption));
        action->setObjectName(QLatin1String(item.name));
        action->setStatusTip(tr(item.help));
        action->setCheckable(true);
        action->setChecked(item.on);
        connect(action, &QAction::toggled, this, [this, setting = item.setting](bool on) { (m_coolMenu.*setting)(this, on); });
    }
    look->addSeparator();
    auto *sizes = new QActionGroup(look);
    for (const int size : {8, 9, 10}) {
        QAction *action = look->addAction(tr("Chữ cỡ &%1").arg(size));
        action->setStatusTip(tr("Chữ của thực đơn cỡ %1 điểm").arg(size));
        action->setCheckable(true);
        action->setChecked(size == 8);
        sizes->addAction(action);
        connect(action, &QAction::triggered, this, [this, size] { m_coolMenu.FontSize(this, size); });
    }
}

bool MainWindow::askToQuit()
{
    return zolt::MessageBox::question(this, QString(),
                                      tr("Bạn có muốn thoát khỏi chương trình không?"))
           == zolt::Answer::Yes;
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
