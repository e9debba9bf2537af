// SPDX-License-Identifier: MIT
#include "AccessFile.h"

#include "Language.h"

#include <zolt/LegacyText.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStringDecoder>

#include <mdbtools.h>

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zolt::migrate {

namespace {

constexpr size_t TextBindSize = 16384;   // libmdb's own; a memo is given more as it needs
constexpr int RowOffsetMask = 0x1FFF;     // a row's place on its page, without libmdb's flags

QString fromUtf8(char *text)
{
    const QString out = QString::fromUtf8(text);
    g_free(text);
    return out;
}

MdbColumn *columnAt(MdbTableDef *table, unsigned i)
{
    return static_cast<MdbColumn *>(g_ptr_array_index(table->columns, i));
}

// The column as the reader gives it: its Qt type, or none for a type it
// cannot read (an attachment field of Access 2007).
AccessColumn describe(const MdbColumn &c)
{
    AccessColumn column{QString::fromUtf8(c.name), {}, {}, -1, -1};
    switch (c.col_type) {
    case MDB_BOOL: column = {column.name, QStringLiteral("Yes/No"), QMetaType(QMetaType::Bool)}; break;
    case MDB_BYTE: column = {column.name, QStringLiteral("Byte"), QMetaType(QMetaType::Int)}; break;
    case MDB_INT: column = {column.name, QStringLiteral("Integer"), QMetaType(QMetaType::Int)}; break;
    case MDB_LONGINT: column = {column.name, QStringLiteral("Long Integer"), QMetaType(QMetaType::Int)}; break;
    case MDB_MONEY: column = {column.name, QStringLiteral("Currency"), QMetaType(QMetaType::Double), 19, 4}; break;
    case MDB_NUMERIC:   // libmdb keeps the digits in col_scale and the decimal places in col_prec
        column = {column.name, QStringLiteral("Decimal"), QMetaType(QMetaType::Double), c.col_scale, c.col_prec};
        break;
    case MDB_FLOAT: column = {column.name, QStringLiteral("Single"), QMetaType(QMetaType::Double)}; break;
    case MDB_DOUBLE: column = {column.name, QStringLiteral("Double"), QMetaType(QMetaType::Double)}; break;
    case MDB_DATETIME: column = {column.name, QStringLiteral("Date/Time"), QMetaType(QMetaType::QDateTime)}; break;
    case MDB_TEXT: column = {column.name, QStringLiteral("Text"), QMetaType(QMetaType::QString), c.col_size}; break;
    case MDB_MEMO: column = {column.name, QStringLiteral("Memo"), QMetaType(QMetaType::QString)}; break;
    case MDB_REPID: column = {column.name, QStringLiteral("Replication ID"), QMetaType(QMetaType::QString)}; break;
    case MDB_OLE: column = {column.name, QStringLiteral("OLE Object"), QMetaType(QMetaType::QByteArray)}; break;
    case MDB_BINARY: column = {column.name, QStringLiteral("Binary"), QMetaType(QMetaType::QByteArray)}; break;
    case MDB_COMPLEX: column.typeName = QStringLiteral("Attachment"); break;
    default: column.typeName = QStringLiteral("type %1").arg(c.col_type); break;
    }
    return column;
}

// A currency: a whole number of ten-thousandths.
QString currency(qint64 units)
{
    const quint64 magnitude = units < 0 ? quint64(0) - quint64(units) : quint64(units);
    return QStringLiteral("%1%2.%3")
        .arg(units < 0 ? QStringLiteral("-") : QString())
        .arg(magnitude / 10000)
        .arg(magnitude % 10000, 4, 10, QLatin1Char('0'));
}

// Days since 30 December 1899, the time of day in the fraction, which is
// counted forward from midnight also before that day. A date and time of the
// desk's clock, in no time zone: written as ISO text, which every engine
// takes as the same wall time.
QString accessDate(double days)
{
    const double whole = std::trunc(days);
    qint64 msecs = std::llround(std::fabs(days - whole) * 86400000.0);
    const QDate day = QDate(1899, 12, 30).addDays(qint64(whole) + msecs / 86400000);
    const QTime time = QTime::fromMSecsSinceStartOfDay(int(msecs % 86400000));
    return QDateTime(day, time).toString(time.msec() ? Qt::ISODateWithMs : Qt::ISODate);
}

} // namespace

class AccessFile::Handle {
public:
    MdbHandle *mdb = nullptr;
    int codePage = 0;
    mutable QStringList unreadable;

    ~Handle()
    {
        if (mdb)
            mdb_close(mdb);
    }

    QStringList tables;                            // read once
    bool tablesRead = false;
    QHash<QString, QList<AccessColumn>> columns;   // read once a table

    // Text of Access 97 is bytes of the file's code page, read as they are stored.
    QString jet3Text(QByteArrayView bytes) const
    {
        if (codePage == 1252)
            return AnsiText(bytes);   // the reading the old platform's fonts were typed in
        QStringDecoder decoder(QByteArrayLiteral("windows-") + QByteArray::number(codePage));
        return decoder.isValid() ? decoder.decode(bytes) : AnsiText(bytes);
    }
};

AccessFile::AccessFile()
    : d(std::make_unique<Handle>())
{
}

AccessFile::~AccessFile() = default;

namespace {

// libmdb's reading of a file's catalogue: its warnings (a line a bad page,
// which on a damaged file can come without end, from a property read from a
// page past the file's end, stale data taken for a count) kept off the
// terminal, and a catalogue not read in half a minute, which takes
// milliseconds, ends the tool with that said.
class CatalogueReading {
public:
    explicit CatalogueReading(const QString &path)
        : m_terminal(::dup(STDERR_FILENO))
        , m_thread([this, path] {
            std::unique_lock lock(m_mutex);
            if (m_done.wait_for(lock, std::chrono::seconds(30), [this] { return m_finished; }))
                return;
            ::dup2(m_terminal, STDERR_FILENO);
            std::fprintf(stderr, "zolt-migrate: %s\n",
                         qPrintable(Say("%1: libmdb không đọc xong danh mục của tệp Access này (tệp hỏng): hãy chép lại "
                                        "tệp từ máy cũ",
                                        "%1: libmdb does not finish reading this Access file's catalogue (the file is "
                                        "damaged): copy it again from the old desk")
                                        .arg(path)));
            std::_Exit(2);
        })
    {
        const int quiet = ::open("/dev/null", O_WRONLY);
        ::dup2(quiet, STDERR_FILENO);
        ::close(quiet);
    }
    ~CatalogueReading()
    {
        {
            std::lock_guard lock(m_mutex);
            m_finished = true;
        }
        m_done.notify_one();
        m_thread.join();
        ::dup2(m_terminal, STDERR_FILENO);
        ::close(m_terminal);
    }

private:
    int m_terminal;
    std::mutex m_mutex;
    std::condition_variable m_done;
    bool m_finished = false;
    std::thread m_thread;   // last: started once the rest is in place
};

} // namespace

bool AccessFile::open(const QString &path, int codePage, QString *error)
{
    close();
    const auto refuse = [&](const QString &why) {
        *error = why;
        close();
        return false;
    };
    const CatalogueReading reading(path);
    d->mdb = mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS);
    // A file copied only in part is no longer whole pages.
    if (const qint64 page = d->mdb ? d->mdb->fmt->pg_size : 0; page > 0 && QFileInfo(path).size() % page != 0) {
        return refuse(Say("tệp bị cắt ngắn (không gồm trọn các trang %1 byte): hãy chép lại tệp từ máy cũ",
                          "the file is cut short (it is not whole pages of %1 bytes): copy it again from the old desk")
                          .arg(page));
    }
    if (!d->mdb || !mdb_read_catalog(d->mdb, MDB_TABLE)) {
        return refuse(Say("tệp Access này libmdb không đọc được (hỏng, hoặc một phiên bản nó không biết)",
                          "libmdb cannot read this Access file (damaged, or of a version it does not know)"));
    }
    mdb_set_bind_size(d->mdb, TextBindSize);
    d->codePage = codePage > 0 ? codePage : d->mdb->f->code_page;
    if (d->codePage <= 0)
        d->codePage = 1252;
    return true;
}

