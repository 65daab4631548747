#include "storage/SelectText.h"

#include "storage/text/FieldTypes.h"

#include <QRegularExpression>

namespace storage {

namespace {

const QString kRowId = QStringLiteral("_rowid_");

QString BareName(const QString &name) {
    return name.startsWith(QLatin1Char('[')) || name.startsWith(QLatin1Char('"'))
               ? name.mid(1, name.size() - 2)
               : name;
}

bool IsWordCharacter(QChar c) {
    return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == QLatin1Char('_'));
}

// Reads a query from left to right. What a Take... names is taken when it stands next; else it stays.
class Reader {
public:
    explicit Reader(QStringView text) : text_(text) {}

    qsizetype At() const { return at_; }
    bool AtEnd() const { return at_ == text_.size(); }
    QStringView From(qsizetype begin) const { return text_.mid(begin, at_ - begin); }
    bool TakeBlanks() {
        const qsizetype begin = at_;
        while (!AtEnd() && text_[at_].unicode() < 0x80 && text_[at_].isSpace()) ++at_;
        return at_ > begin;
    }
    bool Take(char16_t character) {
        if (AtEnd() || text_[at_] != character) return false;
        ++at_;
        return true;
    }
    bool StartsWith(QLatin1String word) const {
        const qsizetype end = at_ + word.size();
        return text_.mid(at_).startsWith(word, Qt::CaseInsensitive) &&
               (end == text_.size() || !IsWordCharacter(text_[end]));
    }
    bool Take(QLatin1String word) {
        if (!StartsWith(word)) return false;
        at_ += word.size();
        return true;
    }
    // [name], "name", or a word in which the characters of `more` may stand too.
    bool TakeName(QLatin1String more) {
        if (const QChar first = AtEnd() ? QChar() : text_[at_]; first == u'[' || first == u'"')
            return TakeQuoted(first == u'[' ? u']' : u'"');
        const qsizetype begin = at_;
        while (!AtEnd() && (IsWordCharacter(text_[at_]) || more.contains(text_[at_]))) ++at_;
        return at_ > begin;
    }
    bool TakeColumn() { return Take(u'*') || TakeName(QLatin1String(".")); }

private:
    bool TakeQuoted(char16_t close) {
        const qsizetype end = text_.indexOf(QChar(close), at_ + 1);
        if (end <= at_ + 1) return false; // not closed, or nothing in it
        at_ = end + 1;
        return true;
    }

    QStringView text_;
    qsizetype at_ = 0;
};

// One column or more, with commas between them and blanks behind the last.
bool TakeColumns(Reader &reader, QStringView &columns) {
    const qsizetype begin = reader.At();
    while (true) {
        if (!reader.TakeColumn()) return false;
        columns = reader.From(begin);
        const bool blanks = reader.TakeBlanks();
        if (!reader.Take(u',')) return blanks;
        reader.TakeBlanks();
    }
}

// Whether the query folds rows into others (GROUP BY, UNION and the like); such words in names and texts
// don't count.
bool Folds(const QString &rest) {
    if (rest.isEmpty()) return false;
    static const QRegularExpression folded(
        QStringLiteral(
            "'[^']*'|\"[^\"]*\"|\\[[^\\]]*\\]|(\\bGROUP\\s+BY\\b|\\bUNION\\b|\\bEXCEPT\\b|\\bINTERSECT\\b)"),
        QRegularExpression::CaseInsensitiveOption);
    auto words = folded.globalMatch(rest);
    while (words.hasNext())
        if (!words.next().captured(1).isEmpty()) return true;
    return false;
}

} // namespace

QString SelectText::WithRowId() const {
    return QStringLiteral("SELECT %1, %2 FROM %3 %4").arg(columns, kRowId, QuotedName(table), rest);
}

QString SelectText::OfOneRow() const {
    return QStringLiteral("SELECT %1 FROM %2 WHERE %3=?").arg(columns, QuotedName(table), kRowId);
}

// Reads by hand: almost every query at the start of the program is one of a whole table, and compiling a
// regular expression first would take longer than all of them.
std::optional<SelectText> SplitSelect(const QString &sql) {
    Reader reader(sql);
    reader.TakeBlanks();
    if (!reader.Take(QLatin1String("SELECT")) || !reader.TakeBlanks()) return std::nullopt;
    if (reader.StartsWith(QLatin1String("DISTINCT")) || reader.StartsWith(QLatin1String("ALL")))
        return std::nullopt;
    QStringView columns;
    if (!TakeColumns(reader, columns)) return std::nullopt;
    if (!reader.Take(QLatin1String("FROM")) || !reader.TakeBlanks()) return std::nullopt;
    const qsizetype name = reader.At();
    if (!reader.TakeName({})) return std::nullopt;
    const QString table = BareName(reader.From(name).toString());
    reader.TakeBlanks();
    if (reader.Take(u';')) reader.TakeBlanks();
    const bool narrows =
        reader.StartsWith(QLatin1String("WHERE")) || reader.StartsWith(QLatin1String("ORDER"));
    if (!reader.AtEnd() && !narrows) return std::nullopt;
    const QString rest = sql.mid(reader.At());
    if (Folds(rest)) return std::nullopt;
    return SelectText{columns.toString(), table, rest};
}

} // namespace storage
