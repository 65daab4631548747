#include "mainwindow/templates/TemplateBar.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/controls/clsLockWindowUpdate.h"
#include "mainwindow/forms/frmSplash.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/templates/BarFilling.h"
#include "mainwindow/templates/BarPane.h"
#include "mainwindow/templates/OwnTemplates.h"
#include "mainwindow/templates/TemplateDrag.h"
#include "mainwindow/templates/TemplatePreviews.h"
#include "mainwindow/templates/TemplateTip.h"
#include "mainwindow/templates/UseTemplate.h"
#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/Files.h"
#include "support/FileStem.h"
#include "support/Val.h"
#include "templates/BarDetails.h"

#include <QEvent>
#include <utility>

namespace mainwindow {

namespace {

constexpr int kBarWait = 50; // milliseconds
const QColor kBackColor(0xE0, 0xE0, 0xE0);
const QString kIcons = QStringLiteral("BarIcons"); // the side of icons in pixels

// The oldest of the other windows; null for the oldest itself, which reads the folders for all of them.
const frmMain *WindowBefore(const frmMain &window) {
    const std::vector<frmMain *> forms = frmMain::Forms();
    return forms.front() == &window ? nullptr : forms.front();
}

} // namespace

TemplateBar::TemplateBar(frmMain &window, QSplitter &splitter)
    : window_(window),
      rb_(new ListBar(&window)),
      pane_(std::make_unique<BarPane>(splitter, *rb_)),
      filling_(std::make_unique<BarFilling>(*rb_, window.Desktop())),
      previews_(std::make_unique<TemplatePreviews>()),
      drops_(std::make_unique<TemplateDrops>(window)),
      tip_(new TemplateTip(rb_)) {
    rb_->setObjectName(QStringLiteral("RB"));
    rb_->setAccessibleName(tr("Templates"));
    if (const int side = int(support::Val(settings::GetSet(kIcons)))) rb_->SetIconSide(side);
    rb_->viewport()->installEventFilter(this);
    tmrBar_.setSingleShot(true);
    tmrBar_.setInterval(kBarWait);
    Connect();
}

TemplateBar::~TemplateBar() = default;

void TemplateBar::Connect() {
    connect(&tmrBar_, &QTimer::timeout, this,
            [this] { support::Report("frmMain", "tmrBar_Timer", [this] { window_.tmrBar_Timer(); }); });
    connect(rb_, &ListBar::BarClick, this, [this](int bar) {
        support::Report("frmMain", "RB_BarClick", [&] { window_.RB_BarClick(bar); });
    });
    connect(rb_, &ListBar::ItemClick, this, [this](int bar, int item) { ClickLater(bar, item); });
    connect(rb_, &ListBar::DragAsked, this, [this](int bar, int item) { Drag(bar, item); });
    connect(rb_, &ListBar::MenuAsked, this, &TemplateBar::ShowMenu);
    connect(rb_, &ListBar::RenameAsked, this, [this](int bar, int item) {
        support::Report("frmMain", "RenameTemplate", [&] { Rename(bar, item); });
    });
    connect(rb_, &ListBar::DeleteAsked, this, [this](int bar, int item) {
        support::Report("frmMain", "DeleteTemplate", [&] { Delete(bar, item); });
    });
    connect(rb_, &ListBar::TipAsked, this, &TemplateBar::ShowTip);
    connect(rb_, &ListBar::TipOver, tip_, &QWidget::hide);
    connect(rb_, &ListBar::Left, this, [this] { window_.CurrentView().setFocus(); });
    connect(rb_, &ListBar::IconSideChanged, this, [](int side) {
        support::Report("frmMain", "SaveSet", [&] { settings::SaveSet(kIcons, QString::number(side)); });
    });
    connect(previews_.get(), &TemplatePreviews::Made, this, &TemplateBar::UpdateTip);
}

void TemplateBar::LoadRadBar() {
    support::PassOn("LoadRadBar", [this] {
        const clsLockWindowUpdate lock(*rb_);
        filling_->Stop();
        rb_->Clear();
        if (const frmMain *other = WindowBefore(window_))
            CopyBars(other->Templates());
        else
            ReadBars();
        for (int bar = 0; bar < rb_->BarCount(); ++bar) rb_->SetBarBackColor(bar, kBackColor);
        if (rb_->BarCount() > 0) rb_->OpenBar(0);
    });
}

void TemplateBar::ReadBars() {
    for (const templates::Bar &bar : templates::ListBars(frmSplash::ShowDoing))
        rb_->AddBar(bar.caption, bar.key);
}

void TemplateBar::CopyBars(const TemplateBar &other) {
    for (int bar = 0; bar < other.rb_->BarCount(); ++bar) {
        rb_->AddBar(other.rb_->BarCaption(bar), other.rb_->BarKey(bar));
        if (!other.filling_->IsFilling(rb_->BarKey(bar))) CopyItems(other, bar);
    }
}

void TemplateBar::CopyItems(const TemplateBar &other, int bar) {
    rb_->SetBarNote(bar, other.rb_->BarNote(bar));
    for (int item = 0; item < other.rb_->ItemCount(bar); ++item)
        rb_->AddItem(bar, other.rb_->Item(bar, item));
}

void TemplateBar::RB_BarClick(int Bar) {
    if (rb_->ItemCount(Bar) > 0 || filling_->IsFilling(rb_->BarKey(Bar))) return;
    tag_ = support::AddBackslash(rb_->BarKey(Bar));
    tmrBar_.start();
}

// Files are read once the bar is there to be seen.
void TemplateBar::tmrBar_Timer() {
    tmrBar_.stop();
    waits_ = !seen_;
    if (waits_) return;
    if (frmMain::InsideRoutine()) return tmrBar_.start();
    const int bar = rb_->CurrentBar();
    if (bar < 0 || rb_->ItemCount(bar) > 0 || filling_->IsFilling(rb_->BarKey(bar))) return;
    window_.SetMousePointer(document::pointer::kHourglass);
    window_.LoadBarDetails(bar, tag_, templates::FilesOfBar(tag_));
    window_.SetMousePointer(document::pointer::kNormal);
}

void TemplateBar::LoadBarDetails(int Bar, const QString &Folder, const QStringList &Files) {
    filling_->Begin(rb_->BarKey(Bar), Folder, Files);
}

bool TemplateBar::eventFilter(QObject *, QEvent *event) {
    if (event->type() == QEvent::Paint) {
        seen_ = true;
        if (std::exchange(waits_, false)) tmrBar_.start();
    }
    return false;
}

bool TemplateBar::IsTemplate(const ListBarItem &item) const {
    return !templates::IsExternal({item.caption, item.key, item.tag, {}});
}

// Once the click itself is over: what follows asks questions and can build the bar anew.
void TemplateBar::ClickLater(int bar, int item) {
    if (!std::exchange(clicked_, rb_->Item(bar, item).key).isEmpty()) return;
    QTimer::singleShot(0, this, [this] {
        const auto place = rb_->FindItem(std::exchange(clicked_, QString()));
        if (!place || frmMain::InsideRoutine()) return;
        support::Report("frmMain", "RB_ItemClick", [&] { window_.RB_ItemClick(place->item, place->bar); });
    });
}

void TemplateBar::RB_ItemClick(int Item, int Bar) {
    ListBarItem item = rb_->Item(Bar, Item);
    if (!support::FileExists(item.key)) {
        window_.Desktop().messageBoxes.Show(
            QStringLiteral("The file '%1' was not found!\r\rIt will be removed from the list.").arg(item.key),
            support::Buttons::Ok, support::Icon::Information, settings::Terms().TITLE);
        rb_->RemoveItem(Bar, Item);
        return ShowCount(*rb_, Bar);
    }
    if (IsTemplate(item)) return UseTemplate(window_, item.key);
    item.tag = templates::kExternalTag;
    rb_->SetItem(Bar, Item, item);
    OpenExternal(window_, item.key);
}

void TemplateBar::FollowFile(const QString &former, const QString &now) {
    for (const frmMain *form : frmMain::Forms()) {
        ListBar &list = form->Templates().RB();
        const auto place = list.FindItem(former);
        if (!place) continue;
        ListBarItem item = list.Item(place->bar, place->item);
        item.key = now;
        item.caption = support::FileStem(now);
        if (now.isEmpty())
            list.RemoveItem(place->bar, place->item);
        else
            list.SetItem(place->bar, place->item, item);
        ShowCount(list, place->bar);
    }
}

void TemplateBar::Refresh() {
    for (frmMain *form : frmMain::Forms()) {
        ListBar &list = form->Templates().RB();
        const QString open = list.BarKey(list.CurrentBar());
        form->LoadRadBar();
        if (const int bar = list.FindBar(open); bar >= 0) list.OpenBar(bar);
    }
}

} // namespace mainwindow
