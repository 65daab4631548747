// What the two forms are handed.
#pragma once

#include "output/print/LoadedPrint.h"

#include <QIcon>
#include <QStringList>

namespace print {

struct PageSetupArgument {
    static constexpr char kForm[] = "frmPageSetup";
    support::Desktop &desktop;
    LoadedPrint &print;
    QStringList slices; // captions, in the order of the tabs
};

// The preview stays open when the call returns, and lives by itself from then on.
struct PrintPreviewArgument {
    static constexpr char kForm[] = "frmPrint";
    support::Desktop &desktop;
    std::shared_ptr<LoadedPrint> print;
    std::function<QIcon(const QString &name)> icon;
    std::function<void(const QString &text)> tell; // what came of printing, where the user sees it
};

} // namespace print
