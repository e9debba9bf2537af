// SPDX-License-Identifier: MIT
#include "AccessDriver.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlRecord>
#include <QSqlResult>

namespace zolt::migrate {

namespace {

const QString Quoted = QStringLiteral(R"("(?:[^"]|"")*")");

QString unquoted(QStringView quoted)
{
    return quoted.mid(1, quoted.size() - 2).toString().replace(QStringLiteral("\"\""), QStringLiteral("\""));
}

QSqlField fieldOf(const AccessColumn &column, const QString &table)
{
    QSqlField field(column.name, column.type, table);
    field.setLength(column.length);
    field.setPrecision(column.scale);
    return field;
}

// A statement the tool asks of a source: COUNT(*), * or named columns, FROM one table.
struct Select {
    QString table;
    bool count = false;
    QStringList columns;   // none for *
};

bool parse(const QString &sql, Select *select)
{
    static const QRegularExpression shape(QStringLiteral(R"(^\s*SELECT\s+(COUNT\(\*\)|\*|%1(?:\s*,\s*%1)*)\s+FROM\s+(%1)\s*$)")
                                              .arg(Quoted),
                                          QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = shape.match(sql);
    if (!match.hasMatch())
        return false;
    select->table = unquoted(match.capturedView(2));
    const QStringView what = match.capturedView(1);
    select->count = what.startsWith(u'C') || what.startsWith(u'c');
    static const QRegularExpression name(Quoted);
    if (what.startsWith(u'"')) {
        for (const QRegularExpressionMatch &column : name.globalMatch(what))
            select->columns << unquoted(column.capturedView());
    }
    return true;
}

class AccessResult : public QSqlResult {
public:
    explicit AccessResult(const AccessDriver *driver)
        : QSqlResult(driver)
        , m_file(driver->file())
    {
    }

protected:
    bool reset(const QString &sql) override
    {
        setAt(QSql::BeforeFirstRow);
        m_rows.reset();
        m_record.clear();
        m_positions.clear();
        m_count.reset();
        Select select;
        if (!parse(sql, &select) || !m_file.tables().contains(select.table))
            return fail(QStringLiteral("An Access file is read only by SELECT COUNT(*), * or columns FROM a table: ") + sql);
        const QList<AccessColumn> columns = m_file.columns(select.table);
        if (select.count) {
            m_count = count(select.table);
            m_record.append(QSqlField(QStringLiteral("COUNT(*)"), QMetaType(QMetaType::LongLong)));
        } else {
            for (int i = 0; i < columns.size(); ++i) {
                const bool named = select.columns.isEmpty() ? columns[i].type.isValid() : select.columns.contains(columns[i].name);
                if (!named)
                    continue;
                m_positions << i;
                m_record.append(fieldOf(columns[i], select.table));
            }
            if (!select.columns.isEmpty() && m_positions.size() != select.columns.size())
                return fail(QStringLiteral("No such column in %1: ").arg(select.table) + sql);
            m_rows = m_file.rows(select.table);
            if (!m_rows)
                return fail(QStringLiteral("libmdb cannot read the table ") + select.table);
        }
        setSelect(true);
        setActive(true);
        return true;
    }

    bool fetch(int i) override { return i == at() + 1 && fetchNext(); }
    bool fetchFirst() override { return at() == QSql::BeforeFirstRow && fetchNext(); }
    bool fetchLast() override { return false; }   // rows are read forward only

    bool fetchNext() override
    {
        const bool got = m_count ? at() == QSql::BeforeFirstRow : m_rows && m_rows->next();
        setAt(got ? at() + 1 : QSql::AfterLastRow);
        return got;
    }

    QVariant data(int field) override
    {
        if (m_count)
            return *m_count;
        return field >= 0 && field < m_positions.size() ? m_rows->value(m_positions[field]) : QVariant();
    }
    bool isNull(int field) override { return data(field).isNull(); }
    int size() override { return -1; }
    int numRowsAffected() override { return -1; }
    QSqlRecord record() const override { return m_record; }

private:
    bool fail(const QString &text)
    {
        setLastError(QSqlError(QStringLiteral("Access"), text, QSqlError::StatementError));
        return false;
    }

    qint64 count(const QString &table) const
    {
        qint64 rows = 0;
        for (const auto reader = m_file.rows(table); reader && reader->next();)
            ++rows;
        return rows;
    }

    const AccessFile &m_file;
    std::unique_ptr<AccessFile::Rows> m_rows;
    std::optional<qint64> m_count;
    QSqlRecord m_record;
    QList<int> m_positions;   // the file's column of each field
};

} // namespace

void AccessDriver::Register()
{
    static const bool registered = [] {
        QSqlDatabase::registerSqlDriver(Name, new QSqlDriverCreator<AccessDriver>);
        return true;
    }();
    Q_UNUSED(registered);
}

AccessDriver::AccessDriver(QObject *parent)
    : QSqlDriver(parent)
{
}

bool AccessDriver::hasFeature(DriverFeature feature) const
{
    return feature == Unicode;
}

bool AccessDriver::open(const QString &db, const QString &, const QString &, const QString &, int, const QString &options)
{
    int codePage = 0;
    for (const QString &option : options.split(u';', Qt::SkipEmptyParts)) {
        if (option.trimmed().startsWith(QLatin1String("CODEPAGE="), Qt::CaseInsensitive))
            codePage = option.section(u'=', 1).trimmed().toInt();
    }
    QString error;
    const bool opened = m_file.open(db, codePage, &error);
    setOpen(opened);
    setOpenError(!opened);
    if (!opened)
        setLastError(QSqlError(error, QString(), QSqlError::ConnectionError));
    return opened;
}

void AccessDriver::close()
{
    m_file.close();
    setOpen(false);
    setOpenError(false);
}

QSqlResult *AccessDriver::createResult() const
{
    return new AccessResult(this);
}

QStringList AccessDriver::tables(QSql::TableType type) const
{
    return type & QSql::Tables ? m_file.tables() : QStringList();
}

// The columns the reader can read; the others are named in unreadable().
QSqlRecord AccessDriver::record(const QString &table) const
{
    QSqlRecord record;
    for (const AccessColumn &column : m_file.columns(table)) {
        if (column.type.isValid())
            record.append(fieldOf(column, table));
    }
    return record;
}

QSqlIndex AccessDriver::primaryIndex(const QString &table) const
{
    QSqlIndex key(table);
    const QSqlRecord columns = record(table);
    for (const AccessIndex &index : m_file.indexes(table)) {
        if (!index.primary)
            continue;
        key.setName(index.name);
        for (const QString &column : index.columns)
            key.append(columns.field(column));
    }
    return key;
}

QString AccessDriver::escapeIdentifier(const QString &identifier, IdentifierType) const
{
    return u'"' + QString(identifier).replace(QStringLiteral("\""), QStringLiteral("\"\"")) + u'"';
}

QList<AccessIndex> AccessDriver::indexes(const QString &table) const
{
    return m_file.indexes(table);
}

QStringList AccessDriver::unreadable() const
{
    return m_file.unreadable();
}

} // namespace zolt::migrate
