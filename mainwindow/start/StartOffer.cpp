#include "mainwindow/start/StartOffer.h"

#include "diagram/view/SurfaceView.h"
#include "document/BusyWindow.h"
#include "document/WhereItIs.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/menus/Commands.h"
#include "mainwindow/start/LostMapOffers.h"
#include "mainwindow/start/StartPage.h"
#include "mainwindow/start/StartTemplates.h"
#include "mainwindow/start/StartupSetting.h"
#include "mainwindow/start/Thumbnails.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/clsMRU.h"
#include "settings/GetSet.h"
#include "support/Error.h"
#include "support/Files.h"
#include "templates/LoadTemplate.h"

#include <QApplication>

namespace mainwindow {

namespace {

constexpr int kMostMaps = 8, kMostTemplates = 14;
constexpr int kWait = 100; // milliseconds until a look whether something still goes on

// The default nodes are hidden.
bool IsEmpty(const diagram::Surface &surface) {
    for (const diagram::Node &node : surface.Nodes())
        if (node.Selectable()) return false;
    return true;
}

bool IsUnused(frmMain &window) {
    if (!ShowsNothing(window)) return false;
    const diagram::Surface &surface = window.AddFlow1()[0];
    return !surface.CanUndo() && !surface.CanRedo();
}

// A form, a menu, a drag, or a map that is just being loaded, goes first.
bool IsBusy() {
    return frmMain::InsideRoutine() || QApplication::activeModalWidget() ||
           QApplication::activePopupWidget() || QApplication::mouseButtons() != Qt::NoButton;
}

} // namespace

bool ShowsNothing(frmMain &window) {
    return window.clsSettings().Database().isEmpty() && !window.HasUnsavedWork() &&
           window.AddFlow1().Count() == 1 && IsEmpty(window.AddFlow1()[0]);
}

StartOffer::StartOffer(frmMain &window, QWidget *place) : window_(window), place_(place) {
    soon_.setSingleShot(true);
    QObject::connect(&soon_, &QTimer::timeout, &window_,
                     [this] { support::Report("frmMain", "StartPage", [this] { TryToShow(); }); });
}

StartOffer::~StartOffer() = default;

void StartOffer::Offer() { soon_.start(0); }

void StartOffer::TryToShow() {
    if (page_ || !settings::GetStartPageEnabled() || !IsUnused(window_)) return;
    if (IsBusy()) return soon_.start(kWait);
    Show();
}

void StartOffer::Show() {
    page_ = new StartPage([this] { return window_.CurrentView().viewport(); }, place_);
    page_->SetShowsAtStart(true);
    const std::vector<RecentMap> maps =
        RecentMaps(settings::clsMRU(window_.Desktop().registry), kMostMaps, window_.Desktop().clock.Now());
    page_->SetRecent(maps);
    Connect();
    window_.picRHS_Resize();
    page_->show();
    page_->raise();
    if (window_.CurrentView().hasFocus() && !window_.LostMaps().Bar()) page_->FocusFirst();
    pictures_ = new ThumbnailMaker(window_.Desktop(), ThumbnailCache::Folder(), page_);
    QObject::connect(pictures_, &ThumbnailMaker::Made, page_, &StartPage::SetPicture);
    OrderMapPictures(maps);
    QTimer::singleShot(0, page_,
                       [this] { support::Report("frmMain", "StartPage", [this] { ShowTemplates(); }); });
}

void StartOffer::Connect() {
    QObject::connect(page_, &StartPage::Dismissed, page_, [this] { Leave(); });
    QObject::connect(page_, &StartPage::NewAsked, page_, [this] { Leave(); });
    QObject::connect(page_, &StartPage::OpenAsked, page_, [this] {
        window_.SmartMenuXP1_Click(QStringLiteral("mnuFileOpen"));
        Update();
    });
    QObject::connect(page_, &StartPage::MapAsked, page_, [this](const QString &path) { Open(path); });
    QObject::connect(page_, &StartPage::RemoveAsked, page_, [this](const QString &path) {
        support::Report("frmMain", "StartPage", [&] { Remove(path); });
    });
    QObject::connect(page_, &StartPage::TemplateAsked, page_, [this](const QString &file) {
        support::Report("frmMain", "StartPage", [&] { Load(file); });
    });
    QObject::connect(page_, &StartPage::ShowsAtStartAsked, page_, [](bool shows) {
        support::Report("frmMain", "StartPage", [&] { SetStartPageEnabled(shows); });
    });
}

void StartOffer::Place(const QRect &rectangle) {
    if (page_ && !page_->HandsOver()) page_->setGeometry(rectangle);
}

void StartOffer::Raise() {
    if (page_) page_->raise();
}

void StartOffer::Update() {
    if (page_ && !IsUnused(window_)) Leave();
}

void StartOffer::Leave() {
    soon_.stop();
    if (!page_ || page_->HandsOver()) return;
    const bool hadFocus = page_->isAncestorOf(QApplication::focusWidget());
    StartPage *page = std::exchange(page_, nullptr);
    pictures_ = nullptr;
    page->hide();
    page->deleteLater(); // what was pressed stands on it
    if (hadFocus) window_.CurrentView().setFocus();
}

void StartOffer::ShowSetting(bool shows) {
    if (page_) page_->SetShowsAtStart(shows);
}

void StartOffer::OrderMapPictures(const std::vector<RecentMap> &maps) {
    const double ratio = page_->devicePixelRatioF();
    for (const RecentMap &map : maps)
        if (map.state == RecentMap::State::There)
            pictures_->Order({ThumbnailOrder::Kind::Map, map.path, StartPage::kMapPicture * ratio, ratio});
}

void StartOffer::ShowTemplates() {
    const double ratio = page_->devicePixelRatioF();
    const std::vector<StartTemplate> templates = StartTemplates(kMostTemplates);
    page_->SetTemplates(templates);
    for (const StartTemplate &each : templates)
        pictures_->Order(
            {ThumbnailOrder::Kind::Template, each.file, StartPage::kTemplatePicture * ratio, ratio});
}

void StartOffer::Open(const QString &path) {
    if (!document::IsOnNetwork(path) && !support::FileExists(path))
        return window_.Status().TellInPassing(
            StartPage::tr("%1 is not there any more.").arg(support::FileTitle(path)));
    window_.SmartMenuXP1_Click(QLatin1String(kRecentFile) + path);
    Update();
}

void StartOffer::Remove(const QString &path) {
    settings::clsMRU(window_.Desktop().registry).RemoveFile(path);
    page_->RemoveMap(path);
}

void StartOffer::Load(const QString &file) {
    {
        const document::BusyWindow busy(window_);
        templates::LoadTemplate(window_, window_.CurrentSurface(), file);
    }
    Leave();
    window_.ScheduleUpdate();
}

} // namespace mainwindow
