// SPDX-License-Identifier: MIT
#include "widgets/platform/OleColor.h"

namespace zolt {

namespace {

QPalette::ColorRole systemRole(int index)
{
    switch (index) {
    case 2: return QPalette::Highlight;          // active caption
    case 5: return QPalette::Base;               // window background
    case 8: return QPalette::Text;               // window text
    case 9: return QPalette::HighlightedText;    // caption text
    case 13: return QPalette::Highlight;
    case 14: return QPalette::HighlightedText;
    case 15: return QPalette::Button;
    case 18: return QPalette::ButtonText;
    default: return QPalette::Window;
    }
}

} // namespace

QColor OleColorToQColor(qint32 color, const QPalette &palette)
{
    const quint32 bits = quint32(color);
    if (bits & 0x80000000u)
        return palette.color(QPalette::Active, systemRole(int(bits & 0xFFu)));
    return QColor(int(bits & 0xFFu), int((bits >> 8) & 0xFFu), int((bits >> 16) & 0xFFu));
}

qint32 QColorToOleColor(const QColor &color)
{
    return qint32(quint32(color.red()) | quint32(color.green()) << 8 | quint32(color.blue()) << 16);
}

} // namespace zolt
