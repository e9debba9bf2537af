// SPDX-License-Identifier: MIT
#include "widgets/logon/QuoteGuard.h"

#include "core/database/Database.h"
#include "widgets/msgbox/MdlMsg.h"

#include <zolt/Error.h>

#include <QCoreApplication>
#include <QLineEdit>

namespace zolt {

QString QuoteRefused()
{
    return QCoreApplication::translate("zolt::QuoteGuard", "Tên và diễn giải không được chứa dấu nháy đơn (').");
}

bool RefuseQuote(QLineEdit *box, const QString &title)
{
    if (!BreaksQuotedLiteral(box->text()))
        return false;
    ShowMgBox(QuoteRefused(), 0, title, 0, false);
    box->setFocus();
    box->selectAll();
    return true;
}

void CheckQuotable(const QString &text)
{
    if (BreaksQuotedLiteral(text))
        throw Error(Error::DatabaseFailure, QuoteRefused());
}

} // namespace zolt
