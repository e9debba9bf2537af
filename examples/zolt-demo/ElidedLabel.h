// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

// A line that ends in "…" where it is too long for its room, and shows the
// whole of it when the mouse rests on it.
class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;
    void setWholeText(const QString &text);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void elide();
    QString m_whole;
};
