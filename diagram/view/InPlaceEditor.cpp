#include "diagram/view/InPlaceEditor.h"

#include "diagram/geometry/Units.h"
#include "diagram/view/Viewport.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPointer>
#include <QTextDocument>

namespace diagram {

namespace {

constexpr double kScreenDpi = 96;
constexpr int kSmallestWidth = 16; // pixels
constexpr int kCursorRoom = 4;     // pixels behind a line that isn't wrapped

// Alignment is three families of three: left, right, centre; top, middle, bottom within each.
Qt::Alignment Across(int alignment) {
    constexpr std::array<Qt::Alignment, 3> kFamilies{Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    return kFamilies[size_t(alignment / 3) % 3];
}

double ShareAbove(int alignment) { return (alignment % 3) / 2.0; }

} // namespace

InPlaceEditor::InPlaceEditor(const QString &text, QWidget *parent, std::function<void(bool)> finished)
    : QTextEdit(parent), finished_(std::move(finished)) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAcceptRichText(false);
    setAccessibleName(QStringLiteral("Text"));
    document()->setDocumentMargin(0);
    setPlainText(text);
    document()->setUndoRedoEnabled(true);
    connect(document(), &QTextDocument::contentsChanged, this, [this] { Fit(); });
}

void InPlaceEditor::Show(const TextPlace &place, const Viewport &viewport, const QColor &behind) {
    area_ = viewport.FromSurface(place.area);
    alignment_ = place.alignment;
    wraps_ = place.wraps;
    SetLook(place, viewport.yScale() * kTwipsPerPixel, behind);
    QTextDocument painted(place.painted);
    painted.setDocumentMargin(0);
    painted.setDefaultFont(font());
    painted.setDefaultTextOption(document()->defaultTextOption());
    painted.setTextWidth(wraps_ ? area_.width() : -1);
    painted_ = QSizeF(painted.idealWidth(), painted.size().height());
    Fit();
    show();
}

void InPlaceEditor::SetLook(const TextPlace &place, double pointScale, const QColor &behind) {
    QFont font(place.font.Name());
    font.setPointSizeF(qMax(1.0, place.font.Size() * pointScale * kScreenDpi / logicalDpiY()));
    font.setBold(place.font.Bold());
    font.setItalic(place.font.Italic());
    font.setUnderline(place.font.Underline());
    font.setStrikeOut(place.font.Strike());
    setFont(font);
    QPalette look = palette();
    const QColor fill = place.fillColor ? support::ToQColor(*place.fillColor) : behind;
    look.setColor(QPalette::Base, fill);
    look.setColor(QPalette::Window, fill);
    look.setColor(QPalette::Text, support::ToQColor(place.foreColor));
    setPalette(look);
    setAutoFillBackground(true);
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(Across(place.alignment));
    option.setWrapMode(place.wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    document()->setDefaultTextOption(option);
}

void InPlaceEditor::Fit() {
    double width = qMax(area_.width(), double(kSmallestWidth));
    if (!wraps_) width = qMax(width, document()->idealWidth() + kCursorRoom);
    document()->setTextWidth(wraps_ ? width : -1);
    const double text = std::ceil(document()->size().height());
    const double height = std::max({area_.height(), text, painted_.height()});
    const double above = ShareAbove(alignment_);
    const QRectF box(area_.center().x() - width / 2, area_.top() - (height - area_.height()) * above, width,
                     height);
    setViewportMargins(0, int((height - text) * above), 0, 0);
    setGeometry(box.toAlignedRect());
    Uncover(QSizeF(document()->idealWidth(), text).expandedTo(painted_));
}

// Shows the box only where it must hide the text below it or show its own, so that the node's outline stays
// in sight.
void InPlaceEditor::Uncover(const QSizeF &text) {
    constexpr double kRoom = 3; // pixels for the cursor at either side
    const double width = qMin(text.width() + 2 * kRoom, double(this->width()));
    const double spare = this->width() - width;
    const Qt::Alignment across = Across(alignment_);
    const double left = across == Qt::AlignLeft ? 0 : (across == Qt::AlignRight ? spare : spare / 2);
    const double top = (this->height() - text.height()) * ShareAbove(alignment_);
    setMask(QRectF(left, top, width, text.height()).toAlignedRect());
}

void InPlaceEditor::keyPressEvent(QKeyEvent *event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) return Finish(false);
    if (event->key() == Qt::Key_Tab || (enter && event->modifiers().testFlag(Qt::ControlModifier)))
        return Finish(true);
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (event->key() == Qt::Key_Insert && (!modifiers || modifiers == Qt::AltModifier))
        return FinishAndHandOn(event);
    QTextEdit::keyPressEvent(event);
}

// The text is kept, and the view acts on the key.
void InPlaceEditor::FinishAndHandOn(QKeyEvent *event) {
    const QPointer<QWidget> viewport = parentWidget();
    Finish(true);
    if (viewport && viewport->parentWidget()) QCoreApplication::sendEvent(viewport->parentWidget(), event);
}

void InPlaceEditor::insertFromMimeData(const QMimeData *source) {
    const int kept = document()->characterCount() - int(textCursor().selectedText().size());
    const QString text = source ? source->text().left(std::max(0, kLongestInPlace - kept)) : QString();
    if (!text.isEmpty()) textCursor().insertText(text);
    ensureCursorVisible();
}

void InPlaceEditor::focusOutEvent(QFocusEvent *event) {
    QTextEdit::focusOutEvent(event);
    constexpr Qt::FocusReason kComesBack[] = {Qt::PopupFocusReason, Qt::MenuBarFocusReason,
                                              Qt::ActiveWindowFocusReason};
    if (std::ranges::find(kComesBack, event->reason()) == std::end(kComesBack)) Finish(true);
}

void InPlaceEditor::Finish(bool keep) {
    if (const auto finished = std::exchange(finished_, nullptr)) finished(keep);
}

} // namespace diagram
