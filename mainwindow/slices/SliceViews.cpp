#include "mainwindow/slices/SliceViews.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/edits/ItemDescription.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/HintText.h"
#include "mainwindow/slices/NewLinkRouting.h"
#include "mainwindow/slices/Overview.h"
#include "mainwindow/slices/ShapePalette.h"
#include "mainwindow/slices/SurfaceSink.h"
#include "mainwindow/start/WindowJournal.h"
#include "mainwindow/window/WindowStatus.h"
#include "settings/Settings.h"
#include "timeline/DaysOfStrip.h"
#include "widgets/ShapeNames.h"

#include <QApplication>

namespace mainwindow {

SliceViews::SliceViews(frmMain &window, QWidget *place)
    : window_(window),
      place_(place),
      days_(std::make_unique<timeline::DaysOfStrip>(window)),
      sink_(std::make_unique<SurfaceSink>(window)) {}

SliceViews::~SliceViews() = default;

void SliceViews::Add(diagram::Surface &surface) {
    surface.SetEvents(sink_.get());
    surface.Observers().Add(*sink_);
    surface.Screen().SetShowsBothTexts(window_.DisplayPressed());
    auto view = std::make_unique<diagram::SurfaceView>(surface, place_);
    view->setObjectName(QStringLiteral("AddFlow1(%1)").arg(surface.Index()));
    view->setFrameShape(QFrame::NoFrame);
    Connect(*view);
    view->SetShapeToDraw(shape_);
    view->TheScene().SetStyleToDraw(RoutingOfNewLinks());
    view->SetEmptyNote(EmptyPageText());
    view->SetWords({settings::Terms().NODE, settings::Terms().LINK});
    view->SetDescriber(
        [this](const diagram::Item &item) { return ItemDescription(item, window_.clsSettings()); });
    view->SetDays(*days_);
    view->lower(); // below the current one, until its tab is selected
    views_[surface.Index()] = std::move(view);
    if (WindowJournal *journal = window_.Journal()) journal->Watch(surface);
    window_.picRHS_Resize();
}

void SliceViews::Connect(diagram::SurfaceView &view) {
    using diagram::SurfaceView;
    QObject::connect(&view, &SurfaceView::ViewChanged, &window_, &frmMain::ScheduleUpdate);
    QObject::connect(&view, &SurfaceView::HintShown, &window_, [this](diagram::Hint hint) {
        window_.Status().TellHintOfView(WordsOf(hint), diagram::IsOfPointer(hint));
    });
    QObject::connect(&view, &SurfaceView::HintOffered, &window_,
                     [this](diagram::Hint hint) { window_.Status().OfferHintOfView(WordsOf(hint)); });
    QObject::connect(&view, &SurfaceView::ShapeDropped, &window_, [this] { window_.Shapes().Drop(); });
}

QString SliceViews::WordsOf(diagram::Hint hint) const {
    return HintText(hint).replace(QStringLiteral("%1"), widgets::ShapeCaption(shape_.value_or(-1)));
}

void SliceViews::SetShapeToDraw(std::optional<int> shape) {
    shape_ = shape;
    for (const auto &[index, view] : views_) view->SetShapeToDraw(shape);
}

void SliceViews::Remove(diagram::Surface &surface) {
    window_.Status().HiddenMayDiffer();
    window_.TheOverview().Leave(surface);
    // Left alone, the focus of a deleted widget goes to an arbitrary one.
    if (At(surface.Index()).hasFocus() && surface.Index() > 0) At(0).setFocus();
    if (WindowJournal *journal = window_.Journal()) journal->Unwatch(surface);
    views_.erase(surface.Index());
    surface.Observers().Remove(*sink_);
    surface.SetEvents(nullptr);
}

std::vector<diagram::SurfaceView *> SliceViews::All() const {
    std::vector<diagram::SurfaceView *> all;
    for (const auto &[index, view] : views_) all.push_back(view.get());
    return all;
}

void SliceViews::Select(int index, const QString &name) {
    const bool onSurface = qobject_cast<diagram::SurfaceView *>(QApplication::focusWidget()) != nullptr;
    for (const auto &[each, view] : views_)
        view->setFocusPolicy(each == index ? Qt::StrongFocus : Qt::NoFocus);
    diagram::SurfaceView &view = At(index);
    view.show();
    view.raise();
    view.setAccessibleName(name);
    if (onSurface) view.setFocus();
}

void SliceViews::Place(const QRect &rectangle) {
    for (const auto &[index, view] : views_) {
        view->setGeometry(rectangle);
        view->show();
    }
}

void SliceViews::EndEdits() {
    for (const auto &[index, view] : views_) view->EndEdit(true);
}

void SliceViews::StoreTexts() {
    for (const auto &[index, view] : views_) view->KeepText();
}

} // namespace mainwindow