void AccessFile::close()
{
    if (d->mdb)
        mdb_close(d->mdb);
    d->mdb = nullptr;
    d->unreadable.clear();
    d->tables.clear();
    d->tablesRead = false;
    d->columns.clear();
}

namespace {

// A table definition read with its columns, freed with it.
struct TableDef {
    MdbTableDef *table = nullptr;
    TableDef(MdbHandle *mdb, const QString &name)
    {
        QByteArray utf8 = name.toUtf8();
        table = mdb ? mdb_read_table_by_name(mdb, utf8.data(), MDB_TABLE) : nullptr;
        if (table && !mdb_read_columns(table)) {
            mdb_free_tabledef(table);
            table = nullptr;
        }
    }
    ~TableDef()
    {
        if (table)
            mdb_free_tabledef(table);
    }
    TableDef(const TableDef &) = delete;
    TableDef &operator=(const TableDef &) = delete;
};

} // namespace

// A table whose definition libmdb cannot read is named in unreadable() instead.
QStringList AccessFile::tables() const
{
    if (!d->mdb || d->tablesRead)
        return d->tables;
    d->tablesRead = true;
    for (unsigned i = 0; i < d->mdb->num_catalog; ++i) {
        auto *entry = static_cast<MdbCatalogEntry *>(g_ptr_array_index(d->mdb->catalog, i));
        if (!mdb_is_user_table(entry))
            continue;
        const QString name = QString::fromUtf8(entry->object_name);
        if (TableDef(d->mdb, name).table)
            d->tables << name;
        else
            d->unreadable << Say("%1: libmdb không đọc được bảng này", "%1: libmdb cannot read the table").arg(name);
    }
    return d->tables;
}

