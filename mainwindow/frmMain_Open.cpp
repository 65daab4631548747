// Which window shows a file.
#include "mainwindow/frmMain.h"

#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/LastPath.h"
#include "document/MemoryGuard.h"
#include "mainwindow/slices/SliceTurns.h"
#include "mainwindow/start/OfferSalvage.h"
#include "support/clsPaths.h"
#include "support/Files.h"

#include <exception>

namespace mainwindow {

using document::pointer::kNormal;
using support::Answer;

namespace {
// From this many nodes on the first slice a map counts as used.
constexpr int kNodesOfUsedMap = 4;

// Gives the window the path of its former map back where another one couldn't be opened in its place: saving
// must not overwrite the other one.
class FormerMap {
public:
    explicit FormerMap(document::clsfrmMain &settings) : settings_(settings), path_(settings.ShownFile()) {}
    ~FormerMap() {
        const bool failed = std::uncaught_exceptions() > exceptions_;
        if (failed && !settings_.Database().isEmpty()) settings_.KeepFormer(path_);
    }
    FormerMap(const FormerMap &) = delete;
    FormerMap &operator=(const FormerMap &) = delete;

private:
    document::clsfrmMain &settings_;
    QString path_;
    int exceptions_ = std::uncaught_exceptions();
};

bool MayRevert(frmMain &window) {
    return window.Desktop().messageBoxes.Show(QStringLiteral("Revert to saved?"), support::Buttons::YesNo,
                                              support::Icon::Question, window.windowTitle(),
                                              support::EnterPresses::No) == Answer::Yes;
}

// Asks about unsaved changes before another map takes their place. Here the question has no question mark.
bool MayReplace(frmMain &window) {
    if (!document::MustAskBeforeLosing(window)) return true;
    const Answer answer =
        window.Desktop().messageBoxes.Show(QStringLiteral("Save Changes"), support::Buttons::YesNoCancel,
                                           support::Icon::Question, window.windowTitle());
    if (answer == Answer::Yes) return document::DoSave(window);
    return answer == Answer::No;
}

// The window that shows the file already, reloaded when the user wants that; null when there is none.
frmMain *OpenElsewhere(const QString &sFilename) {
    const QString path = support::clsPaths().LongName(sFilename);
    for (frmMain *form : frmMain::Forms()) {
        const QString shown = form->clsSettings().ShownFile();
        if (shown.isEmpty() || !support::IsSameFile(shown, path)) continue;
        form->ShowWindow();
        if (document::MustAskBeforeLosing(*form) && MayRevert(*form)) form->Load(shown);
        return form;
    }
    return nullptr;
}

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
        if (!MayReplace(target)) return nullptr;
        static_cast<void>(made.release()); // deletes itself once it is shown and closed
        target.Load(sFilename);
        return &target;
    });
}

void frmMain::Load(const QString &path) {
    const FormerMap former(*clsSettings_);
    clsSettings_->SetDatabase(path);
    ShowWindow();
    DoEvents();
    LoadOrOffer(*this, path, [this] { document::DoLoad(*this); });
    turns_->Forget(); // loading has selected every tab
}

} // namespace mainwindow
