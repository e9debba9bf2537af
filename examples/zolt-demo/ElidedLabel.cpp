// SPDX-License-Identifier: MIT
#include "ElidedLabel.h"

void ElidedLabel::setWholeText(const QString &text)
{
    m_whole = text;
    setToolTip(text);
    elide();
}

void ElidedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide()
{
    setText(fontMetrics().elidedText(m_whole, Qt::ElideRight, contentsRect().width()));
}
