// SPDX-License-Identifier: MIT
#include "Pictures.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <functional>

namespace {

// One picture on a 16 × 16 grid, painted at the given pixel ratio.
QPixmap paint(qreal ratio, const std::function<void(QPainter &)> &draw)
{
    QPixmap pixmap(QSize(16, 16) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return pixmap;
}

QIcon picture(const std::function<void(QPainter &)> &draw)
{
    QIcon icon;
    icon.addPixmap(paint(1, draw));
    icon.addPixmap(paint(2, draw));
    return icon;
}

void person(QPainter &p, QPointF at, const QColor &colour)
{
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawEllipse(at + QPointF(0, -3.5), 2.8, 2.8);
    QPainterPath body;
    body.moveTo(at + QPointF(-5, 6.5));
    body.cubicTo(at + QPointF(-5, 0.5), at + QPointF(5, 0.5), at + QPointF(5, 6.5));
    body.closeSubpath();
    p.drawPath(body);
}

void document(QPainter &p, const QColor &lines)
{
    p.setPen(QPen(QColor(90, 90, 90), 1));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(3.5, 1.5, 9, 13));
    p.setPen(QPen(lines, 1.2));
    for (qreal y : {5.0, 8.0, 11.0})
        p.drawLine(QPointF(5.5, y), QPointF(10.5, y));
}

} // namespace

QList<QIcon> demoPictures()
{
    return {
        picture([](QPainter &p) {   // Goods: a parcel
            p.setPen(QPen(QColor(120, 70, 20), 1));
            p.setBrush(QColor(222, 170, 100));
            p.drawRect(QRectF(2.5, 4.5, 11, 9));
            p.drawLine(QPointF(8, 4.5), QPointF(8, 13.5));
            p.drawLine(QPointF(2.5, 7.5), QPointF(13.5, 7.5));
        }),
        picture([](QPainter &p) { person(p, QPointF(8, 8), QColor(40, 100, 180)); }),   // Person
        picture([](QPainter &p) {   // People
            person(p, QPointF(10.5, 8.5), QColor(120, 160, 210));
            person(p, QPointF(6, 8), QColor(40, 100, 180));
        }),
        picture([](QPainter &p) { document(p, QColor(40, 100, 180)); }),   // Document
        picture([](QPainter &p) {   // Chart
            p.setPen(Qt::NoPen);
            const QColor colours[] = {QColor(60, 150, 60), QColor(230, 160, 30), QColor(200, 60, 50)};
            const qreal heights[] = {6, 10, 13};
            for (int i = 0; i < 3; ++i) {
                p.setBrush(colours[i]);
                p.drawRect(QRectF(2 + i * 4.5, 15 - heights[i], 3.5, heights[i]));
            }
        }),
        picture([](QPainter &p) {   // Key
            p.setPen(QPen(QColor(190, 140, 20), 2.2, Qt::SolidLine, Qt::RoundCap));
            p.setBrush(Qt::NoBrush);
            p.drawEllipse(QPointF(5, 8), 3, 3);
            p.drawLine(QPointF(8, 8), QPointF(14.5, 8));
            p.drawLine(QPointF(12.5, 8), QPointF(12.5, 11));
        }),
        picture([](QPainter &p) {   // Find: a magnifier
            p.setBrush(QColor(220, 235, 250));
            p.setPen(QPen(QColor(50, 70, 110), 1.8));
            p.drawEllipse(QPointF(6.5, 6.5), 4.5, 4.5);
            p.setPen(QPen(QColor(50, 70, 110), 2.6, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(10, 10), QPointF(14, 14));
        }),
        picture([](QPainter &p) {   // Filter: a funnel
            QPainterPath funnel;
            funnel.moveTo(1.5, 2.5);
            funnel.lineTo(14.5, 2.5);
            funnel.lineTo(9.5, 8.5);
            funnel.lineTo(9.5, 14);
            funnel.lineTo(6.5, 12.5);
            funnel.lineTo(6.5, 8.5);
            funnel.closeSubpath();
            p.setPen(QPen(QColor(40, 90, 150), 1));
            p.setBrush(QColor(110, 170, 230));
            p.drawPath(funnel);
        }),
        picture([](QPainter &p) {   // Again: a turning arrow
            p.setPen(QPen(QColor(50, 140, 70), 2, Qt::SolidLine, Qt::RoundCap));
            p.setBrush(Qt::NoBrush);
            p.drawArc(QRectF(2.5, 2.5, 11, 11), 60 * 16, 280 * 16);
            QPainterPath head;
            head.moveTo(9.5, 0.5);
            head.lineTo(13.5, 3.5);
            head.lineTo(9, 6);
            head.closeSubpath();
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(50, 140, 70));
            p.drawPath(head);
        }),
        picture([](QPainter &p) {   // Quit: a power sign
            p.setPen(QPen(QColor(200, 50, 40), 2, Qt::SolidLine, Qt::RoundCap));
            p.setBrush(Qt::NoBrush);
            p.drawArc(QRectF(2.5, 3, 11, 11), 120 * 16, 300 * 16);
            p.drawLine(QPointF(8, 1.5), QPointF(8, 7.5));
        }),
    };
}
