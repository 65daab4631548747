#include "product/help/Finish.h"

#include "support/Error.h"

#include <algorithm>
#include <QRegularExpression>

namespace product {

namespace {

QByteArray Destination(const PdfFile &file, const Place &place) {
    return "[" + Reference(file.Pages().value(place.page)) + " /XYZ null " +
           QByteArray::number(place.y, 'f', 2) + " null]";
}

[[noreturn]] void LeadsNowhere(const QString &address) {
    throw support::Error(support::kErrInvalidProcedureCall, QStringLiteral("LeadLinks"),
                         QStringLiteral("A link leads nowhere: %1").arg(address));
}

QByteArray ActionFor(const PdfFile &file, const QList<Place> &places, const QString &address) {
    const auto place = std::find_if(places.begin(), places.end(),
                                    [&](const Place &each) { return u'#' + each.anchor == address; });
    if (place == places.end()) LeadsNowhere(address);
    return "/S /GoTo\n/D " + Destination(file, *place) + "\n";
}

// The position of each place's parent: the last one before it of a smaller level; -1 for the root of the
// tree.
QList<int> Parents(const QList<Place> &places) {
    QList<int> parents;
    for (int i = 0; i < places.size(); ++i) {
        int parent = i - 1;
        while (parent >= 0 && places[parent].level >= places[i].level) parent = parents[parent];
        parents << parent;
    }
    return parents;
}

class Bookmarks {
public:
    Bookmarks(PdfFile &file, const QList<Place> &places)
        : file_(file), places_(places), parents_(Parents(places)) {
        root_ = file.Add(QByteArray());
        for (int i = 0; i < places.size(); ++i) numbers_ << file.Add(QByteArray());
    }
    int Write() {
        file_.Body(root_) = "<<\n/Type /Outlines\n" + Children(-1) + ">>";
        for (int i = 0; i < places_.size(); ++i)
            file_.Body(numbers_[i]) = "<<\n/Title " + PdfText(places_[i].title) + "\n/Parent " +
                                      Reference(parents_[i] < 0 ? root_ : numbers_[parents_[i]]) +
                                      "\n/Dest " + Destination(file_, places_[i]) + "\n" +
                                      Beside("/Prev ", i, -1) + Beside("/Next ", i, 1) + Children(i) + ">>";
        return root_;
    }

private:
    QByteArray Beside(const char *key, int of, int step) const {
        for (int i = of + step; i >= 0 && i < parents_.size(); i += step)
            if (parents_[i] == parents_[of]) return key + Reference(numbers_[i]) + "\n";
        return {};
    }
    // Of the place with that position, or of the root (-1). A count below zero shows them folded: all but the
    // first level are.
    QByteArray Children(int of) const {
        const qsizetype count = parents_.count(of);
        if (!count) return {};
        return "/First " + Reference(numbers_[parents_.indexOf(of)]) + "\n/Last " +
               Reference(numbers_[parents_.lastIndexOf(of)]) + "\n/Count " +
               QByteArray::number(of < 0 ? count : -count) + "\n";
    }

    PdfFile &file_;
    const QList<Place> &places_;
    const QList<int> parents_;
    QList<int> numbers_;
    int root_ = 0;
};

} // namespace

void LeadLinks(PdfFile &file, const QList<Place> &places) {
    static const QRegularExpression action(QStringLiteral("/S /URI\\s*/URI \\(([^)]*)\\)\\s*"));
    for (int number = 1; number <= file.Count(); ++number) {
        QByteArray &body = file.Body(number);
        if (!body.contains("/Subtype /Link")) continue;
        const QRegularExpressionMatch match = action.match(QString::fromLatin1(body));
        const QString address = match.captured(1);
        if (address.startsWith(u'#'))
            body.replace(match.capturedStart(), match.capturedLength(), ActionFor(file, places, address));
        else if (!address.contains(u':'))
            LeadsNowhere(address);
    }
}

void AddBookmarks(PdfFile &file, const QList<Place> &places) {
    const int root = Bookmarks(file, places).Write();
    QByteArray &catalogue = file.Body(file.Root());
    catalogue.insert(catalogue.lastIndexOf(">>"),
                     "/Outlines " + Reference(root) + "\n/PageMode /UseOutlines\n" +
                         "/ViewerPreferences << /DisplayDocTitle true >>\n/Lang (en-GB)\n");
}

void SetDate(PdfFile &file, const QDate &date) {
    static const QRegularExpression made(QStringLiteral("/CreationDate \\([^)]*\\)"));
    const QRegularExpressionMatch match = made.match(QString::fromLatin1(file.Body(file.Info())));
    if (!match.hasMatch()) return;
    file.Body(file.Info())
        .replace(match.capturedStart(), match.capturedLength(),
                 "/CreationDate (D:" + date.toString(QStringLiteral("yyyyMMdd")).toLatin1() + "120000Z)");
}

} // namespace product
