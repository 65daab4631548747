// Which window shows a file.
#include "mainwindow/frmMain.h"

#include "app/settings/Settings.h"
#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/LastPath.h"
#include "document/MemoryGuard.h"
#include "mainwindow/OfferSalvage.h"
#include "support/clsPaths.h"

namespace mainwindow {

using document::pointer::kHourglass;
using document::pointer::kNormal;
using support::Answer;

namespace {
// From this many nodes on the first slice a map counts as used.
constexpr int kNodesOfUsedMap = 4;
} // namespace

bool frmMain::WantsNewWindow() {
    return clsSettings_->Dirty || AddFlow1_[0].Nodes().Count() >= kNodesOfUsedMap;
}

frmMain *frmMain::DoOpen(QString sFilename, bool bNewWindow) {
    return support::PassOn("DoOpen", [&]() -> frmMain * {
        SetMousePointer(kNormal);
        if (sFilename.isEmpty()) sFilename = document::GetMapFile(false);
        if (sFilename.isEmpty() || !document::MemoryGuard(desktop_)) return nullptr;
        if (frmMain *shown = OpenElsewhere(sFilename)) return shown;
        std::unique_ptr<frmMain> made;
        if (bNewWindow) made = std::make_unique<frmMain>(desktop_);
        frmMain &target = made ? *made : *this;
        if (!target.MayReplace()) return nullptr;
        target.clsSettings().SetDatabase(sFilename);
        made.release(); // shown, it belongs to itself
        target.ShowWindow();
        target.DoEvents();
        LoadOrOffer(target, sFilename, [&] { document::DoLoad(target); });
        return &target;
    });
}

// The window that shows the file already, reloaded when the user wants that; null when there is none.
frmMain *frmMain::OpenElsewhere(const QString &sFilename) {
    const QString path = support::clsPaths().LongName(sFilename);
    for (frmMain *form : Forms()) {
        const QString database = form->clsSettings().Database();
        if (database.compare(sFilename, Qt::CaseInsensitive) != 0 &&
            database.compare(path, Qt::CaseInsensitive) != 0)
            continue;
        form->ShowWindow();
        if (document::MustAskBeforeLosing(*form) &&
            desktop_.messageBoxes.Show(QStringLiteral("Revert to saved?"), support::Buttons::YesNo,
                                       support::Icon::Question, settings::Terms().TITLE) == Answer::Yes)
            LoadOrOffer(*form, path, [&] { document::DoLoad(*form); });
        return form;
    }
    return nullptr;
}

// Asks about unsaved changes before another map takes their place. The words have no question mark here.
bool frmMain::MayReplace() {
    if (!document::MustAskBeforeLosing(*this)) return true;
    const Answer answer =
        desktop_.messageBoxes.Show(QStringLiteral("Save Changes"), support::Buttons::YesNoCancel,
                                   support::Icon::Question, settings::Terms().TITLE);
    if (answer == Answer::Yes) return document::DoSave(*this);
    return answer == Answer::No;
}

} // namespace mainwindow
