#include "output/print/LoadedPrint.h"

#include "output/print/Unprintable.h"
#include "output/print/ZoomToPages.h"
#include "settings/Settings.h"
#include "support/Desktop.h"
#include "support/Printers.h"

namespace print {

namespace {

class UnloadAtEnd {
public:
    explicit UnloadAtEnd(LoadedPrint &print) : print_(print) {}
    ~UnloadAtEnd() {
        try {
            print_.Unload();
        } catch (...) { // settings that can't be saved must not hide what went wrong before
        }
    }
    UnloadAtEnd(const UnloadAtEnd &) = delete;
    UnloadAtEnd &operator=(const UnloadAtEnd &) = delete;

private:
    LoadedPrint &print_;
};

// Forgets what the user chose for the last document alone.
void ForgetLastJob(support::SystemPrinter &printer) {
    printer.pages = QPageRanges();
    printer.pageSet = support::PageSet::All;
    printer.copies = 1;
}

} // namespace

struct LoadedPrint::Edges {
    support::SystemPrinter printer; // with paper and orientation
    QMarginsF unprintable;
};

LoadedPrint::LoadedPrint(support::Desktop &desktop) : desktop_(desktop) {
    PrnFlow1.DocumentName = settings::Terms().TITLE;
    PrnFlow1.Display = true;
    PrnFlow1.FitToPage = true;
    PrnFlow1.paper = UsualPaper();
    SetOrientation(kLandscape);
    LoadSetup(PrnFlow1);
    SetOrientation(PrnFlow1.Orientation);
}

LoadedPrint::~LoadedPrint() = default;

void LoadedPrint::SetOrientation(int orientation) {
    PrnFlow1.Orientation = orientation == kLandscape ? kLandscape : kPortrait;
    desktop_.printers.System().orientation = support::PaperOrientation(PrnFlow1.Orientation);
}

int LoadedPrint::PrinterOrientation() const { return int(desktop_.printers.System().orientation); }

void LoadedPrint::Unload() {
    if (!loaded_) return;
    loaded_ = false;
    if (const auto closing = std::exchange(close, {})) closing();
    ZoomBack(PrnFlow1);
    if (pagesChanged) pagesChanged();
    SaveSetup(PrnFlow1);
}

bool LoadedPrint::Ask(QWidget *owner) {
    support::SystemPrinter &printer = desktop_.printers.System();
    GiveSetup(PrnFlow1, printer);
    printer.documentName = PrnFlow1.Map().title; // what a file would be called
    if (!desktop_.dialogs.ShowPrinter(owner)) return false;
    TakeSetup(printer, PrnFlow1);
    return true;
}

std::optional<Printed> LoadedPrint::Print(const GoOn &goOn) {
    std::optional<Printed> printed;
    PrnFlow1.Preview = false;
    PrnFlow1.OnPrint([&] { printed.emplace(PrintPages(PrnFlow1, desktop_.printers, goOn)); });
    PrnFlow1.Run();
    PrnFlow1.OnPrint({});
    return printed;
}

QString LoadedPrint::TooNearTheEdge(const PageSetup &setup) {
    support::SystemPrinter printer = desktop_.printers.System();
    GiveSetup(setup, printer);
    if (!edges_ || edges_->printer != printer)
        edges_ = std::make_unique<Edges>(Edges{printer, desktop_.printers.Unprintable(printer)});
    return TextOfSides(setup.margins, edges_->unprintable);
}

bool LoadedPrint::HasPrinter() const {
    const support::SystemPrinter &printer = desktop_.printers.System();
    return printer.ToFile() || !printer.deviceName.isEmpty();
}

std::optional<Printed> LoadedPrint::PrintAtOnce(QWidget *owner, const GoOn &goOn) {
    const UnloadAtEnd unload(*this);
    ForgetLastJob(desktop_.printers.System());
    if (!HasPrinter() && !Ask(owner)) return {};
    return Print(goOn);
}

std::optional<Printed> LoadedPrint::PrintWithDialog(QWidget *owner, const GoOn &goOn) {
    const UnloadAtEnd unload(*this);
    PrnFlow1.Preview = PrnFlow1.Display = false;
    SetOrientation(PrnFlow1.Orientation);
    ForgetLastJob(desktop_.printers.System());
    const QString remembered = desktop_.printers.Default();
    if (!Ask(owner)) return {};
    const support::DefaultPrinterFor chosen(desktop_.printers, desktop_.printers.System().deviceName,
                                            remembered);
    return Print(goOn);
}

} // namespace print
