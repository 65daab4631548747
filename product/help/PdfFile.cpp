#include "product/help/PdfFile.h"

#include "support/Error.h"

#include <algorithm>
#include <QRegularExpression>

namespace product {

namespace {

[[noreturn]] void Complain(const char *what) {
    throw support::Error(support::kErrInvalidProcedureCall, QStringLiteral("PdfFile"),
                         QStringLiteral("The PDF file has no %1").arg(QLatin1String(what)));
}

// The number that follows the word behind `from`.
qint64 NumberAfter(const QByteArray &bytes, const char *word, qsizetype from = 0) {
    const qsizetype at = bytes.indexOf(word, from);
    if (at < 0) Complain(word);
    constexpr qsizetype kLongest = 24; // of a number, with the blanks around it
    const QByteArray rest = bytes.mid(at + qsizetype(qstrlen(word)), kLongest).trimmed();
    return rest
        .left(std::find_if_not(rest.begin(), rest.end(), [](char c) { return c >= '0' && c <= '9'; }) -
              rest.begin())
        .toLongLong();
}

// Where each object begins; 0 for a number that isn't used.
QList<qsizetype> Offsets(const QByteArray &bytes, qsizetype table) {
    constexpr int kEntry = 20;
    const qsizetype first = bytes.indexOf('\n', bytes.indexOf('\n', table) + 1) + 1;
    const int count = int(NumberAfter(bytes, "/Size", table));
    if (first + qsizetype(count) * kEntry > bytes.size()) Complain("whole table of places");
    QList<qsizetype> offsets;
    for (int i = 0; i < count; ++i) {
        const QByteArray entry = bytes.mid(first + qsizetype(i) * kEntry, kEntry);
        offsets << (entry.contains(" n") ? entry.left(10).toLongLong() : 0);
    }
    return offsets;
}

QByteArray BodyAt(const QByteArray &bytes, qsizetype begin, qsizetype end) {
    const qsizetype from = bytes.indexOf("obj", begin) + 3;
    const qsizetype to = bytes.lastIndexOf("endobj", end - 1);
    if (from < begin + 3 || to < from) Complain("whole object");
    return bytes.mid(from, to - from).trimmed();
}

} // namespace

PdfFile::PdfFile(const QByteArray &bytes) {
    const qsizetype table = NumberAfter(bytes, "startxref");
    if (bytes.mid(table, 4) != "xref") Complain("table of places");
    root_ = int(NumberAfter(bytes, "/Root", table));
    info_ = int(NumberAfter(bytes, "/Info", table));
    const QList<qsizetype> offsets = Offsets(bytes, table);
    QList<qsizetype> ends = offsets;
    ends << table;
    std::sort(ends.begin(), ends.end());
    for (const qsizetype begin : offsets) {
        const qsizetype end = *std::upper_bound(ends.begin(), ends.end(), begin);
        bodies_ << (begin ? BodyAt(bytes, begin, end) : QByteArray());
    }
    if (root_ < 1 || root_ > Count() || info_ < 1 || info_ > Count()) Complain("catalogue");
}

int PdfFile::Add(const QByteArray &body) {
    bodies_ << body;
    return Count();
}

QList<int> PdfFile::Pages() const {
    const int tree = int(NumberAfter(bodies_[root_], "/Pages"));
    static const QRegularExpression kids(QStringLiteral("/Kids\\s*\\[([^\\]]*)\\]")),
        reference(QStringLiteral("(\\d+) 0 R"));
    const QString list = kids.match(QString::fromLatin1(bodies_.value(tree))).captured(1);
    QList<int> pages;
    for (auto it = reference.globalMatch(list); it.hasNext();) pages << it.next().captured(1).toInt();
    return pages;
}

QByteArray PdfFile::Bytes() const {
    QByteArray bytes("%PDF-1.4\n%\xe2\xe3\xcf\xd3\n");
    QByteArray table("0000000000 65535 f \n");
    for (int number = 1; number <= Count(); ++number) {
        table += QByteArray::number(bytes.size()).rightJustified(10, '0') + " 00000 n \n";
        const QByteArray &body = bodies_[number];
        bytes += QByteArray::number(number) + " 0 obj\n" + (body.isEmpty() ? "null" : body) + "\nendobj\n";
    }
    const QByteArray start = QByteArray::number(bytes.size()), size = QByteArray::number(bodies_.size());
    return bytes + "xref\n0 " + size + "\n" + table + "trailer\n<<\n/Size " + size + "\n/Info " +
           Reference(info_) + "\n/Root " + Reference(root_) + "\n>>\nstartxref\n" + start + "\n%%EOF\n";
}

QByteArray PdfText(const QString &text) {
    QByteArray bytes("<FEFF");
    for (const QChar c : text) bytes += QByteArray::number(c.unicode(), 16).rightJustified(4, '0').toUpper();
    return bytes + '>';
}

QByteArray Reference(int number) { return QByteArray::number(number) + " 0 R"; }

} // namespace product
