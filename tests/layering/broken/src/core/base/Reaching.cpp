// SPDX-License-Identifier: MIT
// A file the layering check must refuse twice: the core reaching up to the
// widgets, and the core including a widget of Qt.
#include "widgets/logon/FrmLogon.h"

#include <QWidget>