QStringList AccessFile::unreadable() const
{
    return d->unreadable;
}


QList<AccessColumn> AccessFile::columns(const QString &table) const
{
    if (const auto read = d->columns.constFind(table); read != d->columns.cend())
        return *read;
    const TableDef def(d->mdb, table);
    QList<AccessColumn> &columns = d->columns[table];
    for (unsigned i = 0; def.table && i < def.table->num_cols; ++i) {
        columns << describe(*columnAt(def.table, i));
        if (!columns.last().type.isValid()) {
            const QString note = Say("%1.%2: cột kiểu %3, libmdb không đọc được, bị bỏ ra",
                                     "%1.%2: a column of type %3, which libmdb cannot read, is left out")
                                     .arg(table, columns.last().name, columns.last().typeName);
            if (!d->unreadable.contains(note))
                d->unreadable << note;
        }
    }
    return columns;
}

QList<AccessIndex> AccessFile::indexes(const QString &table) const
{
    const TableDef def(d->mdb, table);
    QList<AccessIndex> indexes;
    if (!def.table)
        return indexes;
    mdb_read_indices(def.table);   // its result says nothing: the table holds them
    if (!def.table->indices)
        return indexes;
    for (unsigned i = 0; i < def.table->num_idxs; ++i) {
        const auto *idx = static_cast<MdbIndex *>(g_ptr_array_index(def.table->indices, i));
        if (idx->index_type == 2)   // the other side of a relationship: no index of this table's own
            continue;
        AccessIndex index{QString::fromUtf8(idx->name), {}, idx->index_type == 1, (idx->flags & MDB_IDX_UNIQUE) != 0};
        for (unsigned k = 0; k < idx->num_keys; ++k)
            index.columns << QString::fromUtf8(columnAt(def.table, unsigned(idx->key_col_num[k] - 1))->name);
        indexes << index;
    }
    return indexes;
}

namespace {

class TableRows : public AccessFile::Rows {
public:
    TableRows(MdbHandle *clone, MdbTableDef *table, const std::function<QString(QByteArrayView)> &jet3Text,
              QStringList *unreadable)
        : m_mdb(clone)
        , m_table(table)
        , m_fields(table->num_cols)
        , m_jet3Text(jet3Text)
        , m_unreadable(unreadable)
    {
        mdb_rewind_table(m_table);
    }
    ~TableRows() override
    {
        mdb_free_tabledef(m_table);
        mdb_close(m_mdb);
    }

    // A row fetched: each column's place in it, as the fetch leaves them.
    // A text of no length is a Null or a zero-length text, which the row's
    // null mask alone tells apart: the row is cracked again for it.
    bool next() override
    {
        // The table's definition counts its rows: a damaged file gives fewer,
        // or more without end.
        if (m_ended)
            return false;
        if (m_read == m_table->num_rows) {
            m_ended = true;
            if (mdb_fetch_row(m_table))
                tellDamage();
            return false;
        }
        if (!mdb_fetch_row(m_table)) {
            m_ended = true;
            tellDamage();
            return false;
        }
        ++m_read;
        bool emptyText = false;
        for (unsigned i = 0; i < m_table->num_cols; ++i) {
            const MdbColumn *column = columnAt(m_table, i);
            m_fields[i] = MdbField{};
            m_fields[i].start = column->cur_value_start;
            m_fields[i].siz = column->cur_value_len;
            m_fields[i].is_null = column->col_type == MDB_BOOL ? column->cur_value_len : column->cur_value_len == 0;
            emptyText |= m_fields[i].is_null && (column->col_type == MDB_TEXT || column->col_type == MDB_MEMO);
        }
        if (!emptyText)
            return true;
        int start = 0;
        size_t size = 0;
        return mdb_find_row(m_mdb, int(m_table->cur_row) - 1, &start, &size) == 0
               && mdb_crack_row(m_table, start & RowOffsetMask, size, m_fields.data()) >= 0;
    }

