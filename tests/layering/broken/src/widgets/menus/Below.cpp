// SPDX-License-Identifier: MIT
// A file the layering check must accept: the widgets' top layer including
// from the layers below it and from Qt's widgets.
#include "core/base/Conversions.h"
#include "widgets/msgbox/MdlMsg.h"

#include <QtWidgets/QMenu>
