#include "output/print/StorePageSetup.h"

#include "output/print/LoadedPrint.h"

namespace print {

void StorePageSetup(const PageSetup &setup, LoadedPrint &print) {
    static_cast<PageSetup &>(print.PrnFlow1) = setup;
    print.SetOrientation(setup.Orientation);
    SaveSetup(print.PrnFlow1);
    if (!print.bringUp) return;
    print.PrnFlow1.Refresh(); // other slices may be printed now
    print.PrnFlow1.Run();
}

} // namespace print
