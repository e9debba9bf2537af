// SPDX-License-Identifier: MIT
#include "MigrateReport.h"

#include "Language.h"

#include <QSaveFile>

namespace zolt::migrate {

namespace {

QString encodingShown(const ColumnReport &column)
{
    QString text = EncodingName(column.encoding);
    if (column.given)
        text += Say(" (chỉ định)", " (given)");
    if (column.asTheRest)
        text += Say(" (như phần còn lại)", " (as the rest)");
    if (column.bytes)
        text += QStringLiteral(" BLOB");
    if (column.upper)
        text += Say(" hoa", " upper");
    if (!column.chosen)
        text += Say(" (bỏ qua)", " (left)");
    return text;
}

QStringList headers()
{
    return {Say("Bảng", "Table"), Say("Cột", "Column"), Say("Mã hoá", "Encoding"), Say("Điểm", "Score"),
            Say("Giá trị", "Values"), Say("Sẽ đổi", "Changing"), Say("Không đổi được", "Unconvertible"),
            Say("Trước", "Before"), Say("Sau", "After")};
}

// One row per column, its first sample beside it; the other samples follow
// on rows of their own.
QList<QStringList> rows(const Report &report)
{
    QList<QStringList> rows;
    for (const TableReport &table : report.tables) {
        for (const ColumnReport &column : table.columns) {
            const auto sample = [&](int i) {
                return i < column.samples.size() ? column.samples[i] : std::pair<QString, QString>();
            };
            const bool scored = column.guess.encoding != TextEncoding::Ascii && column.guess.encoding != TextEncoding::Binary;
            rows << QStringList{table.table, column.column, encodingShown(column),
                                scored ? QString::number(qRound(column.guess.score * 100)) + u'%' : QString(),
                                QString::number(column.values),
                                QString::number(column.changing), QString::number(column.unconvertible),
                                sample(0).first, sample(0).second};
            for (int i = 1; i < column.samples.size(); ++i)
                rows << QStringList{{}, {}, {}, {}, {}, {}, {}, sample(i).first, sample(i).second};
        }
    }
    return rows;
}

QStringList checkHeaders()
{
    return {Say("Bảng", "Table"), Say("Dòng nguồn", "Source rows"), Say("Dòng đích", "Target rows"),
            Say("Tổng kiểm nguồn", "Source checksum"), Say("Tổng kiểm đích", "Target checksum"),
            Say("Kết quả", "Result")};
}

QList<QStringList> checkRows(const Report &report)
{
    QList<QStringList> rows;
    for (const TableCheck &check : report.checks)
        rows << QStringList{check.table, QString::number(check.sourceRows), QString::number(check.targetRows),
                            check.sourceSum, check.targetSum, check.same() ? Say("khớp", "same") : Say("KHÁC", "DIFFERENT")};
    return rows;
}

QString elided(const QString &text, int width)
{
    const QString flat = QString(text).replace(u'\n', u' ');
    return flat.size() <= width ? flat : flat.left(width - 1) + u'…';
}

void printTable(const QStringList &header, const QList<QStringList> &rows, QTextStream &out)
{
    constexpr int Widest = 32;
    QList<int> widths;
    for (const QString &h : header)
        widths << int(h.size());
    for (const QStringList &row : rows) {
        for (int i = 0; i < row.size(); ++i)
            widths[i] = std::min(Widest, std::max(widths[i], int(row[i].size())));
    }
    const auto line = [&](const QStringList &cells) {
        QString text;
        for (int i = 0; i < cells.size(); ++i)
            text += elided(cells[i], widths[i]).leftJustified(widths[i]) + QStringLiteral("  ");
        while (text.endsWith(u' '))
            text.chop(1);
        out << text << '\n';
    };
    line(header);
    QStringList rule;
    for (int w : widths)
        rule << QString(w, u'-');
    line(rule);
    for (const QStringList &row : rows)
        line(row);
}

QString csvCell(const QString &text)
{
    if (!text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n'))
        return text;
    return u'"' + QString(text).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString csv(const Report &report)
{
    QString text;
    const auto add = [&](const QStringList &cells) {
        QStringList quoted;
        for (const QString &cell : cells)
            quoted << csvCell(cell);
        text += quoted.join(u',') + QStringLiteral("\r\n");
    };
    add(headers());
    for (const QStringList &row : rows(report))
        add(row);
    if (!report.checks.isEmpty()) {
        add({});
        add(checkHeaders());
        for (const QStringList &row : checkRows(report))
            add(row);
    }
    return text;
}

QString htmlTable(const QStringList &header, const QList<QStringList> &rows)
{
    QString html = QStringLiteral("<table>\n<tr>");
    for (const QString &h : header)
        html += QStringLiteral("<th>") + h.toHtmlEscaped() + QStringLiteral("</th>");
    html += QStringLiteral("</tr>\n");
    for (const QStringList &row : rows) {
        html += QStringLiteral("<tr>");
        for (const QString &cell : row)
            html += QStringLiteral("<td>") + cell.toHtmlEscaped() + QStringLiteral("</td>");
        html += QStringLiteral("</tr>\n");
    }
    return html + QStringLiteral("</table>\n");
}

QString html(const Report &report)
{
    QString html = QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>zolt-migrate</title>"
                                  "<style>body{font-family:sans-serif}td,th{border:1px solid #bbb;padding:2px 6px}"
                                  "table{border-collapse:collapse}</style></head><body>\n");
    html += QStringLiteral("<h1>zolt-migrate</h1>\n<p>") + Say("Nguồn: ", "Source: ") + report.source.toHtmlEscaped();
    if (!report.target.isEmpty())
        html += QStringLiteral("<br>") + Say("Đích: ", "Target: ") + report.target.toHtmlEscaped();
    html += QStringLiteral("</p>\n") + htmlTable(headers(), rows(report));
    if (!report.checks.isEmpty())
        html += QStringLiteral("<h2>") + Say("Kiểm tra", "Check") + QStringLiteral("</h2>\n")
              + htmlTable(checkHeaders(), checkRows(report));
    for (const QString &note : report.notes)
        html += QStringLiteral("<p>") + note.toHtmlEscaped() + QStringLiteral("</p>\n");
    return html + QStringLiteral("</body></html>\n");
}

} // namespace

void PrintReport(const Report &report, QTextStream &out)
{
    out << Say("Nguồn: ", "Source: ") << report.source << '\n';
    if (!report.target.isEmpty())
        out << Say("Đích: ", "Target: ") << report.target << '\n';
    out << '\n';
    printTable(headers(), rows(report), out);
    if (!report.checks.isEmpty()) {
        out << '\n';
        printTable(checkHeaders(), checkRows(report), out);
    }
    for (const QString &note : report.notes)
        out << '\n' << note;
    out << '\n';
    out.flush();
}

bool WriteReport(const Report &report, const QString &path, QString *error)
{
    QSaveFile file(path);
    const bool isHtml = path.endsWith(QLatin1String(".html"), Qt::CaseInsensitive)
                     || path.endsWith(QLatin1String(".htm"), Qt::CaseInsensitive);
    if (!file.open(QIODevice::WriteOnly) || file.write((isHtml ? html(report) : csv(report)).toUtf8()) < 0
        || !file.commit()) {
        *error = file.errorString();
        return false;
    }
    return true;
}

} // namespace zolt::migrate
