// SPDX-License-Identifier: MIT
#pragma once

// One installed window: its style settings, the menus the library watches
// and draws, and their own look, given back when the record ends.

#include <zolt/HelpCallBack.h>

#include <QFont>
#include <QIcon>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <map>
#include <memory>

class QAction;
class QMenu;

namespace zolt {

class CoolMenuStyle;

class WndCoolMenu : public QObject {
    Q_OBJECT

public:
    explicit WndCoolMenu(QWidget *window);
    ~WndCoolMenu() override;

    // SCMainMenu's values besides a menu bar's address.
    static constexpr qintptr NoMenuBar = -1;

    QPointer<QWidget> hWnd;
    qintptr SCMainMenu = 0;        // the menu bar a document window replaces; NoMenuBar for none
    QList<QIcon> ilHandle;         // the pictures items name by iButton
    QPointer<HelpCallBack> HelpObj;
    QFont MenuFont;                // the items' font, made from FontName and FontSize
    QFont MenuFontSep;             // the same in bold, for a menu's default item
    qint32 FontSize = 8;
    qint32 ForeColor = 0;
    QString FontName;
    bool ColorEmbossed = true;
    bool RightToLeft = false;
    bool FullSelect = true;
    qint32 SelectColor = 0;
    bool ComplexChecks = true;
    QString MainPopedIndex;        // the menu bar item whose popup is open, "" for none

    void AddMenuHead(QMenu *hMenu);
    int CountMenuHeads() const;
    QMenu *GetMenuHead(int HeadIndex) const;

    // A menu or menu bar whose events the library handles from now on.
    void Watch(QWidget *menu);
    bool IsWatched(const QWidget *menu) const;
    // Gives a watched menu the library's style, font and direction.
    void Convert(QWidget *menu);
    bool IsConverted(const QWidget *menu) const;
    // Makes the fonts from the settings again and gives every converted menu
    // the settings' look.
    void ApplySettings();
    // The items the library keeps data for on this window's behalf.
    QSet<const QAction *> &Items() { return m_items; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Look;
    void GiveLook(QWidget *menu) const;
    void Restore(QWidget *menu, const Look &look);

    const std::unique_ptr<CoolMenuStyle> m_style;
    QList<QPointer<QMenu>> m_heads;
    std::map<const QWidget *, Look> m_watched;
    QSet<const QAction *> m_items;
};

} // namespace zolt
