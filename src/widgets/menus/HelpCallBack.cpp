// SPDX-License-Identifier: MIT
#include <zolt/HelpCallBack.h>

namespace zolt {

HelpCallBack::HelpCallBack(QObject *parent)
    : QObject(parent)
{
}

HelpCallBack::~HelpCallBack() = default;

void HelpCallBack::RaiseHelpEvent(const QString &MenuText, const QString &MenuHelp, bool Enabled)
{
    Q_EMIT this->MenuHelp(MenuText, MenuHelp, Enabled);
}

} // namespace zolt
