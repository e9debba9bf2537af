// SPDX-License-Identifier: MIT
#include "Mnemonics.h"

#include <QAction>
#include <QList>
#include <QWidget>

namespace {

QChar bareLetter(QChar letter)
{
    if (letter == u'Đ' || letter == u'đ')
        return u'd';
    return QString(letter).normalized(QString::NormalizationForm_D).front().toLower();
}

} // namespace

QChar MnemonicKey(const QString &caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption.at(i) != u'&')
            continue;
        if (caption.at(i + 1) != u'&')
            return bareLetter(caption.at(i + 1));
        ++i;
    }
    return {};
}

void GiveMnemonics(QWidget *menu)
{
    QList<QChar> taken;
    for (const QAction *action : menu->actions())
        taken << MnemonicKey(action->text());
    for (QAction *action : menu->actions()) {
        const QString caption = action->text();
        if (action->isSeparator() || !MnemonicKey(caption).isNull())
            continue;
        QList<qsizetype> candidates;
        for (qsizetype i = 0; i < caption.size(); ++i) {
            if (caption.at(i).isLetter() && (i == 0 || caption.at(i - 1).isSpace()))
                candidates << i;
        }
        for (qsizetype i = 0; i < caption.size(); ++i) {
            if (caption.at(i).isLetter())
                candidates << i;
        }
        for (qsizetype at : candidates) {
            if (!taken.contains(bareLetter(caption.at(at)))) {
                taken << bareLetter(caption.at(at));
                action->setText(caption.left(at) + u'&' + caption.mid(at));
                break;
            }
        }
    }
}
