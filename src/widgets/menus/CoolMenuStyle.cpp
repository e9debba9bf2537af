// SPDX-License-Identifier: MIT
#include "widgets/menus/CoolMenuStyle.h"

#include "widgets/menus/CMyItemDatas.h"
#include "widgets/menus/mCoolMenu.h"
#include "widgets/menus/WndCoolMenu.h"
#include "widgets/platform/OleColor.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>

namespace zolt {

namespace {

// An item, left to right before mirroring: margin, check column (in menus
// with checkable items), picture column, caption, shortcut, submenu arrow.
constexpr int Margin = 3;
constexpr int CheckColumn = 22;
constexpr int PictureSize = 16;
constexpr int PictureColumn = PictureSize + 8;
constexpr int TextGap = 6;
constexpr int ShortcutGap = 24;
constexpr int ArrowColumn = 20;
constexpr int MenuVMargin = 2;   // above the first item and below the last
constexpr int SeparatorHeight = 9;

// Text that reads well on a background of that colour.
QColor InkOn(const QColor &background)
{
    return qGray(background.rgb()) < 150 ? QColor(Qt::white) : QColor(Qt::black);
}

// How bright a colour looks, and how two colours stand apart, as the usual
// accessibility guidance reckons them (1:1 to 21:1).
double Luminance(const QColor &c)
{
    const auto linear = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

double Contrast(const QColor &a, const QColor &b)
{
    const double la = Luminance(a), lb = Luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// A disabled item's text on the selection: black or white, whichever stands
// out more, dimmed toward the selection as far as it still reads at 4.5:1.
QColor DisabledInkOn(const QColor &selection)
{
    const QColor ink = Contrast(Qt::black, selection) > Contrast(Qt::white, selection) ? QColor(Qt::black)
                                                                                       : QColor(Qt::white);
    QColor dimmed = ink;
    for (int step = 1; step <= 10; ++step) {   // at most halfway
        const double t = step / 20.0;
        const QColor next = QColor::fromRgbF(float(ink.redF() + (selection.redF() - ink.redF()) * t),
                                             float(ink.greenF() + (selection.greenF() - ink.greenF()) * t),
                                             float(ink.blueF() + (selection.blueF() - ink.blueF()) * t));
        if (Contrast(next, selection) < 4.5)
            break;
        dimmed = next;
    }
    return dimmed;
}

// The band behind a highlighted disabled item: a light tint of the
// selection, so that it is told from an enabled one at a glance, while its
// caption (dimmed as far as it reads) stays readable on it.
QColor DisabledBand(const QColor &selection, const QColor &menu)
{
    const auto mix = [](float a, float b) { return a * 0.25f + b * 0.75f; };
    return QColor::fromRgbF(mix(selection.redF(), menu.redF()), mix(selection.greenF(), menu.greenF()),
                            mix(selection.blueF(), menu.blueF()));
}

// The picture's shape in one colour, at the picture's own pixel ratio.
QImage Silhouette(const QPixmap &picture, const QColor &colour)
{
    QImage shape(picture.size(), QImage::Format_ARGB32_Premultiplied);
    shape.setDevicePixelRatio(picture.devicePixelRatio());
    shape.fill(Qt::transparent);
    QPainter painter(&shape);
    painter.drawPixmap(0, 0, picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(0, 0), picture.deviceIndependentSize().toSize()), colour);
    painter.end();
    return shape;
}

// The width of a caption as drawn: "&" marks the mnemonic, a "\t" part is the shortcut's.
int CaptionWidth(const QFontMetrics &metrics, const QString &text)
{
    return metrics.boundingRect(QRect(), Qt::TextSingleLine | Qt::TextShowMnemonic, text.section(u'\t', 0, 0)).width();
}

QRect Centred(const QRect &area, int width, int height)
{
    return QRect(area.left() + (area.width() - width) / 2, area.top() + (area.height() - height) / 2, width, height);
}

} // namespace

CoolMenuStyle::CoolMenuStyle(const WndCoolMenu &wnd)
    : QProxyStyle(QStyleFactory::create(QApplication::style()->name()))
    , m_wnd(wnd)
{
}

QSize CoolMenuStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                      const QWidget *widget) const
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (type == CT_MenuItem && item && qobject_cast<const QMenu *>(widget))
        return OnMeasureItem(*item, size);
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

// QMenu measures the caption (in the menu's font, which is the window's) and
// adds the widest shortcut to the widest item; the rest is measured here.
QSize CoolMenuStyle::OnMeasureItem(const QStyleOptionMenuItem &item, const QSize &caption) const
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return QSize(PictureColumn, SeparatorHeight);
    const bool bold = item.menuItemType == QStyleOptionMenuItem::DefaultItem;
    const QFontMetrics metrics(bold ? m_wnd.MenuFontSep : m_wnd.MenuFont);
    const int captionWidth = bold ? CaptionWidth(metrics, item.text) : caption.width();
    const int width = Margin + (item.menuHasCheckableItems ? CheckColumn : 0) + PictureColumn + TextGap + captionWidth
        + (item.text.contains(u'\t') ? ShortcutGap : 0) + ArrowColumn + Margin;
    return QSize(width, qMax(metrics.height() + 8, PictureSize + 6));
}

void CoolMenuStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                                const QWidget *widget) const
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    const QAction *action = nullptr;
    const CMyItemData *data = item ? ItemAt(*item, widget, &action) : nullptr;
    if (element == CE_MenuItem && data) {
        OnDrawItem(*item, painter, *action, *data);
    } else if (element == CE_MenuBarItem && data) {
        DrawMenuBarItem(*item, painter);
    } else {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

int CoolMenuStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    if (metric == PM_MenuVMargin && qobject_cast<const QMenu *>(widget))
        return MenuVMargin;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int CoolMenuStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                             QStyleHintReturn *returnData) const
{
    // Disabled items are highlighted too, so that their help shows.
    if (hint == SH_Menu_AllowActiveAndDisabled)
        return true;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

// The converted item drawn at the option's place; nullptr for one the library did not convert.
const CMyItemData *CoolMenuStyle::ItemAt(const QStyleOptionMenuItem &item, const QWidget *widget,
                                         const QAction **action) const
{
    if (const auto *menu = qobject_cast<const QMenu *>(widget))
        *action = menu->actionAt(item.rect.center());
    else if (const auto *bar = qobject_cast<const QMenuBar *>(widget))
        *action = bar->actionAt(item.rect.center());
    const CMyItemDatas *items = ItemDatas();
    return *action && items ? items->Item(*action) : nullptr;
}

void CoolMenuStyle::OnDrawItem(const QStyleOptionMenuItem &item, QPainter *painter, const QAction &action,
                               const CMyItemData &data) const
{
    const QRect &r = item.rect;
    const Qt::LayoutDirection direction = item.direction;
    painter->save();
    if (data.fType == MftSeparator) {   // an etched line under the captions
        const int y = r.center().y();
        const int left = r.left() + Margin + PictureColumn;
        const QRect line = visualRect(direction, r, QRect(left, y, r.right() - Margin - left + 1, 1));
        painter->fillRect(line, item.palette.color(QPalette::Mid));
        painter->fillRect(line.translated(0, 1), item.palette.color(QPalette::Light));
        painter->restore();
        return;
    }
    const bool enabled = item.state & State_Enabled;
    const bool selected = item.state & State_Selected;
    const QFont font = item.menuItemType == QStyleOptionMenuItem::DefaultItem ? m_wnd.MenuFontSep : m_wnd.MenuFont;
    const QString caption = item.text.section(u'\t', 0, 0);
    const QString shortcut = item.text.section(u'\t', 1);

    int x = r.left() + Margin;
    const QRect check(x, r.top(), item.menuHasCheckableItems ? CheckColumn : 0, r.height());
    x += check.width();
    const QRect picture(x, r.top(), PictureColumn, r.height());
    x += PictureColumn + TextGap;
    const QRect text(x, r.top(), r.right() - Margin - ArrowColumn - x + 1, r.height());
    const QRect arrow(text.right() + 1, r.top(), ArrowColumn, r.height());

    // The caption stands on the selection; the other parts only when it is full.
    // A disabled item's selection is a tint inside an outline of the selection's colour.
    const QColor selection = OleColorToQColor(m_wnd.SelectColor, item.palette);
    const QColor behind = enabled ? selection : DisabledBand(selection, item.palette.color(QPalette::Window));
    const QColor disabled = item.palette.color(QPalette::Disabled, QPalette::Text);
    const QColor plain = enabled ? OleColorToQColor(m_wnd.ForeColor, item.palette) : disabled;
    const QColor onSelection = enabled ? InkOn(behind) : DisabledInkOn(behind);
    const QColor ink = selected && m_wnd.FullSelect ? onSelection : plain;
    if (selected) {
        const QRect band = visualRect(direction, r,
                                      m_wnd.FullSelect ? r.adjusted(Margin, 0, -Margin, 0)
                                                       : QRect(text.left() - 3, r.top() + 1,
                                                               CaptionWidth(QFontMetrics(font), caption) + 6, r.height() - 2));
        painter->fillRect(band, behind);
        if (!enabled) {
            painter->setPen(selection);
            painter->drawRect(band.adjusted(0, 0, -1, -1));
        }
    }
    if (data.bAsCheck || data.bAsMark)
        DrawCheck(painter, visualRect(direction, r, check.width() ? check : picture), item, data.bAsMark, ink);
    DrawPicture(painter, visualRect(direction, r, picture), item, action, data);

    int flags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextShowMnemonic;
    if (!proxy()->styleHint(SH_UnderlineShortcut, &item, nullptr))
        flags |= Qt::TextHideMnemonic;
    painter->setFont(font);
    painter->setPen(selected ? onSelection : plain);
    const QRect textPlace = visualRect(direction, r, text);
    painter->drawText(textPlace, flags | visualAlignment(direction, Qt::AlignLeft), caption);
    painter->setPen(ink);
    if (!shortcut.isEmpty()) {
        painter->drawText(textPlace, Qt::AlignVCenter | Qt::TextSingleLine | visualAlignment(direction, Qt::AlignRight),
                          shortcut);
    }
    if (data.bTrueSub) {   // a solid arrow towards where the submenu opens
        const QRectF place = visualRect(direction, r, arrow);
        const qreal tip = direction == Qt::RightToLeft ? -3.5 : 3.5;
        QPainterPath path;
        path.moveTo(place.center() + QPointF(-tip, -4));
        path.lineTo(place.center() + QPointF(tip, 0));
        path.lineTo(place.center() + QPointF(-tip, 4));
        path.closeSubpath();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->fillPath(path, ink);
    }
    painter->restore();
}

// A check mark or a radio mark: sunken in a box of its own with ComplexChecks,
// else the bare mark in the text's colour.
void CoolMenuStyle::DrawCheck(QPainter *painter, const QRect &column, const QStyleOptionMenuItem &item, bool mark,
                              QColor ink) const
{
    const QRect box = Centred(column, 13, 13);
    painter->setRenderHint(QPainter::Antialiasing);
    if (m_wnd.ComplexChecks) {   // sunken: an edge all round, a shadow inside at the top and left
        const bool enabled = item.state & State_Enabled;
        const QBrush inside = item.palette.brush(enabled ? QPalette::Active : QPalette::Disabled, QPalette::Base);
        const QColor edge = item.palette.color(QPalette::Mid);
        const QColor shadow = item.palette.color(QPalette::Dark);
        if (mark) {
            const QRectF circle = QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5);
            painter->setPen(edge);
            painter->setBrush(inside);
            painter->drawEllipse(circle);
            painter->setPen(shadow);
            painter->setBrush(Qt::NoBrush);
            painter->drawArc(circle.adjusted(1, 1, -1, -1), 45 * 16, 180 * 16);
        } else {
            painter->fillRect(box, inside);
            painter->fillRect(QRect(box.left(), box.top(), box.width(), 1), edge);
            painter->fillRect(QRect(box.left(), box.bottom(), box.width(), 1), edge);
            painter->fillRect(QRect(box.left(), box.top(), 1, box.height()), edge);
            painter->fillRect(QRect(box.right(), box.top(), 1, box.height()), edge);
            painter->fillRect(QRect(box.left() + 1, box.top() + 1, box.width() - 2, 1), shadow);
            painter->fillRect(QRect(box.left() + 1, box.top() + 1, 1, box.height() - 2), shadow);
        }
        ink = item.palette.color(enabled ? QPalette::Active : QPalette::Disabled, QPalette::Text);
    }
    if (!item.checked)
        return;
    const QPointF centre = QRectF(box).center();
    if (mark) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(ink);
        painter->drawEllipse(centre, 2.5, 2.5);
        return;
    }
    QPainterPath tick;
    tick.moveTo(centre + QPointF(-3.5, 0));
    tick.lineTo(centre + QPointF(-1, 2.5));
    tick.lineTo(centre + QPointF(3.5, -2.5));
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(tick);
}

