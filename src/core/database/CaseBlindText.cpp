// SPDX-License-Identifier: MIT
#include "core/database/CaseBlindText.h"

#include "core/text/TextFold.h"

#include <QSqlDriver>
#include <QVariant>

#include <sqlite3.h>

#include <cstring>

namespace zolt {

namespace {

// The code point at p in UTF-16 or UTF-8, and where the next one begins.
char32_t decode(const char16_t *p, const char16_t *, const char16_t **next)
{
    *next = p + 1;   // a surrogate stands for itself: no fold touches it
    return *p;
}

char32_t decode(const unsigned char *p, const unsigned char *end, const unsigned char **next)
{
    const unsigned char lead = *p;
    const int length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (end - p < length) {
        *next = end;
        return 0xFFFD;
    }
    *next = p + length;
    if (length == 1)
        return lead;
    char32_t c = lead & (0x7F >> length);
    for (int i = 1; i < length; ++i)
        c = (c << 6) | (p[i] & 0x3F);
    return c;
}

// Text walked code point by code point as a fold sees it: what the fold drops
// (the combining marks of accent-blind text) is passed over.
template <typename Unit>
class Walk {
public:
    Walk(const Unit *begin, const Unit *end, const char16_t *fold)
        : m_at(begin), m_end(end), m_fold(fold)
    {
        settle();
    }
    bool atEnd() const { return m_at == m_end; }
    char32_t raw() const { return m_raw; }
    char32_t folded() const { return m_raw < 0x10000 ? m_fold[m_raw] : m_raw; }
    void next()
    {
        m_at = m_next;
        settle();
    }

private:
    void settle()
    {
        while (m_at != m_end) {
            m_raw = decode(m_at, m_end, &m_next);
            if (folded() != 0)
                return;
            m_at = m_next;
        }
    }

    const Unit *m_at, *m_end, *m_next = nullptr;
    const char16_t *m_fold;
    char32_t m_raw = 0;
};

// Greedy matching that returns to the last "%" on a mismatch.
template <typename Unit>
bool like(Walk<Unit> p, Walk<Unit> t, char32_t escape)
{
    std::optional<Walk<Unit>> resumeP, resumeT;
    while (!t.atEnd()) {
        if (!p.atEnd()) {
            const char32_t c = p.raw();
            if (c == u'%' && c != escape) {
                p.next();
                resumeP = p;
                resumeT = t;
                continue;
            }
            Walk<Unit> wanted = p;
            bool escaped = false;
            if (c == escape && escape != 0) {
                wanted.next();
                escaped = !wanted.atEnd();
                if (!escaped)
                    wanted = p;   // an escape at the very end is a plain character
            }
            if ((wanted.raw() == u'_' && !escaped) || wanted.folded() == t.folded()) {
                p = wanted;
                p.next();
                t.next();
                continue;
            }
        }
        if (!resumeP)
            return false;
        p = *resumeP;
        resumeT->next();
        t = *resumeT;
    }
    while (!p.atEnd() && p.raw() == u'%' && escape != u'%')
        p.next();
    return p.atEnd();
}

template <typename Unit>
int compare(Walk<Unit> a, Walk<Unit> b)
{
    for (; !a.atEnd() && !b.atEnd(); a.next(), b.next()) {
        if (a.folded() != b.folded())
            return a.folded() < b.folded() ? -1 : 1;
    }
    return int(b.atEnd()) - int(a.atEnd());
}

// UTF-8 text as SQLite hands it over.
struct Utf8 {
    const unsigned char *begin, *end;

    explicit Utf8(sqlite3_value *value)
        : begin(sqlite3_value_text(value)), end(begin + sqlite3_value_bytes(value))
    {
    }
    Utf8(const void *bytes, int size)
        : begin(static_cast<const unsigned char *>(bytes)), end(begin + size)
    {
    }
    Walk<unsigned char> walk(const char16_t *fold) const { return {begin, end, fold}; }
    // Whether it may hold a combining mark (U+0300 to U+036F begin with these bytes).
    bool mayBeDecomposed() const
    {
        const auto size = size_t(end - begin);
        return std::memchr(begin, 0xCC, size) || std::memchr(begin, 0xCD, size);
    }
    QString composed() const
    {
        return QString::fromUtf8(reinterpret_cast<const char *>(begin), end - begin)
            .normalized(QString::NormalizationForm_C);
    }
};

Walk<char16_t> walk(QStringView text, const char16_t *fold)
{
    return {text.utf16(), text.utf16() + text.size(), fold};
}

// Case-blind comparisons see decomposed text composed; accent-blind ones drop
// the marks and need no such care.
template <typename Compare>
auto caseBlind(const Utf8 &a, const Utf8 &b, Compare compare)
{
    if (a.mayBeDecomposed() || b.mayBeDecomposed())
        return compare(walk(a.composed(), CaseFold()), walk(b.composed(), CaseFold()));
    return compare(a.walk(CaseFold()), b.walk(CaseFold()));
}

bool anyNull(int count, sqlite3_value **values)
{
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(values[i]) == SQLITE_NULL)
            return true;
    }
    return false;
}

// like(pattern, text) and like(pattern, text, escape), as SQLite calls them for LIKE.
void caseBlindLike(sqlite3_context *context, int count, sqlite3_value **values)
{
    if (anyNull(count, values))
        return sqlite3_result_null(context);
    char32_t escape = 0;
    if (count == 3) {
        const Utf8 given(values[2]);
        const unsigned char *next = given.end;
        if (given.begin == given.end || (escape = decode(given.begin, given.end, &next), next != given.end))
            return sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
    }
    sqlite3_result_int(context, caseBlind(Utf8(values[0]), Utf8(values[1]), [escape](auto p, auto t) {
        return like(p, t, escape);
    }));
}

// zolt_bare_like(text, pattern): LIKE without regard to case or diacritics.
void bareLike(sqlite3_context *context, int count, sqlite3_value **values)
{
    if (anyNull(count, values))
        return sqlite3_result_null(context);
    sqlite3_result_int(context, like(Utf8(values[1]).walk(BareFold()), Utf8(values[0]).walk(BareFold()), 0));
}

int compareCaseBlind(void *, int leftBytes, const void *left, int rightBytes, const void *right)
{
    return caseBlind(Utf8(left, leftBytes), Utf8(right, rightBytes), [](auto a, auto b) { return compare(a, b); });
}

int compareBare(void *, int leftBytes, const void *left, int rightBytes, const void *right)
{
    return compare(Utf8(left, leftBytes).walk(BareFold()), Utf8(right, rightBytes).walk(BareFold()));
}

} // namespace

void RegisterCaseBlindText(const QSqlDatabase &db)
{
    const QVariant handle = db.driver() ? db.driver()->handle() : QVariant();
    if (!db.isOpen() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return;
    sqlite3 *connection = *static_cast<sqlite3 *const *>(handle.data());
    if (!connection)
        return;
    // In the database's own encoding, so that they take the built-ins' place.
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    for (int count : {2, 3})
        sqlite3_create_function(connection, "like", count, flags, nullptr, caseBlindLike, nullptr, nullptr);
    sqlite3_create_function(connection, "zolt_bare_like", 2, flags, nullptr, bareLike, nullptr, nullptr);
    sqlite3_create_collation(connection, "NOCASE", SQLITE_UTF8, nullptr, compareCaseBlind);
    sqlite3_create_collation(connection, "ZOLT_BARE", SQLITE_UTF8, nullptr, compareBare);
}

} // namespace zolt
