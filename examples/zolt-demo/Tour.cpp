// SPDX-License-Identifier: MIT
#include "Tour.h"

#include "Mnemonics.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QAbstractItemView>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>

#include <cstdio>

namespace {

constexpr int Patience = 30000;   // milliseconds a step may wait for its window

} // namespace

Tour::Tour(const QString &folder)
    : m_folder(folder)
{
    m_folder.mkpath(QStringLiteral("."));
    const auto logOn = [](const QString &user, const QString &password) {
        return [user, password](QWidget *logon) {
            logon->findChild<QLineEdit *>(QStringLiteral("Txtuser"))->clear();
            logon->findChild<QLineEdit *>(QStringLiteral("TxtPass"))->clear();
            typeInto(logon, "Txtuser", user);
            typeInto(logon, "TxtPass", password);
        };
    };
    const auto click = [](const char *button) { return [button](QWidget *window) { clickLater(window, button); }; };
    const auto trigger = [](const char *action) { return [action](QWidget *window) { triggerLater(window, action); }; };
    m_steps = {
        {QStringLiteral("FrmLogon"), QString(), logOn(QStringLiteral("admin"), QStringLiteral("sai"))},
        {QStringLiteral("FrmLogon"), QStringLiteral("01-logon"), click("CmdOk")},
        {QStringLiteral("MessageBox"), QStringLiteral("02-logon-refused"), click("Cmd1")},
    };
    // A name refused five times waits before its sixth try.
    for (int attempt = 1; attempt <= 6; ++attempt) {
        m_steps.append({QStringLiteral("FrmLogon"), QString(), logOn(QStringLiteral("khach"), QStringLiteral("sai"))});
        m_steps.append({QStringLiteral("FrmLogon"), QString(), click("CmdOk")});
        m_steps.append({QStringLiteral("MessageBox"), attempt == 6 ? QStringLiteral("02-logon-waiting") : QString(),
                        click("Cmd1")});
    }
    m_steps += {
        {QStringLiteral("FrmLogon"), QString(), logOn(QStringLiteral("admin"), QStringLiteral("admin"))},
        {QStringLiteral("FrmLogon"), QStringLiteral("03-logon-accepted"), click("CmdOk")},
        {QStringLiteral("MainWindow"), QStringLiteral("04-main-window"), [](QWidget *main) {
             checkMnemonics(main);
             checkGoodsRead(main);
             triggerLater(main, "actionFind");
         }},
        {QStringLiteral("FrmFind"), QString(), [](QWidget *find) {
             choose(find, "CmbFld(0)", 1);        // Tên hàng
             choose(find, "CmbPredicate(0)", 0);  // bắt đầu bằng
             typeInto(find, "MskValue(0)", QStringLiteral("banh"));   // typed without marks
             choose(find, "CmbFld(1)", 3);        // Giá bán
             choose(find, "CmbPredicate(1)", 0);  // lớn hơn
             typeInto(find, "MskValue(1)", QStringLiteral("100.000"));   // as the screen shows prices
             choose(find, "cmbLg(2)", 1);         // hoặc
             choose(find, "CmbFld(2)", 5);        // Nhà cung cấp
             choose(find, "CmbPredicate(2)", 0);  // bằng
             QWidget *value = find->findChild<QWidget *>(QStringLiteral("MskValue(2)"));
             value->setFocus();
             QApplication::postEvent(value, new QKeyEvent(QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier));
         }},
        {QStringLiteral("FmSelHang"), QString(), [](QWidget *pick) { typeInto(pick, "TxtSelH", QStringLiteral("nguyen")); }},
        {QStringLiteral("FmSelHang"), QStringLiteral("05-pick-list-nguyen"), [](QWidget *pick) {
             press(pick, "TxtSelH", Qt::Key_Down);   // the arrow moves the list, the keyboard stays
         }},
        {QStringLiteral("FmSelHang"), QStringLiteral("06-pick-list-arrowed"), [](QWidget *pick) {
             clickLater(pick, "CmdSel");   // takes the row highlighted
         }},
        {QStringLiteral("FrmFind"), QStringLiteral("07-search-three-rows"), click("CmdOK")},
        {QStringLiteral("MainWindow"), QStringLiteral("08-goods-filtered"), [](QWidget *main) { openMenu(main, "menu1", 0); }},
        {QStringLiteral("MainWindow"), QStringLiteral("09-menu"), [](QWidget *main) {
             toggle(main, "actionFullSelect");
             openMenu(main, "menu1", 0);
         }},
        {QStringLiteral("MainWindow"), QStringLiteral("10-menu-text-selection"), [](QWidget *main) {
             toggle(main, "actionFullSelect");
             openMenu(main, "menuLook", 1);
         }},
        {QStringLiteral("MainWindow"), QStringLiteral("11-menu-look"), [](QWidget *main) {
             toggle(main, "actionRightToLeft");
             openMenu(main, "menuLook", 3);
         }},
        {QStringLiteral("MainWindow"), QStringLiteral("12-menu-right-to-left"), [](QWidget *main) {
             toggle(main, "actionRightToLeft");
             triggerLater(main, "actionUsers");
         }},
        {QStringLiteral("FrmMenu"), QStringLiteral("13-user-list"), click("CmdAdd")},
        {QStringLiteral("FrmInput"), QString(), [](QWidget *editor) {
             typeInto(editor, "Txtuser", QStringLiteral("thungan"));
             typeInto(editor, "TxtPass", QStringLiteral("123"));
             typeInto(editor, "txtConfirm", QStringLiteral("123"));
             typeInto(editor, "TxtDes", QStringLiteral("Thu ngân quầy 1"));
             editor->findChild<QComboBox *>(QStringLiteral("TxtIdGroup"))->setCurrentIndex(1);
         }},
        {QStringLiteral("FrmInput"), QStringLiteral("14-user-adding"), click("CMDOK")},
        {QStringLiteral("FrmMenu"), QStringLiteral("15-user-added"), click("CmdExit")},
        {QStringLiteral("MainWindow"), QString(), trigger("actionGroups")},
        {QStringLiteral("FmGrp"), QString(), click("CmdAdd")},
        {QStringLiteral("FmGrp"), QStringLiteral("16-groups-adding"), click("CmdAdd")},
        {QStringLiteral("FmGrp"), QStringLiteral("17-groups"), [](QWidget *groups) {
             auto *list = groups->findChild<QAbstractItemView *>(QStringLiteral("Lv1"));
             list->setCurrentIndex(list->model()->index(1, 0));
             clickLater(groups, "CmdPms");
         }},
        {QStringLiteral("FrPms"), QString(), [](QWidget *rights) {
             rights->findChild<QListWidget *>(QStringLiteral("LstMenuBar"))->setCurrentRow(1);
         }},
        {QStringLiteral("FrPms"), QStringLiteral("18-menu-rights"), click("CmdOk")},
        {QStringLiteral("FmGrp"), QString(), click("CmdExit")},
        {QStringLiteral("MainWindow"), QString(), trigger("actionPassword")},
        {QStringLiteral("FrmInput"), QStringLiteral("19-own-password"), click("CMDCAN")},
        {QStringLiteral("MainWindow"), QString(), trigger("actionLogonAgain")},
        {QStringLiteral("FrmLogon"), QString(), logOn(QStringLiteral("thungan"), QStringLiteral("123"))},
        {QStringLiteral("FrmLogon"), QString(), click("CmdOk")},
        {QStringLiteral("MainWindow"), QStringLiteral("20-main-window-clerk"), [](QWidget *main) { openMenu(main, "menu1", 1); }},
        {QStringLiteral("MainWindow"), QStringLiteral("21-menu-disabled"), trigger("actionQuit")},
        {QStringLiteral("MessageBox"), QStringLiteral("22-message-box"), click("Cmd1")},
    };
    connect(&m_timer, &QTimer::timeout, this, &Tour::poll);
}

