#include "product/help/Terms.h"

#include <QRegularExpression>

namespace product {

namespace {

QString LikeFirst(const QString &word, const QString &model) {
    return model.at(0).isUpper() ? word.at(0).toUpper() + word.mid(1) : word.at(0).toLower() + word.mid(1);
}

QString Replaced(QString text, const QString &word, const QString &term) {
    if (term.isEmpty()) return text;
    const QRegularExpression expression(
        QStringLiteral("\\b%1(?=s?\\b)(?! (?:two|the selected)\\b)").arg(word),
        QRegularExpression::CaseInsensitiveOption);
    qsizetype at = 0;
    for (QRegularExpressionMatch match; (match = expression.match(text, at)).hasMatch();) {
        const QString with = LikeFirst(term, match.captured());
        text.replace(match.capturedStart(), match.capturedLength(), with);
        at = match.capturedStart() + with.size();
    }
    return text;
}

QString Prose(const settings::ProductTerms &terms, QString text) {
    const std::pair<const char *, QString> words[] = {
        {"map", terms.MAP}, {"slice", terms.SLICE}, {"node", terms.NODE}, {"link", terms.LINK}};
    for (const auto &[word, term] : words) text = Replaced(text, QLatin1String(word), term);
    return text.replace(QStringLiteral("Velmora"), terms.TITLE);
}

QString Code(const settings::ProductTerms &terms, QString text) {
    return text.replace(QStringLiteral("Velmora/"), terms.TITLE + QLatin1Char('/'))
        .replace(QStringLiteral("/Velmora"), QLatin1Char('/') + terms.TITLE);
}

} // namespace

QString InTermsOf(const settings::ProductTerms &terms, const QString &markdown) {
    // Code spans, and where links and pictures lead to.
    static const QRegularExpression kept(QStringLiteral("`[^`]*`|\\]\\([^)]*\\)"));
    QString text;
    qsizetype at = 0;
    for (auto spans = kept.globalMatch(markdown); spans.hasNext();) {
        const QRegularExpressionMatch span = spans.next();
        text += Prose(terms, markdown.mid(at, span.capturedStart() - at));
        text += span.captured().startsWith(u'`') ? Code(terms, span.captured()) : span.captured();
        at = span.capturedEnd();
    }
    return text + Prose(terms, markdown.mid(at));
}

} // namespace product
