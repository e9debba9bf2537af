// SPDX-License-Identifier: MIT
#pragma once

// A Microsoft Access (Jet) database file as libmdb reads it: its tables in
// the file's order, their columns, keys and indexes, and their rows as Qt
// values, each type without loss. Access 97 text is read byte for byte and
// decoded with the file's code page (or the one given); later versions'
// text as it is stored.

#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

namespace zolt::migrate {

struct AccessColumn {
    QString name;
    QString typeName;   // the file's name of its type ("Currency"), for the report
    QMetaType type;     // invalid for a type the reader cannot read
    int length = -1;    // characters of a text column; digits of a decimal
    int scale = -1;     // the decimal places of a decimal (a currency has 4)
};

struct AccessIndex {
    QString name;
    QStringList columns;
    bool primary = false;
    bool unique = false;
};

class AccessFile {
public:
    AccessFile();
    ~AccessFile();
    AccessFile(const AccessFile &) = delete;
    AccessFile &operator=(const AccessFile &) = delete;

    // Opens the file; codePage 0 takes the file's own. False, with the
    // reason, when libmdb cannot read it.
    bool open(const QString &path, int codePage, QString *error);
    void close();

    // The tables of the data (not the system's), in the file's order.
    QStringList tables() const;
    // The columns of a table, in order; a column of a type the reader cannot
    // read has an invalid type and reads as Null.
    QList<AccessColumn> columns(const QString &table) const;
    QList<AccessIndex> indexes(const QString &table) const;
    // What the file holds that could not be read, one sentence each.
    QStringList unreadable() const;

    // A table's rows, one at a time, in the file's order.
    class Rows {
    public:
        virtual ~Rows() = default;
        virtual bool next() = 0;
        virtual QVariant value(int column) const = 0;
    };
    // Nullptr, and the reason in unreadable(), when the table cannot be read.
    std::unique_ptr<Rows> rows(const QString &table) const;

private:
    class Handle;
    std::unique_ptr<Handle> d;
};

} // namespace zolt::migrate
