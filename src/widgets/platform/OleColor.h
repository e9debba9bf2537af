// SPDX-License-Identifier: MIT
#pragma once

// Colour numbers as the classic controls kept them: 0x00BBGGRR for a fixed
// colour, or 0x800000nn for system colour nn, taken here from the palette.

#include <QColor>
#include <QPalette>

namespace zolt {

constexpr qint32 SystemWindowColor = qint32(0x80000005u);       // a control's background
constexpr qint32 SystemWindowTextColor = qint32(0x80000008u);   // a control's text
constexpr qint32 SystemActiveCaptionColor = qint32(0x80000002u);
constexpr qint32 SystemCaptionTextColor = qint32(0x80000009u);

QColor OleColorToQColor(qint32 color, const QPalette &palette);

// The fixed colour number of a colour.
qint32 QColorToOleColor(const QColor &color);

} // namespace zolt
