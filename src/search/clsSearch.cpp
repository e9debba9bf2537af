// SPDX-License-Identifier: MIT
#include <zolt/clsSearch.h>

#include "data/Database.h"
#include "search/FrmFind.h"

#include <QApplication>
#include <QPointer>

namespace zolt {

struct clsSearch::Private {
    QString connection;
    QString table;
    QString result;
};

clsSearch::clsSearch()
    : d(std::make_unique<Private>())
{
}

clsSearch::~clsSearch() = default;

QString clsSearch::ActiveConnection() const
{
    return d->connection;
}

void clsSearch::SetActiveConnection(const QString &Cnn)
{
    d->connection = Cnn;
}

void clsSearch::SetActiveConnection(const QSqlDatabase &Cnn)
{
    d->connection = ConnectionString(Cnn);
}

QString clsSearch::TableSearch() const
{
    return d->table;
}

void clsSearch::SetTableSearch(const QString &TableName)
{
    d->table = TableName;
}

QString clsSearch::Result() const
{
    return d->result;
}

// Each showing loads a dialog afresh, except that a dialog still open without
// waiting is only brought to the front: there is one search dialog at a time.
void clsSearch::Show(std::optional<qint32> Modal, QWidget *OwnerForm)
{
    static QPointer<FrmFind> open;
    if (open && open->isVisible()) {
        open->raise();
        open->activateWindow();
    } else if (Modal == 1) {
        FrmFind dialog(OwnerForm);
        dialog.TableName = d->table;
        dialog.exec();
        d->result = dialog.Result;
        return;
    } else {
        open = new FrmFind(OwnerForm);
        open->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, open, &QObject::deleteLater);
        open->TableName = d->table;
        open->Load();
        open->show();
    }
    d->result = open->Result;
}

} // namespace zolt