    QVariant value(int i) const override
    {
        const MdbField &field = fieldOf(i);
        MdbColumn *column = columnAt(m_table, unsigned(i));
        if (column->col_type == MDB_BOOL)
            return QVariant(field.is_null == 0);   // a Yes/No keeps its value in the null mask
        if (field.is_null)
            return QVariant(describe(*column).type);
        const int at = field.start;
        unsigned char *page = m_mdb->pg_buf;
        switch (column->col_type) {
        case MDB_BYTE: return int(mdb_get_byte(page, at));
        case MDB_INT: return int(qint16(mdb_get_int16(page, at)));
        case MDB_LONGINT: return int(qint32(mdb_get_int32(page, at)));
        case MDB_MONEY: {
            qint64 units = 0;
            memcpy(&units, page + at, sizeof units);   // little-endian, as the file and this machine
            return currency(units);
        }
        case MDB_NUMERIC: return fromUtf8(mdb_numeric_to_string(m_mdb, at, column->col_scale, column->col_prec));
        case MDB_FLOAT: return double(mdb_get_single(page, at));
        case MDB_DOUBLE: return mdb_get_double(page, at);
        case MDB_DATETIME: return accessDate(mdb_get_double(page, at));
        case MDB_REPID: return fromUtf8(mdb_uuid_to_string(page, at));
        // Access 97 keeps text as the code page's bytes, later versions as
        // Unicode that libmdb decodes (and decompresses).
        case MDB_TEXT:
            return IS_JET3(m_mdb) ? m_jet3Text(QByteArrayView(page + at, field.siz))
                                  : fromUtf8(mdb_col_to_string(m_mdb, page, at, MDB_TEXT, field.siz));
        case MDB_MEMO: return IS_JET3(m_mdb) ? m_jet3Text(bytes(column, field)) : memo(at, field.siz);
        case MDB_OLE:
        case MDB_BINARY: return bytes(column, field);
        default: return {};
        }
    }

private:
    void tellDamage()
    {
        const QString note = Say("%1: tệp ghi %2 dòng, đọc được %3 (tệp hỏng)", "%1: the file says %2 rows, %3 could be read (the file is damaged)")
                                 .arg(QString::fromUtf8(m_table->name))
                                 .arg(m_table->num_rows)
                                 .arg(m_read);
        if (!m_unreadable->contains(note))
            *m_unreadable << note;
    }

    const MdbField &fieldOf(int column) const { return m_fields[size_t(column)]; }   // cracked in column order

    // A memo of Access 2000 and later may be longer than libmdb's text buffer: it is given what the
    // memo's length asks for (three bytes of UTF-8 a stored byte at most).
    QString memo(int at, int size) const
    {
        const size_t stored = size_t(mdb_get_int32(m_mdb->pg_buf, at)) & 0x3FFFFFFF;
        mdb_set_bind_size(m_mdb, std::max(TextBindSize, stored * 3 + 16));
        const QString read = fromUtf8(mdb_col_to_string(m_mdb, m_mdb->pg_buf, at, MDB_MEMO, size));
        mdb_set_bind_size(m_mdb, TextBindSize);
        return read;
    }

    // The bytes of a binary value, or of a long one (OLE object, Access 97
    // memo), which libmdb reads through the column's bound buffer: the
    // value's header first, then a page at a time.
    QByteArray bytes(MdbColumn *column, const MdbField &field) const
    {
        if (column->col_type == MDB_BINARY)
            return QByteArray(reinterpret_cast<const char *>(m_mdb->pg_buf + field.start), field.siz);
        memcpy(m_page.data(), m_mdb->pg_buf + field.start, MDB_MEMO_OVERHEAD);
        column->bind_ptr = m_page.data();
        column->cur_value_start = field.start;
        column->cur_value_len = field.siz;
        size_t size = 0;
        void *data = mdb_ole_read_full(m_mdb, column, &size);
        column->bind_ptr = nullptr;
        const QByteArray out(static_cast<const char *>(data), qsizetype(size));
        free(data);
        return out;
    }

    MdbHandle *m_mdb;
    MdbTableDef *m_table;
    std::vector<MdbField> m_fields;
    mutable std::vector<char> m_page = std::vector<char>(2 * MDB_PGSIZE);   // a long value's buffer
    std::function<QString(QByteArrayView)> m_jet3Text;
    QStringList *m_unreadable;
    unsigned m_read = 0;
    bool m_ended = false;
};

} // namespace

std::unique_ptr<AccessFile::Rows> AccessFile::rows(const QString &table) const
{
    if (!d->mdb)
        return nullptr;
    // A handle of its own, so that reading two tables at once keeps each one's page.
    MdbHandle *clone = mdb_clone_handle(d->mdb);
    QByteArray utf8 = table.toUtf8();
    MdbTableDef *def = mdb_read_table_by_name(clone, utf8.data(), MDB_TABLE);
    if (!def || !mdb_read_columns(def)) {
        if (def)
            mdb_free_tabledef(def);
        mdb_close(clone);
        d->unreadable << Say("%1: libmdb không đọc được bảng này", "%1: libmdb cannot read the table").arg(table);
        return nullptr;
    }
    const Handle *handle = d.get();
    return std::make_unique<TableRows>(clone, def, [handle](QByteArrayView bytes) { return handle->jet3Text(bytes); },
                                       &d->unreadable);
}

} // namespace zolt::migrate
