#include "mainwindow/slices/WindowPrinting.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/slices/SliceViews.h"
#include "mainwindow/window/LongTask.h"
#include "mainwindow/window/WindowStatus.h"
#include "output/print/PrintForms.h"
#include "support/Error.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

namespace mainwindow {

namespace {

// Takes over which pages and slices of the map the user has chosen in this window, as far as they are still
// there.
void KeepChoice(const print::PageSetup &former, int tabs, print::PageSetup &setup) {
    setup.range = former.range;
    setup.slices = former.slices;
    setup.chosen = former.chosen;
    std::erase_if(setup.chosen, [tabs](int slice) { return slice >= tabs; });
    if (setup.slices == print::Slices::Chosen && setup.chosen.empty()) setup.slices = print::Slices::This;
}

// Copies the map of the window from the slice that is current now on; an empty map once window or slice are
// gone.
print::PrnFlow::Source SourceOf(frmMain &window) {
    const print::SliceMark mark = print::MarkOf(window, window.TabStrip().TheTab());
    return [window = QPointer<frmMain>(&window), mark](const print::PageSetup &setup) {
        const int tab = window ? print::TabOf(*window, mark) : -1;
        if (tab < 0) return print::PrintedMap();
        window->Views().StoreTexts();
        return print::CopyMap(*window, setup, tab);
    };
}

} // namespace

WindowPrinting::WindowPrinting(frmMain &window) : window_(window) {}

WindowPrinting::~WindowPrinting() = default;

std::shared_ptr<print::LoadedPrint> WindowPrinting::Loaded() {
    if (frmPrint_ && frmPrint_->IsLoaded()) return frmPrint_;
    const auto form = std::make_shared<print::LoadedPrint>(window_.Desktop());
    const QString file = window_.clsSettings().ShownFile();
    if (frmPrint_ && file == file_)
        KeepChoice(frmPrint_->PrnFlow1, window_.TabStrip().TabCount(), form->PrnFlow1);
    file_ = file;
    return frmPrint_ = form;
}

// Draws the page breaks of an open preview over its slices, and none once it is closed or slices have come or
// gone.
void WindowPrinting::ShowPageBreaks() {
    for (diagram::SurfaceView *view : window_.Views().All()) view->SetPageBreaks({});
    if (!frmPrint_ || !frmPrint_->IsLoaded()) {
        if (!quiet_) return;
        quiet_->stop();
        quiet_.release()->deleteLater(); // its signal may have led here
        return;
    }
    print::PrnFlow &flow = frmPrint_->PrnFlow1;
    const std::vector<int> slots = window_.AddFlow1().Indices();
    if (flow.IsGone() || flow.Map().slices.size() != slots.size()) return;
    for (const print::Sheet &sheet : flow.TheSheets().sheets) {
        const auto slice = std::size_t(sheet.slice);
        window_.Views().At(slots[slice]).SetPageBreaks(flow.TheSheets().layouts[slice].Lines());
    }
}

bool WindowPrinting::IsPreviewOpen() const {
    return frmPrint_ && frmPrint_->IsLoaded() && frmPrint_->bringUp && frmPrint_->PrnFlow1.Preview;
}

void WindowPrinting::SliceChanged() {
    if (quiet_) quiet_->start();
}

void WindowPrinting::Follow() {
    support::Report("frmPrint", "Follow", [this] {
        if (!IsPreviewOpen()) return;
        const std::shared_ptr<print::LoadedPrint> form = frmPrint_;
        form->PrnFlow1.Refresh();
        form->PrnFlow1.Run();
    });
}

void WindowPrinting::PageSetup() {
    QStringList captions;
    for (int tab = 0; tab < window_.TabStrip().TabCount(); ++tab)
        captions << window_.TabStrip().TabCaption(tab);
    print::PageSetupArgument argument{window_.Desktop(), *Loaded(), captions};
    document::Show(window_, argument);
}

void WindowPrinting::Print() {
    const std::shared_ptr<print::LoadedPrint> form = Loaded();
    form->PrnFlow1.SetSource(SourceOf(window_));
    form->PrnFlow1.Preview = false;
    if (!form->HasPrinter()) window_.SetMousePointer(document::pointer::kNormal); // the user will be asked
    std::optional<print::Printed> printed;
    {
        LongTask task(window_, QCoreApplication::translate("Printing", "Printing"));
        printed = form->PrintAtOnce(&window_, [&](int, int) { return task.GoOn(); });
    }
    if (printed) window_.Status().TellInPassing(print::TextOf(*printed));
}

void WindowPrinting::Preview() {
    const std::shared_ptr<print::LoadedPrint> form = Loaded();
    form->PrnFlow1.SetSource(SourceOf(window_));
    form->PrnFlow1.Preview = true;
    if (form->bringUp) { // the preview is open
        form->bringUp();
        return form->PrnFlow1.Run();
    }
    constexpr int kQuiet = 250; // milliseconds without a change
    quiet_ = std::make_unique<QTimer>();
    quiet_->setSingleShot(true);
    quiet_->setInterval(kQuiet);
    QObject::connect(quiet_.get(), &QTimer::timeout, [this] { Follow(); });
    form->pagesChanged = [window = QPointer<frmMain>(&window_)] {
        if (window) window->Printing().ShowPageBreaks();
    };
    print::PrintPreviewArgument argument{window_.Desktop(), form, Icon,
                                         [window = QPointer<frmMain>(&window_)](const QString &text) {
                                             if (window) window->Status().TellInPassing(text);
                                         }};
    document::Show(window_, argument);
    form->PrnFlow1.Run();
}

} // namespace mainwindow
