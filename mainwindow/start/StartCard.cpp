#include "mainwindow/start/StartCard.h"

#include "mainwindow/icons/Icons.h"
#include "support/MixColours.h"

#include <QApplication>
#include <QFontInfo>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolButton>
#include <QToolTip>

namespace mainwindow {

namespace {

constexpr int kPadding = 10; // pixels, as all below
constexpr int kGap = 6;
constexpr int kIcon = 28;
constexpr int kPlainIcon = 40; // where a picture would be
constexpr int kCorner = 6;
constexpr int kActionWidth = 220;
constexpr double kNoteShare = 0.9; // of the font's size
constexpr double kNoteInk = 0.3;   // how much of the ground is mixed into the ink
constexpr double kGoneOpacity = 0.5;

QRectF Inside(const QRect &rect, double width) {
    return QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2);
}

} // namespace

StartCard::StartCard(const StartCardText &text, const QIcon &icon, const QSize &picture, QWidget *parent)
    : QAbstractButton(parent), text_(text), pictureSize_(picture) {
    setText(text.title);
    setIcon(icon);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(text.note.isEmpty() ? text.title : QStringLiteral("%1, %2").arg(text.title, text.note));
    setAccessibleDescription(text.tip);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void StartCard::SetPicture(const QImage &picture) {
    picture_ = picture;
    update();
}

void StartCard::SetGone() {
    gone_ = true;
    ShowRemoveButton();
    update();
}

void StartCard::MakeRemovable(const QString &tip) {
    remove_ = new QToolButton(this);
    remove_->setObjectName(QStringLiteral("cmdRemove"));
    remove_->setIcon(Icon(QStringLiteral("close")));
    remove_->setToolTip(tip);
    remove_->setAccessibleName(QStringLiteral("%1: %2").arg(tip, text_.title));
    remove_->setFocusPolicy(Qt::NoFocus); // Del on the card is its key
    remove_->setCursor(Qt::ArrowCursor);
    connect(remove_, &QToolButton::clicked, this, &StartCard::RemoveAsked);
    setAccessibleDescription(QStringLiteral("%1 (Del: %2)").arg(text_.tip, tip));
    ShowRemoveButton();
}

void StartCard::ShowRemoveButton() {
    if (remove_) remove_->setVisible(gone_ || underMouse() || hasFocus());
}

QFont StartCard::NoteFont() const {
    QFont small = font();
    small.setPointSizeF(QFontInfo(font()).pointSizeF() * kNoteShare);
    return small;
}

QSize StartCard::sizeHint() const {
    ensurePolished();
    int height = fontMetrics().height();
    if (!text_.note.isEmpty()) height += QFontMetrics(NoteFont()).height();
    if (IsTile()) return pictureSize_ + QSize(2 * kPadding, 2 * kPadding + kGap + height);
    return {kActionWidth, std::max(height, kIcon) + 2 * kPadding};
}

QRect StartCard::PictureRect() const {
    if (!IsTile()) return {kPadding, (height() - kIcon) / 2, kIcon, kIcon};
    return {(width() - pictureSize_.width()) / 2, kPadding, pictureSize_.width(), pictureSize_.height()};
}

QRect StartCard::TextRect() const {
    if (IsTile()) return rect().adjusted(kPadding, PictureRect().bottom() + kGap, -kPadding, -kPadding);
    return rect().adjusted(2 * kPadding + kIcon, kPadding, -kPadding, -kPadding);
}

void StartCard::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    PaintGround(painter);
    painter.setOpacity(gone_ ? kGoneOpacity : 1);
    PaintPicture(painter);
    painter.setOpacity(1);
    PaintText(painter);
}

void StartCard::PaintGround(QPainter &painter) const {
    const QColor base = palette().color(QPalette::Base), mark = palette().color(QPalette::Highlight);
    const double share = isDown() ? 0.18 : underMouse() ? 0.08 : 0;
    const double width = hasFocus() ? 2 : 1;
    const QColor edge =
        support::Mix(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.2);
    painter.setPen(QPen(hasFocus() || underMouse() ? mark : edge, width));
    painter.setBrush(support::Mix(base, mark, share));
    painter.drawRoundedRect(Inside(rect(), width), kCorner, kCorner);
}

