#include "mainwindow/slices/ShapeStrip.h"

#include "mainwindow/frmMain.h"
#include "settings/GetSet.h"
#include "support/Error.h"
#include "support/Val.h"
#include "widgets/ShapeGrid.h"

#include <QCloseEvent>

namespace mainwindow {

namespace {

const QString kShown = QStringLiteral("ShapesShown"), kSide = QStringLiteral("ShapesSide"),
              kWidth = QStringLiteral("ShapesWidth");
constexpr int kUsualColumns = 3;
constexpr int kMargins = 14; // of the grid, pixels
constexpr double kMostWidth = 4000;
constexpr int kSettles = 400; // milliseconds

Qt::DockWidgetArea StoredSide() {
    const bool left = support::Val(settings::GetSet(kSide)) == int(Qt::LeftDockWidgetArea);
    return left ? Qt::LeftDockWidgetArea : Qt::RightDockWidgetArea;
}

} // namespace

ShapeStrip::ShapeStrip(frmMain &window)
    : QDockWidget(frmMain::tr("Shapes"), &window), window_(window), grid_(new widgets::ShapeGrid(this)) {
    setObjectName(QStringLiteral("ShapeStrip"));
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    setFeatures(DockWidgetClosable | DockWidgetMovable);
    setWidget(grid_);
    window.addDockWidget(StoredSide(), this);
    const double stored = support::Val(settings::GetSet(kWidth));
    const int usual = grid_->List().SizeOf(kUsualColumns, 1).width() + kMargins;
    window.resizeDocks({this}, {stored > 0 ? int(qMin(stored, kMostWidth)) : usual}, Qt::Horizontal);
    store_.setSingleShot(true);
    store_.setInterval(kSettles);
    const auto store = [this] { support::Report("frmMain", "ShapeStrip", [this] { Store(); }); };
    connect(&store_, &QTimer::timeout, this, store);
    connect(this, &QDockWidget::dockLocationChanged, &store_, qOverload<>(&QTimer::start));
}

ShapeStrip::~ShapeStrip() {
    if (store_.isActive()) support::Report("frmMain", "ShapeStrip", [this] { Store(); });
}

bool ShapeStrip::IsWanted() { return support::Val(settings::GetSet(kShown)) != 0; }
void ShapeStrip::SetWanted(bool wanted) { settings::SaveSet(kShown, QString::number(wanted ? 1 : 0)); }

void ShapeStrip::Store() {
    if (isHidden()) return;
    settings::SaveSet(kWidth, QString::number(width()));
    settings::SaveSet(kSide, QString::number(int(window_.dockWidgetArea(this))));
}

void ShapeStrip::closeEvent(QCloseEvent *event) {
    event->ignore(); // whoever shows it hides it
    Q_EMIT Closed();
}

void ShapeStrip::resizeEvent(QResizeEvent *event) {
    QDockWidget::resizeEvent(event);
    if (isVisible()) store_.start();
}

void ShapeStrip::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) return Q_EMIT Left();
    QDockWidget::keyPressEvent(event);
}

} // namespace mainwindow
