#include "dialogs/clsCompactPath.h"

#include "support/Files.h"

#include <QEvent>
#include <QFontMetrics>

namespace dialogs {

namespace {

constexpr int kUsual = 40, kLeast = 12; // characters
constexpr qsizetype kLongest = 1000;

QString InOneLine(QString path) {
    for (QChar &character : path)
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = u' ';
    return path;
}

// The ends of the folders of `path`, its own end left out, from the longest to the shortest.
QList<qsizetype> FolderEnds(const QString &path) {
    QList<qsizetype> ends;
    qsizetype end = support::LastSeparator(path);
    while (end > 0) {
        end = support::LastSeparator(path.left(end));
        if (end >= 0) ends << end + 1;
    }
    return ends;
}

} // namespace

QString CompactPath(const QString &path, const QFontMetrics &metrics, int width) {
    const QString whole = InOneLine(WithoutMiddle(path, kLongest));
    const auto fits = [&](const QString &text) { return metrics.horizontalAdvance(text) <= width; };
    if (fits(whole)) return whole;
    const qsizetype name = support::LastSeparator(whole);
    if (name < 0) return metrics.elidedText(whole, Qt::ElideMiddle, width);
    const QString rest = QStringLiteral("...") + whole.mid(name);
    for (const qsizetype end : FolderEnds(whole))
        if (fits(whole.left(end) + rest)) return whole.left(end) + rest;
    return fits(rest) ? rest : metrics.elidedText(whole.mid(name + 1), Qt::ElideMiddle, width);
}

QString WithoutMiddle(const QString &text, qsizetype most) {
    return text.size() <= most ? text : text.left(most / 2) + QStringLiteral("...") + text.right(most / 2);
}

QString TipOf(const QString &path) {
    if (path.isEmpty()) return QString();
    return QStringLiteral("<qt>%1</qt>").arg(WithoutMiddle(path, kLongest).toHtmlEscaped());
}

PathLabel::PathLabel(QWidget *parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMargin(3);
}

QSize PathLabel::sizeHint() const {
    return {kUsual * fontMetrics().averageCharWidth(), QLabel::sizeHint().height()};
}

QSize PathLabel::minimumSizeHint() const {
    return {kLeast * fontMetrics().averageCharWidth(), QLabel::sizeHint().height()};
}

void PathLabel::resizeEvent(QResizeEvent *event) {
    QLabel::resizeEvent(event);
    Compact();
}

void PathLabel::changeEvent(QEvent *event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) Compact();
}

void PathLabel::Compact() {
    const QString shown = CompactPath(tag_, fontMetrics(), contentsRect().width() - 2 * margin());
    if (shown != text()) setText(shown);
}

void clsCompactPath::CompactPathIntoControl(const QString &path, PathLabel &control) const {
    control.tag_ = path;
    control.Compact();
    control.setToolTip(TipOf(path));
    control.setAccessibleDescription(path);
}

} // namespace dialogs
