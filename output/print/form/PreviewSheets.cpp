#include "output/print/form/PreviewSheets.h"

#include "output/print/PrnFlow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

namespace print {

namespace {

constexpr int kGap = 20;             // pixels around sheets
constexpr int kShadow = 4;           // pixels
constexpr int kPaintingTime = 60;    // milliseconds for pictures in one paint event; the rest comes later
constexpr double kMostPixels = 24e6; // of sheets that are kept though unseen
constexpr double kLargeSheet = 16e6; // pixels beyond which a sheet is painted as far as it is seen
constexpr double kPerCent = 0.01;
constexpr int kWheelStep = 120; // what one notch of a wheel reports

} // namespace

PreviewSheets::PreviewSheets(PrnFlow &flow, QWidget *parent) : QAbstractScrollArea(parent), flow_(&flow) {
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(tr("Pages"));
    viewport()->setCursor(Qt::OpenHandCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    Renew();
}

PreviewSheets::~PreviewSheets() = default;

int PreviewSheets::Count() const { return flow_ ? flow_->Pages() : 0; }

void PreviewSheets::Renew() {
    if (!flow_) return;
    slices_ = std::make_unique<PrintSlices>(flow_->Map(), *flow_, flow_->TheSheets());
    painted_.clear();
    LayOut();
    ShowPage();
    viewport()->update();
}

void PreviewSheets::Forget() {
    slices_.reset();
    painted_.clear();
    flow_ = nullptr;
    LayOut();
}

void PreviewSheets::SetZoom(int percent) {
    if (percent == zoom_) return;
    zoom_ = percent;
    painted_.clear();
    LayOut();
    ShowPage();
    viewport()->update();
}

double PreviewSheets::PixelsOfMillimetre() const {
    return logicalDpiX() / kMillimetresPerInch * zoom_ * kPerCent;
}

// All sheets are of one paper.
QSizeF PreviewSheets::SheetSize() const {
    if (Count() == 0) return {};
    const QSizeF size = flow_->LayoutOf(1).paper * PixelsOfMillimetre();
    return {std::round(size.width()), std::round(size.height())};
}

void PreviewSheets::LayOut() {
    const QSizeF size = SheetSize();
    const QSize room = viewport()->size();
    const int fitting = int((room.width() - kGap) / (size.width() + kGap));
    columns_ = std::max(1, std::min(fitting, std::max(1, Count())));
    const int rows = (Count() + columns_ - 1) / columns_;
    const auto extent = [](int sheets, double side) { return int(sheets * (side + kGap)) + kGap; };
    const QSize whole(extent(columns_, size.width()), extent(rows, size.height()));
    const auto set = [](QScrollBar &bar, int content, int seen) {
        bar.setRange(0, std::max(0, content - seen));
        bar.setPageStep(seen);
        bar.setSingleStep(kGap);
    };
    set(*horizontalScrollBar(), whole.width(), room.width());
    set(*verticalScrollBar(), whole.height(), room.height());
}

QRectF PreviewSheets::ContentRect(int sheet) const {
    const QSizeF size = SheetSize();
    const double wide = columns_ * (size.width() + kGap) + kGap;
    const double left = std::floor(std::max(0.0, (viewport()->width() - wide) / 2)) + kGap;
    const int row = sheet / columns_, column = sheet % columns_;
    return {QPointF(left + column * (size.width() + kGap), kGap + row * (size.height() + kGap)), size};
}

QRectF PreviewSheets::SheetRect(int sheet) const {
    return ContentRect(sheet).translated(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
}

// Scrolls as little as brings the whole sheet into sight; to its start, where it has no room or stands
// before.
void PreviewSheets::ShowPage() {
    if (!flow_ || flow_->Page() == 0) return;
    showing_ = true;
    const QRectF sheet = ContentRect(flow_->Page() - 1);
    const auto bring = [](QScrollBar &bar, double from, double to, double seen) {
        if (to - from + 2 * kGap > seen || from - kGap < bar.value())
            bar.setValue(int(from) - kGap);
        else if (to + kGap > bar.value() + seen)
            bar.setValue(int(std::ceil(to + kGap - seen)));
    };
    bring(*horizontalScrollBar(), sheet.left(), sheet.right(), viewport()->width());
    bring(*verticalScrollBar(), sheet.top(), sheet.bottom(), viewport()->height());
    showing_ = false;
    viewport()->update();
}

bool PreviewSheets::IsLarge() const {
    const QSizeF size = SheetSize() * devicePixelRatioF();
    return size.width() * size.height() > kLargeSheet;
}

void PreviewSheets::PaintDirectly(QPainter &painter, int sheet) {
    const QRectF place = SheetRect(sheet);
    painter.fillRect(place, Qt::white);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    slices_->Paint(painter, sheet, PixelsOfMillimetre(), false);
    painter.restore();
}

void PreviewSheets::MakePicture(int sheet) {
    const double dots = devicePixelRatioF();
    const QSize size = (SheetSize() * dots).toSize();
    QPixmap picture(size);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    slices_->Paint(painter, sheet, PixelsOfMillimetre() * dots, false);
    painter.end();
    picture.setDevicePixelRatio(dots);
    painted_.insert(sheet, picture);
}

void PreviewSheets::DropUnseen() {
    const QRectF seen = viewport()->rect();
    const double each = std::max(1.0, SheetSize().width() * SheetSize().height());
    if (double(painted_.size()) * each <= kMostPixels) return;
    painted_.removeIf([&](const auto &entry) { return !SheetRect(entry.key()).intersects(seen); });
}

// The edge of what is printed there, so that one sees where a page ends. Only on the screen.
void PreviewSheets::PaintGuides(QPainter &painter, int sheet) {
    const double scale = PixelsOfMillimetre();
    const PageLayout &layout = flow_->LayoutOf(sheet + 1);
    const QRectF body(layout.body.topLeft() * scale, layout.body.size() * scale);
    painter.setPen(QPen(QColor(0, 0, 0, 45), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(body.translated(SheetRect(sheet).topLeft()).toAlignedRect());
}

void PreviewSheets::PaintSheet(QPainter &painter, int sheet) {
    const QRectF place = SheetRect(sheet);
    for (int i = kShadow; i > 0; --i) painter.fillRect(place.adjusted(i, i, i, i), QColor(0, 0, 0, 28));
    const auto picture = painted_.constFind(sheet);
    if (picture != painted_.constEnd())
        painter.drawPixmap(place.topLeft(), *picture);
    else if (IsLarge())
        PaintDirectly(painter, sheet);
    else
        painter.fillRect(place, Qt::white);
    PaintGuides(painter, sheet);
    const bool current = flow_->Page() == sheet + 1 && Count() > 1;
    painter.setPen(
        QPen(current ? palette().color(QPalette::Highlight) : QColor(0, 0, 0, 90), current ? 2 : 1));
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
}

void PreviewSheets::paintEvent(QPaintEvent *) {
    QPainter painter(viewport());
    const QColor window = palette().color(QPalette::Window);
    painter.fillRect(viewport()->rect(), window.lightness() < 128 ? window.lighter(130) : window.darker(125));
    QElapsedTimer timer;
    timer.start();
    const QSizeF size = SheetSize();
    if (size.isEmpty()) return;
    const int rowHeight = int(size.height()) + kGap;
    const int first = std::max(0, (verticalScrollBar()->value() - kGap) / rowHeight) * columns_;
    for (int sheet = first; sheet < Count(); ++sheet) {
        const QRectF place = SheetRect(sheet);
        if (place.top() > viewport()->height()) break;
        if (!place.adjusted(0, 0, kShadow, kShadow).intersects(QRectF(viewport()->rect()))) continue;
        const bool missing = !IsLarge() && !IsPainted(sheet);
        if (missing && timer.elapsed() <= kPaintingTime)
            MakePicture(sheet);
        else if (missing)
            QTimer::singleShot(0, viewport(), qOverload<>(&QWidget::update));
        PaintSheet(painter, sheet);
    }
    DropUnseen();
}

void PreviewSheets::resizeEvent(QResizeEvent *event) {
    QAbstractScrollArea::resizeEvent(event);
    LayOut();
    ShowPage();
}

void PreviewSheets::changeEvent(QEvent *event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) viewport()->update();
}

void PreviewSheets::scrollContentsBy(int, int) {
    viewport()->update();
    if (!showing_) FollowScroll();
}

// The first sheet of which at least half is seen becomes the current one, unless that is true of it already.
void PreviewSheets::FollowScroll() {
    const QRectF seen = viewport()->rect();
    const auto share = [&](int sheet) {
        const QRectF place = SheetRect(sheet), part = place & seen;
        const double most = std::min(place.width() * place.height(), seen.width() * seen.height());
        return most > 0 ? part.width() * part.height() / most : 0;
    };
    constexpr double kHalf = 0.5;
    if (Count() == 0 || share(flow_->Page() - 1) >= kHalf) return;
    const int row = int((verticalScrollBar()->value() + seen.height() / 2) / (SheetSize().height() + kGap));
    const int page = std::min(row * columns_ + 1, Count());
    if (page == flow_->Page()) return;
    flow_->SetPage(page);
    Q_EMIT PageChanged();
}

void PreviewSheets::GoTo(int page) {
    if (!flow_) return;
    const int former = flow_->Page();
    flow_->SetPage(page);
    ShowPage();
    if (flow_->Page() != former) Q_EMIT PageChanged();
}

void PreviewSheets::wheelEvent(QWheelEvent *event) {
    if (!(event->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
    const int delta = event->angleDelta().y();
    if (delta != 0)
        Q_EMIT ZoomWanted(std::abs(delta) >= kWheelStep ? delta / kWheelStep : (delta > 0 ? 1 : -1));
    event->accept();
}

void PreviewSheets::keyPressEvent(QKeyEvent *event) {
    if (!flow_) return;
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_PageDown:
        return GoTo(flow_->Page() + 1);
    case Qt::Key_PageUp:
        return GoTo(flow_->Page() - 1);
    case Qt::Key_Home:
        return GoTo(1);
    case Qt::Key_End:
        return GoTo(Count());
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        if (ctrl) return Q_EMIT ZoomWanted(1);
        break;
    case Qt::Key_Minus:
        if (ctrl) return Q_EMIT ZoomWanted(-1);
        break;
    default:
        break;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void PreviewSheets::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) return;
    holding_ = true, dragged_ = false;
    heldAt_ = event->position();
    heldScroll_ = {horizontalScrollBar()->value(), verticalScrollBar()->value()};
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void PreviewSheets::mouseMoveEvent(QMouseEvent *event) {
    if (!holding_) return;
    const QPoint moved = (event->position() - heldAt_).toPoint();
    dragged_ = dragged_ || moved.manhattanLength() >= QApplication::startDragDistance();
    if (!dragged_) return;
    horizontalScrollBar()->setValue(heldScroll_.x() - moved.x());
    verticalScrollBar()->setValue(heldScroll_.y() - moved.y());
}

// A click without a drag chooses the sheet.
void PreviewSheets::mouseReleaseEvent(QMouseEvent *event) {
    if (!std::exchange(holding_, false)) return;
    viewport()->setCursor(Qt::OpenHandCursor);
    if (dragged_) return;
    for (int sheet = 0; sheet < Count(); ++sheet)
        if (SheetRect(sheet).contains(event->position())) return GoTo(sheet + 1);
}

} // namespace print
