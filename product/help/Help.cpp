#include "product/help/Help.h"

#include "product/help/Finish.h"
#include "product/help/Flow.h"
#include "product/help/RichText.h"
#include "product/help/Style.h"
#include "product/help/Terms.h"
#include "support/Error.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgRenderer>

namespace product {

namespace {

using namespace style;

constexpr int kLastLevelInContents = 2;
constexpr double kIconSide = Points(64);

const QSizeF kPaper = QPageSize(QPageSize::A4).size(QPageSize::Point);
const double kWidth = Points(kPaper.width()) - 2 * kSideMargin;
const double kHeight = Points(kPaper.height()) - kTopMargin - kBottomMargin;

QString ReadText(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw support::Error(support::kErrFileNotFound, QStringLiteral("velmora-help"),
                             QStringLiteral("%1 can't be read").arg(path));
    return QString::fromUtf8(file.readAll());
}

void PaintAtRight(QPainter &painter, const QString &text, const TextLook &look, const QString &link,
                  QPointF right) {
    const RichText rich = PlainText(text, look, link);
    const double width = NaturalWidth(rich, look);
    PaintText(*LayOut(rich, look, width + 1), painter, right - QPointF(width, 0));
}

// The dots from a title to the number of its page, on one grid for all lines, so that they stand below each
// other.
void PaintLeaders(QPainter &painter, double from, double to, double y) {
    constexpr double kStep = Points(4.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kRule);
    for (double x = (int(from / kStep) + 2) * kStep; x < to - kStep; x += kStep)
        painter.drawEllipse(QPointF(x, y), Points(0.55), Points(0.55));
}

// A heading of the guide, a link, with the number of its page.
Part ContentsLine(const Place &place) {
    const bool large = place.level == 1;
    const TextLook look{large ? 11.5 : 10.5, kInk}, number{look.size, kQuiet};
    const QString link = u'#' + place.anchor;
    const double indent = (place.level - 1) * Points(16);
    const Layout text = LayOut(PlainText(place.title, look, link), look, kWidth * 0.85, indent);
    Part part;
    part.piece.height = HeightOf(*text);
    part.piece.gap = Points(large ? 6 : 2);
    part.paint = [=](QPainter &painter, QPointF at) {
        PaintText(*text, painter, at);
        const QString digits = QString::number(place.page + 1);
        const double end = kWidth - NaturalWidth(PlainText(digits, number), number);
        PaintLeaders(painter, at.x() + indent + text->lineAt(0).naturalTextWidth(), at.x() + end,
                     at.y() + text->lineAt(0).ascent());
        PaintAtRight(painter, digits, number, link, at + QPointF(kWidth, 0));
    };
    return part;
}

// The icon, the title and the version.
Part TitlePart(const HelpTask &task, const QString &title) {
    const TextLook large{kTitleSize, kHeading, true}, small{kTextSize + 1, kQuiet};
    const double left = kIconSide + Points(18);
    const Layout name = LayOut(PlainText(title, large), large, kWidth, left);
    const Layout version =
        LayOut(PlainText(QStringLiteral("Version %1").arg(task.version), small), small, kWidth, left);
    Part part;
    part.piece.height = kIconSide + Points(20);
    part.paint = [=, icon = task.icon](QPainter &painter, QPointF at) {
        QSvgRenderer(icon).render(&painter, QRectF(at, QSizeF(kIconSide, kIconSide)));
        PaintText(*name, painter, at + QPointF(0, Points(2)));
        PaintText(*version, painter, at + QPointF(0, Points(2) + HeightOf(*name)));
        painter.setPen(QPen(kRule, Points(1)));
        const QPointF rule = at + QPointF(0, kIconSide + Points(18));
        painter.drawLine(rule, rule + QPointF(kWidth, 0));
    };
    return part;
}

Part Caption(const QString &text) {
    const TextLook look{HeadingSize(2), kHeading, true};
    const Layout layout = LayOut(PlainText(text, look), look, kWidth);
    Part part;
    part.piece = {HeightOf(*layout) + Points(4), Points(14), true};
    part.paint = [layout](QPainter &painter, QPointF at) { PaintText(*layout, painter, at); };
    return part;
}

std::vector<Page> PagesOf(const Flow &flow) {
    std::vector<Piece> pieces;
    for (const Part &part : flow) pieces.push_back(part.piece);
    return BreakIntoPages(pieces, kHeight);
}

// The headings that stand in the contents and the bookmarks; the guide begins on page `first`, from 0.
QList<Place> PlacesOf(const Flow &guide, int first) {
    QList<Place> places;
    int number = first;
    for (const Page &page : PagesOf(guide)) {
        for (const Placed &placed : page) {
            const Part &part = guide[placed.piece];
            if (part.level < 1) continue;
            const double y = kPaper.height() - (kTopMargin + placed.top) / Points(1);
            places.append({AnchorOf(part.heading), part.heading, part.level - 1, number, y});
        }
        ++number;
    }
    return places;
}

Flow Front(const HelpTask &task, const QString &title, const QList<Place> &places) {
    Flow front{TitlePart(task, title), Caption(QStringLiteral("Contents"))};
    for (const Place &place : places)
        if (place.level <= kLastLevelInContents) front.push_back(ContentsLine(place));
    return front;
}

void PaintPage(QPainter &painter, const Flow &flow, const Page &page) {
    for (const Placed &placed : page)
        flow[placed.piece].paint(painter, QPointF(kSideMargin, kTopMargin + placed.top));
}

void PaintFoot(QPainter &painter, const QString &title, int number) {
    const TextLook look{kSmallSize, kQuiet};
    const QPointF left(kSideMargin, Points(kPaper.height()) - kFootFromBottom);
    PaintText(*LayOut(PlainText(title, look), look, kWidth), painter, left);
    PaintAtRight(painter, QString::number(number), look, QString(), left + QPointF(kWidth, 0));
}

void PaintAll(QPdfWriter &writer, const QString &title, const std::vector<const Flow *> &flows) {
    QPainter painter(&writer);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::LosslessImageRendering);
    int number = 0;
    for (const Flow *flow : flows)
        for (const Page &page : PagesOf(*flow)) {
            if (number++) writer.newPage();
            PaintPage(painter, *flow, page);
            if (number > 1) PaintFoot(painter, title, number);
        }
}

QByteArray Written(const HelpTask &task, const QString &title, const std::vector<const Flow *> &flows) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kResolution);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("%1 %2").arg(task.terms.TITLE, task.version));
    PaintAll(writer, title, flows);
    return bytes;
}

} // namespace

QByteArray HelpPdf(const HelpTask &task) {
    QTextDocument document;
    document.setMarkdown(InTermsOf(task.terms, ReadText(task.guide)));
    const QString title = TitleOf(document);
    const Flow guide = FlowOf(document, QFileInfo(task.guide).path(), kWidth);
    const int first = int(PagesOf(Front(task, title, PlacesOf(guide, 0))).size());
    const QList<Place> places = PlacesOf(guide, first);
    const Flow front = Front(task, title, places);
    PdfFile file(Written(task, title, {&front, &guide}));
    LeadLinks(file, places);
    AddBookmarks(file, places);
    SetDate(file, task.date);
    return file.Bytes();
}

} // namespace product
