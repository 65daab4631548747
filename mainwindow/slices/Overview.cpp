#include "mainwindow/slices/Overview.h"

#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/OverviewMap.h"
#include "mainwindow/slices/OverviewPicture.h"
#include "mainwindow/start/StartOffer.h"
#include "settings/GetSet.h"
#include "support/Val.h"

#include <QMouseEvent>
#include <QScrollBar>

namespace mainwindow {

namespace {

const QString kSetting = QStringLiteral("OverviewHidden");
constexpr int kSettles = 200;       // milliseconds from a change to the picture of it
constexpr QSize kLargest(200, 150); // pixels
constexpr double kMostOfRoom = 0.3; // of either side
constexpr int kLeastRoom = 320;     // pixels of the longer side; in less there is no overview
constexpr int kMargin = 12;         // pixels to the edges of the page
constexpr int kNear = 32;           // pixels to which a drag may come near
constexpr double kSlack = 90;       // twips that may be out of sight unnoticed
constexpr double kBorder = 0.03;    // of the content, around it in the picture

QPoint CornerOf(const QRect &room, const QSize &size, bool right, bool bottom) {
    return {right ? room.right() + 1 - size.width() : room.left(),
            bottom ? room.bottom() + 1 - size.height() : room.top()};
}

bool IsMove(const QEvent &event) {
    return event.type() == QEvent::MouseMove &&
           static_cast<const QMouseEvent &>(event).buttons() != Qt::NoButton;
}

} // namespace

Overview::Overview(frmMain &window, QWidget *place) : window_(window), place_(place) {
    changed_.setSingleShot(true);
    changed_.setInterval(kSettles);
    connect(&changed_, &QTimer::timeout, this, &Overview::Update);
}

Overview::~Overview() {
    if (view_) view_->Model().Observers().Remove(*this);
}

bool Overview::IsEnabled() { return support::Val(settings::GetSet(kSetting)) == 0; }

void Overview::SetEnabled(bool enabled) {
    settings::SaveSet(kSetting, QString::number(enabled ? 0 : 1));
    for (frmMain *form : frmMain::Forms()) {
        form->SetMenuValue(QStringLiteral("mnuViewOverview"), enabled);
        form->TheOverview().Update();
    }
}

void Overview::Start() {
    started_ = true;
    changed_.start();
}

void Overview::Follow() {
    if (view_ == &window_.CurrentView()) return;
    if (view_) Leave(view_->Model());
    view_ = &window_.CurrentView();
    view_->Model().Observers().Add(*this);
    view_->viewport()->installEventFilter(this);
    connect(view_, &diagram::SurfaceView::ViewChanged, this, &Overview::Update);
    stale_ = true;
    changed_.stop();
    Update();
}

void Overview::Leave(const diagram::Surface &surface) {
    if (!view_ || &view_->Model() != &surface) return;
    view_->Model().Observers().Remove(*this);
    view_->viewport()->removeEventFilter(this);
    view_->disconnect(this);
    view_ = nullptr;
    if (picture_) picture_->Forget();
    Hide();
}

void Overview::ItemChanged(diagram::Item &, diagram::Change what) {
    constexpr auto kNotPainted = diagram::Change::Selection | diagram::Change::Data;
    if (std::uint32_t(what) & ~std::uint32_t(kNotPainted)) NoteChange();
}

void Overview::NoteChange() {
    stale_ = true;
    if (started_ && !changed_.isActive()) changed_.start();
}

QRectF Overview::Content() const {
    QRectF content = view_->TheScene().Extent();
    const double border = kBorder * qMax(content.width(), content.height());
    return content.adjusted(-border, -border, border, border);
}

QRectF Overview::Seen() const {
    const QRect seen = view_->viewport()->rect();
    return {view_->ToSurface(seen.topLeft()), view_->ToSurface(QPointF(seen.width(), seen.height()))};
}

// The view without its scroll bars.
QRect Overview::Room() const {
    const QWidget &viewport = *view_->viewport();
    return {viewport.mapTo(place_, QPoint()), viewport.size()};
}

bool Overview::IsWanted() const {
    if (!started_ || !view_ || window_.Start().Page() || !IsEnabled()) return false;
    if (qMax(Room().width(), Room().height()) < kLeastRoom) return false;
    const QRectF extent = view_->TheScene().Extent();
    return !extent.isEmpty() && !Seen().adjusted(-kSlack, -kSlack, kSlack, kSlack).contains(extent);
}

QSize Overview::SizeFor(const QRectF &content) const {
    const QSizeF most = QSizeF(kLargest).boundedTo(QSizeF(Room().size()) * kMostOfRoom);
    constexpr int kLeast = 24;
    return content.size().scaled(most, Qt::KeepAspectRatio).toSize().expandedTo({kLeast, kLeast});
}

void Overview::Make() {
    if (map_) return;
    map_ = new OverviewMap(place_);
    picture_ = new OverviewPicture(map_);
    connect(map_, &OverviewMap::CentreAsked, this, &Overview::CentreAt);
    connect(map_, &OverviewMap::Done, this, [this] { window_.CurrentView().setFocus(); });
    connect(picture_, &OverviewPicture::Whole, this, &Overview::TakePicture);
    picture_->WaitWhile([this] { return window_.LetsEventsRun(); });
}

// Not inside a routine that lets events run: measuring the whole slice may itself take long.
void Overview::Update() {
    if (window_.LetsEventsRun()) return changed_.start();
    if (map_ && map_->IsDragged()) return map_->SetSeen(Seen());
    if (IsWanted())
        Show();
    else
        Hide();
}

// Shown once there is a picture.
void Overview::Show() {
    Make();
    if (stale_ && !changed_.isActive()) PaintAgain();
    if (picture_->Image().isNull()) return;
    map_->SetSeen(Seen());
    TakeCorner(nullptr);
}

void Overview::Hide() {
    if (!map_ || map_->isHidden()) return;
    const bool hadFocus = map_->hasFocus();
    map_->hide();
    if (hadFocus && view_) view_->setFocus();
}

void Overview::PaintAgain() {
    stale_ = false;
    const QRectF content = Content();
    picture_->Begin(view_->TheScene(), content, SizeFor(content) * map_->devicePixelRatioF());
}

void Overview::TakePicture() {
    map_->SetPicture(picture_->Image(), picture_->Area());
    map_->resize(SizeFor(picture_->Area()));
    Update();
}

// The first free one, from the right bottom corner; hidden where none is.
void Overview::TakeCorner(const QPoint *drag) {
    const QRect room = Room().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    constexpr std::pair<bool, bool> kCorners[] = {{true, true}, {false, true}, {true, false}, {false, false}};
    for (const auto &[right, bottom] : kCorners) {
        const QRect corner(CornerOf(room, map_->size(), right, bottom), map_->size());
        if (Covers(corner, drag)) continue;
        map_->move(corner.topLeft());
        if (map_->isHidden()) map_->raise();
        return map_->show();
    }
    Hide();
}

bool Overview::Covers(const QRect &corner, const QPoint *drag) const {
    if (drag && corner.adjusted(-kNear, -kNear, kNear, kNear).contains(*drag)) return true;
    const diagram::Surface &surface = view_->Model();
    const diagram::Item *item = surface.SelectedNode();
    if (!item) item = surface.SelectedLink();
    if (!item || map_->hasFocus()) return false;
    const QRectF bounds = view_->TheScene().Bounds(*item);
    const QRectF box(view_->FromSurface(bounds.topLeft()), view_->FromSurface(bounds.bottomRight()));
    return box.translated(view_->viewport()->mapTo(place_, QPoint())).intersects(corner);
}

void Overview::CentreAt(const QPointF &twips) {
    if (!view_) return;
    const QPointF by = view_->FromSurface(twips) - QRectF(view_->viewport()->rect()).center();
    QScrollBar &across = *view_->horizontalScrollBar(), &down = *view_->verticalScrollBar();
    across.setValue(across.value() + qRound(by.x()));
    down.setValue(down.value() + qRound(by.y()));
}

OverviewMap *Overview::Map() const { return map_ && !map_->isHidden() ? map_ : nullptr; }

bool Overview::TakeFocus() {
    Update();
    if (!Map()) return false;
    map_->setFocus(Qt::ShortcutFocusReason);
    return true;
}

// Watches drags on the page.
bool Overview::eventFilter(QObject *, QEvent *event) {
    if (!Map() && event->type() != QEvent::MouseButtonRelease) return false;
    if (IsMove(*event)) {
        const QPoint at = static_cast<const QMouseEvent *>(event)->position().toPoint();
        const QPoint there = view_->viewport()->mapTo(place_, at);
        TakeCorner(&there);
    }
    if (event->type() == QEvent::MouseButtonRelease) window_.ScheduleUpdate();
    return false;
}

} // namespace mainwindow