// The item's picture: from the image list by iButton, else the action's own
// icon. A disabled item's picture is embossed (ColorEmbossed) or greyed.
void CoolMenuStyle::DrawPicture(QPainter *painter, const QRect &column, const QStyleOptionMenuItem &item,
                                const QAction &action, const CMyItemData &data) const
{
    const QIcon picture = data.iButton >= 0 && data.iButton < m_wnd.ilHandle.size() ? m_wnd.ilHandle.at(data.iButton)
                                                                                   : item.icon;
    if (picture.isNull())
        return;
    const QRect place = Centred(column, PictureSize, PictureSize);
    const QIcon::State state = action.isChecked() ? QIcon::On : QIcon::Off;
    if (item.state & State_Enabled) {
        if ((item.state & State_Selected) && !m_wnd.FullSelect)   // raised beside a text-only selection
            qDrawShadePanel(painter, place.adjusted(-2, -2, 2, 2), item.palette, false);
        picture.paint(painter, place, Qt::AlignCenter, QIcon::Normal, state);
    } else if (m_wnd.ColorEmbossed) {
        const QPixmap pixels = picture.pixmap(place.size(), painter->device()->devicePixelRatioF(), QIcon::Normal, state);
        painter->drawImage(place.topLeft() + QPoint(1, 1), Silhouette(pixels, item.palette.color(QPalette::Light)));
        painter->drawImage(place.topLeft(), Silhouette(pixels, item.palette.color(QPalette::Mid)));
    } else {
        picture.paint(painter, place, Qt::AlignCenter, QIcon::Disabled, state);
    }
}

void CoolMenuStyle::DrawMenuBarItem(const QStyleOptionMenuItem &item, QPainter *painter) const
{
    painter->save();
    painter->fillRect(item.rect, item.palette.window());
    QColor ink = OleColorToQColor(m_wnd.ForeColor, item.palette);
    if (item.state & State_Selected) {
        const QColor selection = OleColorToQColor(m_wnd.SelectColor, item.palette);
        painter->fillRect(item.rect.adjusted(0, 1, 0, -1), selection);
        ink = InkOn(selection);
    }
    if (!(item.state & State_Enabled))
        ink = item.palette.color(QPalette::Disabled, QPalette::Text);
    int flags = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine;
    if (!proxy()->styleHint(SH_UnderlineShortcut, &item, nullptr))
        flags |= Qt::TextHideMnemonic;
    painter->setFont(m_wnd.MenuFont);
    painter->setPen(ink);
    painter->drawText(item.rect, flags, item.text);
    painter->restore();
}

} // namespace zolt
