// SPDX-License-Identifier: MIT
#pragma once

#include <zolt/zolt_export.h>

#include <QObject>
#include <QSqlDatabase>
#include <QString>

#include <memory>
#include <optional>

class QWidget;

namespace zolt {

/// The search wizard for a host: the user composes a condition over
/// TableSearch from the fields its catalogue (table LstFld) offers, and Result
/// is that condition, to be put after WHERE; "" when the user cancelled.
/// 
/// The dialog's queries run on the QSqlDatabase the class was given with
/// SetActiveConnection, which becomes the library's connection when it shows;
/// given none (or only a description), on the library's connection, the one
/// that a logon entry point or Tesmir::FindShow was last given.
class ZOLT_EXPORT clsSearch : public QObject {
    Q_OBJECT

public:
    explicit clsSearch(QObject *parent = nullptr);   ///< A search with no table and no connection of its own.
    ~clsSearch() override;
    clsSearch(const clsSearch &) = delete;
    clsSearch &operator=(const clsSearch &) = delete;

    /// The description of the class's own connection, "" until one is set.
    QString ActiveConnection() const;
    /// A description alone: the dialog then runs on the library's connection.
    void SetActiveConnection(const QString &Cnn);
    /// The connection the dialog runs on; ActiveConnection describes it
    /// (driver, database, server, user). A QSqlDatabase without a driver
    /// raises zolt::Error 13.
    void SetActiveConnection(const QSqlDatabase &Cnn);

    /// The table whose catalogue rows (LstFld.InTable) the dialog offers.
    QString TableSearch() const;
    void SetTableSearch(const QString &TableName);   ///< \copydoc TableSearch()

    /// The condition left by the last Show, and the same as a clerk reads it
    /// ("Tên hàng bắt đầu bằng 'Bánh' và Giá lớn hơn 490.000"); ConditionSql
    /// makes the condition ready for the connection's engine.
    ///@{
    QString Result() const;
    QString ResultWords() const;
    ///@}

    /// Shows the dialog, transient for OwnerForm when given: modally when Modal
    /// is 1, else without waiting, in which case Result is read at once and is
    /// "" (finished tells the end). A dialog shown without
    /// waiting for the same table and still open is brought forward instead;
    /// any other call shows a dialog of its own.
    void Show(std::optional<qint32> Modal = std::nullopt, QWidget *OwnerForm = nullptr);

Q_SIGNALS:
    /// A dialog this class showed has ended: with its condition and the same
    /// in words after "Đồ&ng ý", with "" after "&Bỏ qua" or the close box. A
    /// search shown without waiting tells its end only so (Result stays "").
    void finished(const QString &condition, const QString &words);

private:
    struct Private;
    const std::unique_ptr<Private> d;
};

} // namespace zolt
