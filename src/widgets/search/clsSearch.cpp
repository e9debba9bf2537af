// SPDX-License-Identifier: MIT
#include <zolt/clsSearch.h>

#include "core/database/Database.h"
#include "widgets/search/FrmFind.h"

#include <zolt/Error.h>

#include <QApplication>
#include <QPointer>

namespace zolt {

struct clsSearch::Private {
    QString connection;
    QString connectionName;   // of a QSqlDatabase the class was given; its dialog runs on it
    QString table;
    QString result;
    QString words;
};

clsSearch::clsSearch(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
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
    d->connectionName.clear();
}

void clsSearch::SetActiveConnection(const QSqlDatabase &Cnn)
{
    if (!Cnn.isValid())
        throw Error(Error::TypeMismatch);
    d->connection = ConnectionString(Cnn);
    d->connectionName = Cnn.connectionName();
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

QString clsSearch::ResultWords() const
{
    return d->words;
}

// Each showing loads a dialog afresh, except that a dialog still open without
// waiting, for the same table, is only brought to the front.
void clsSearch::Show(std::optional<qint32> Modal, QWidget *OwnerForm)
{
    static QList<QPointer<FrmFind>> modeless;
    modeless.removeAll(nullptr);
    if (!d->connectionName.isEmpty())
        UseConnection(QSqlDatabase::database(d->connectionName, false));
    d->result.clear();
    d->words.clear();
    if (Modal == 1) {
        FrmFind dialog(OwnerForm);
        dialog.TableName = d->table;
        dialog.exec();
        d->result = dialog.Result;
        d->words = dialog.ResultWords;
        Q_EMIT finished(d->result, d->words);
        return;
    }
    for (FrmFind *open : std::as_const(modeless)) {
        if (open->isVisible() && open->TableName == d->table) {
            open->raise();
            open->activateWindow();
            return;
        }
    }
    auto *dialog = new FrmFind(OwnerForm);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, dialog, &QObject::deleteLater);
    dialog->TableName = d->table;
    connect(dialog, &QDialog::finished, this, [this, dialog] { Q_EMIT finished(dialog->Result, dialog->ResultWords); });
    dialog->Load();
    dialog->show();
    modeless.append(dialog);
}

} // namespace zolt