void Tour::start()
{
    m_clock.start();
    m_timer.start(50);
}

// The window a user would be looking at: the top modal dialog, else the
// active window, else the main window (the offscreen platform has no window
// manager to give it the keyboard back when a dialog closes).
QWidget *Tour::current()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->inherits("QMainWindow"))
            return window;
    }
    return nullptr;
}

void Tour::poll()
{
    if (finished())
        return;
    const Step &step = m_steps.at(m_next);
    QWidget *window = current();
    if (!window || window->objectName() != step.window) {
        if (m_clock.elapsed() > Patience) {
            std::fprintf(stderr, "tour: no window %s appeared (%s is active)\n", qPrintable(step.window),
                         window ? qPrintable(window->objectName()) : "none");
            QApplication::exit(1);
        }
        return;
    }
    ++m_next;
    m_clock.restart();
    if (!step.picture.isEmpty()) {
        const QString file = m_folder.filePath(step.picture + QStringLiteral(".png"));
        picture(window).save(file);
        std::printf("tour: %s\n", qPrintable(file));
    }
    step.act(window);
}

// Types the text key by key, as a user would.
void Tour::typeInto(QWidget *window, const char *field, const QString &text)
{
    auto *edit = window->findChild<QLineEdit *>(QLatin1String(field));
    edit->setFocus();
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(edit, &press);
        QApplication::sendEvent(edit, &release);
    }
}

