// SPDX-License-Identifier: MIT
#include "widgets/menus/WndCoolMenu.h"

#include "widgets/menus/CoolMenuStyle.h"
#include "widgets/menus/mCoolMenu.h"

#include <QApplication>
#include <QMenu>
#include <QWidget>

namespace zolt {

// A watched widget's own look, as it was before the library watched it.
struct WndCoolMenu::Look {
    QPointer<QWidget> widget;
    bool converted = false;
    QStyle *style = nullptr;   // set by its owner, else the application's
    bool hadFont = false;
    QFont font;
    bool hadDirection = false;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

WndCoolMenu::WndCoolMenu(QWidget *window)
    : hWnd(window)
    , m_style(std::make_unique<CoolMenuStyle>(*this))
{
    ApplySettings();
}

WndCoolMenu::~WndCoolMenu()
{
    for (const auto &[menu, look] : m_watched) {
        if (look.widget)
            Restore(look.widget, look);
    }
}

void WndCoolMenu::AddMenuHead(QMenu *hMenu)
{
    m_heads.append(hMenu);
}

int WndCoolMenu::CountMenuHeads() const
{
    return int(m_heads.size());
}

QMenu *WndCoolMenu::GetMenuHead(int HeadIndex) const
{
    return HeadIndex >= 0 && HeadIndex < m_heads.size() ? m_heads.at(HeadIndex).data() : nullptr;
}

void WndCoolMenu::Watch(QWidget *menu)
{
    if (IsWatched(menu))
        return;
    Look look;
    look.widget = menu;
    look.style = menu->testAttribute(Qt::WA_SetStyle) ? menu->style() : nullptr;
    look.hadFont = menu->testAttribute(Qt::WA_SetFont);
    look.font = menu->font();
    look.hadDirection = menu->testAttribute(Qt::WA_SetLayoutDirection);
    look.direction = menu->layoutDirection();
    connect(menu, &QObject::destroyed, this, [this, menu] { m_watched.erase(menu); });
    m_watched.emplace(menu, look);
    menu->installEventFilter(this);
    if (auto *popup = qobject_cast<QMenu *>(menu))
        connect(popup, &QMenu::aboutToShow, this, [this, popup] { OnInitPopup(*this, popup); });
}

bool WndCoolMenu::IsWatched(const QWidget *menu) const
{
    return m_watched.count(menu) != 0;
}

void WndCoolMenu::Convert(QWidget *menu)
{
    Watch(menu);
    m_watched.at(menu).converted = true;
    GiveLook(menu);
}

bool WndCoolMenu::IsConverted(const QWidget *menu) const
{
    const auto found = m_watched.find(menu);
    return found != m_watched.end() && found->second.converted;
}

void WndCoolMenu::ApplySettings()
{
    MenuFont = FontName.isEmpty() ? QApplication::font("QMenu") : QFont(FontName);
    MenuFont.setPointSize(FontSize > 0 ? FontSize : 8);
    MenuFontSep = MenuFont;
    MenuFontSep.setBold(true);
    for (const auto &[menu, look] : m_watched) {
        if (look.converted && look.widget)
            GiveLook(look.widget);
    }
}

void WndCoolMenu::GiveLook(QWidget *menu) const
{
    const Look &look = m_watched.at(menu);
    if (menu->style() != m_style.get())
        menu->setStyle(m_style.get());
    menu->setFont(MenuFont);
    if (RightToLeft)
        menu->setLayoutDirection(Qt::RightToLeft);
    else if (look.hadDirection)
        menu->setLayoutDirection(look.direction);
    else
        menu->unsetLayoutDirection();
    menu->update();
}

void WndCoolMenu::Restore(QWidget *menu, const Look &look)
{
    menu->removeEventFilter(this);
    if (!look.converted)
        return;
    menu->setStyle(look.style);
    menu->setFont(look.hadFont ? look.font : QFont());
    if (look.hadDirection)
        menu->setLayoutDirection(look.direction);
    else
        menu->unsetLayoutDirection();
}

bool WndCoolMenu::eventFilter(QObject *watched, QEvent *event)
{
    return WindowProc(*this, watched, event);
}

} // namespace zolt