void StartCard::PaintPicture(QPainter &painter) const {
    const QRect place = PictureRect();
    if (!IsTile()) return icon().paint(&painter, place);
    const QColor base = palette().color(QPalette::Base), ink = palette().color(QPalette::Text);
    painter.setPen(support::Mix(base, ink, 0.2));
    painter.setBrush(support::Mix(base, ink, 0.05));
    painter.drawRect(Inside(place, 1));
    if (!picture_.isNull()) return painter.drawImage(place.adjusted(1, 1, -1, -1), picture_);
    QRect small(0, 0, kPlainIcon, kPlainIcon);
    small.moveCenter(place.center());
    icon().paint(&painter, small);
}

void StartCard::PaintText(QPainter &painter) const {
    const QRect place = TextRect();
    const QFontMetrics title(font()), note(NoteFont());
    const int height = title.height() + (text_.note.isEmpty() ? 0 : note.height());
    const int top = IsTile() ? place.top() : place.top() + (place.height() - height) / 2;
    const QColor ink = palette().color(QPalette::Text);
    const QColor soft = support::Mix(ink, palette().color(QPalette::Base), kNoteInk);
    painter.setFont(font());
    painter.setPen(gone_ ? soft : ink);
    painter.drawText(QRect(place.left(), top, place.width(), title.height()), Qt::AlignVCenter,
                     title.elidedText(text_.title, Qt::ElideRight, place.width()));
    painter.setFont(NoteFont());
    painter.setPen(soft);
    painter.drawText(QRect(place.left(), top + title.height(), place.width(), note.height()),
                     Qt::AlignVCenter, note.elidedText(text_.note, Qt::ElideRight, place.width()));
}

QString StartCard::FullText() const {
    QStringList lines{text_.title};
    for (const QString &line : {text_.note, text_.tip})
        if (!line.isEmpty() && !lines.contains(line)) lines << line;
    return lines.join(u'\n');
}

bool StartCard::event(QEvent *event) {
    if (event->type() == QEvent::ToolTip) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), FullText(), this);
        return true;
    }
    return QAbstractButton::event(event);
}

void StartCard::enterEvent(QEnterEvent *event) {
    QAbstractButton::enterEvent(event);
    ShowRemoveButton();
}

void StartCard::leaveEvent(QEvent *event) {
    QAbstractButton::leaveEvent(event);
    ShowRemoveButton();
}

void StartCard::focusInEvent(QFocusEvent *event) {
    QAbstractButton::focusInEvent(event);
    ShowRemoveButton();
}

void StartCard::focusOutEvent(QFocusEvent *event) {
    QAbstractButton::focusOutEvent(event);
    ShowRemoveButton();
}

void StartCard::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    if (event->key() == Qt::Key_Delete && remove_) return Q_EMIT RemoveAsked();
    if (event->key() == Qt::Key_Space) return QAbstractButton::keyPressEvent(event);
    event->ignore(); // the page goes from card to card
}

void StartCard::mousePressEvent(QMouseEvent *event) {
    press_ = event->position().toPoint();
    QAbstractButton::mousePressEvent(event); // takes the left button alone
}

void StartCard::mouseMoveEvent(QMouseEvent *event) {
    const int distance = (event->position().toPoint() - press_).manhattanLength();
    if (event->buttons() == Qt::LeftButton && isDown() && distance >= QApplication::startDragDistance()) {
        setDown(false);
        return Q_EMIT DraggedFrom(press_);
    }
    QAbstractButton::mouseMoveEvent(event);
}

void StartCard::resizeEvent(QResizeEvent *event) {
    QAbstractButton::resizeEvent(event);
    if (!remove_) return;
    const QSize size = remove_->sizeHint();
    remove_->setGeometry(QRect(QPoint(width() - size.width() - kGap, kGap), size));
}

} // namespace mainwindow
