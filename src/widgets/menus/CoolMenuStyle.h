// SPDX-License-Identifier: MIT
#pragma once

// The look of an installed window's converted menus: items measured and
// drawn with the window's font and colours, a picture column, check marks
// and the submenu arrow; everything else is the application's own style.

#include <QProxyStyle>

class QMenu;
class QStyleOptionMenuItem;

namespace zolt {

struct CMyItemData;
class WndCoolMenu;

class CoolMenuStyle : public QProxyStyle {
public:
    explicit CoolMenuStyle(const WndCoolMenu &wnd);

    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override;

private:
    QSize OnMeasureItem(const QStyleOptionMenuItem &item, const QSize &caption) const;
    void OnDrawItem(const QStyleOptionMenuItem &item, QPainter *painter, const QAction &action,
                    const CMyItemData &data) const;
    void DrawMenuBarItem(const QStyleOptionMenuItem &item, QPainter *painter) const;
    void DrawCheck(QPainter *painter, const QRect &column, const QStyleOptionMenuItem &item, bool mark,
                   QColor ink) const;
    void DrawPicture(QPainter *painter, const QRect &column, const QStyleOptionMenuItem &item,
                     const QAction &action, const CMyItemData &data) const;
    const CMyItemData *ItemAt(const QStyleOptionMenuItem &item, const QWidget *widget, const QAction **action) const;

    const WndCoolMenu &m_wnd;
};

} // namespace zolt