// Presses a key in a field of the window.
void Tour::press(QWidget *window, const char *field, Qt::Key key)
{
    QWidget *edit = window->findChild<QWidget *>(QLatin1String(field));
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(edit, &press);
    QApplication::sendEvent(edit, &release);
}

// Every item of every menu has a mnemonic of its own within its menu, as the
// menus match typed letters (case and marks aside); the tour fails otherwise.
void Tour::checkMnemonics(QWidget *window)
{
    QList<QWidget *> menus = {window->findChild<QMenuBar *>()};
    for (QMenu *menu : window->findChildren<QMenu *>())
        menus << menu;
    for (const QWidget *menu : std::as_const(menus)) {
        QList<QChar> letters;
        for (const QAction *action : menu->actions()) {
            if (action->isSeparator())
                continue;
            const QChar letter = MnemonicKey(action->text());
            if (letter.isNull() || letters.contains(letter)) {
                std::fprintf(stderr, "tour: the menu item %s has no mnemonic of its own\n", qPrintable(action->text()));
                QApplication::exit(1);
            }
            letters << letter;
        }
    }
}

// The goods list reads to a screen reader as it shows: by its name, and each
// cell as displayed (prices "125.000", dates "01/01/2026"); the tour fails otherwise.
void Tour::checkGoodsRead(QWidget *window)
{
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(window->findChild<QWidget *>(QStringLiteral("Goods")));
    QAccessibleTableInterface *cells = list ? list->tableInterface() : nullptr;
    const auto cell = [cells](int column) {
        QAccessibleInterface *read = cells && cells->rowCount() > 0 ? cells->cellAt(0, column) : nullptr;
        return read ? read->text(QAccessible::Name) : QString();
    };
    const QRegularExpression price(QStringLiteral("^\\d{1,3}(\\.\\d{3})*$")), date(QStringLiteral("^\\d\\d/\\d\\d/\\d{4}$"));
    if (!cells || list->text(QAccessible::Name).isEmpty() || !price.match(cell(3)).hasMatch() || !date.match(cell(4)).hasMatch()) {
        std::fprintf(stderr, "tour: the goods list reads \"%s\": \"%s\", \"%s\"\n",
                     qPrintable(list ? list->text(QAccessible::Name) : QString()), qPrintable(cell(3)), qPrintable(cell(4)));
        QApplication::exit(1);
    }
}

// Chooses an entry of one of the library's data combos, as the mouse would.
void Tour::choose(QWidget *window, const char *combo, int index)
{
    window->findChild<QWidget *>(QLatin1String(combo))->findChild<QComboBox *>(QStringLiteral("Cmb1"))->setCurrentIndex(index);
}

// Triggers once the current step has returned: the action may open a modal dialog.
void Tour::triggerLater(QWidget *window, const char *action)
{
    QMetaObject::invokeMethod(window->findChild<QAction *>(QLatin1String(action)), &QAction::trigger,
                              Qt::QueuedConnection);
}

// Clicks once the current step has returned: the click may open a modal dialog.
void Tour::clickLater(QWidget *window, const char *button)
{
    QMetaObject::invokeMethod(window->findChild<QPushButton *>(QLatin1String(button)),
                              &QPushButton::click, Qt::QueuedConnection);
}

// Opens a menu of the window's menu bar with the mouse and highlights one of
// its items as the keyboard would; whatever menu was open closes first.
void Tour::openMenu(QWidget *window, const char *menu, int item)
{
    auto *popup = window->findChild<QMenu *>(QLatin1String(menu));
    window->findChild<QMenuBar *>()->setActiveAction(popup->menuAction());
    popup->setActiveAction(popup->actions().at(item));
}

// Triggers a checkable item of a menu and closes the open menus.
void Tour::toggle(QWidget *window, const char *action)
{
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    window->findChild<QAction *>(QLatin1String(action))->trigger();
}

// The window as a user sees it: with the menus open over it.
QPixmap Tour::picture(QWidget *window)
{
    QList<QWidget *> menus;
    QRect area = window->frameGeometry();
    for (QWidget *top : QApplication::topLevelWidgets()) {
        if (top->isVisible() && qobject_cast<QMenu *>(top)) {
            menus << top;
            area |= top->geometry();
        }
    }
    if (menus.isEmpty())
        return window->grab();
    const qreal ratio = window->devicePixelRatioF();
    QPixmap canvas(area.size() * ratio);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    painter.drawPixmap(window->geometry().topLeft() - area.topLeft(), window->grab());
    for (QWidget *menu : menus)
        painter.drawPixmap(menu->geometry().topLeft() - area.topLeft(), menu->grab());
    return canvas;
}
