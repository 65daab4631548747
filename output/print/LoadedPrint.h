// The form frmPrint without its window: the control with its settings, from the load to the unload.
#pragma once

#include "output/print/Printing.h"
#include "output/print/PrnFlow.h"

#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace support {
struct Desktop;
}

namespace print {

class LoadedPrint {
public:
    // Form_Load: the settings of the last time, and landscape on one page for the first. The program's
    // printer is turned as they say. The desktop must live longer.
    explicit LoadedPrint(support::Desktop &desktop);
    ~LoadedPrint();

    PrnFlow PrnFlow1;

    // The slice shown goes back to the plain zoom, and the settings are saved. The window is closed, if it is
    // seen.
    void Unload();
    bool IsLoaded() const { return loaded_; }

    // Portrait or landscape, of the control and of the program's printer.
    void SetOrientation(int orientation);
    int PrinterOrientation() const;

    // The sides of such a sheet whose margin lies where the program's printer can't print; a sentence that
    // names them with what the printer needs, empty where there are none. The print system is asked once for
    // each printer and sheet.
    QString TooNearTheEdge(const PageSetup &setup);

    // Whether there is anything to print at once on, a printer or a file.
    bool HasPrinter() const;
    // Prints at once, on the program's printer; where the program has none, on what the dialog above `owner`
    // gives. Nothing came of it (an empty result) after a cancelled dialog; unloaded in any case.
    std::optional<Printed> PrintAtOnce(QWidget *owner, const GoOn &goOn);
    // What the print button does: asks for the printer. Where jobs can go to the default printer alone, the
    // chosen one is the default meanwhile. Gives what PrintAtOnce does.
    std::optional<Printed> PrintWithDialog(QWidget *owner, const GoOn &goOn);

    // The window in which the preview is seen, while it is: what brings it to the front, and what closes it.
    std::function<void()> bringUp, close;
    // Told when the preview shows other pages, and once more when it is gone.
    std::function<void()> pagesChanged;

private:
    std::optional<Printed> Print(const GoOn &goOn);
    bool Ask(QWidget *owner);

    struct Edges;

    support::Desktop &desktop_;
    std::unique_ptr<Edges> edges_; // as last asked for
    bool loaded_ = true;
};

} // namespace print
