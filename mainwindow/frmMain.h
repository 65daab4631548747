// The document window: one map, one surface a slice. Several can be open in one process.
#pragma once

#include "document/clsfrmMain.h"
#include "document/FindText.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"
#include "mainwindow/clsTabStrip.h"
#include "mainwindow/Commands.h"
#include "mainwindow/Exchange.h"
#include "mainwindow/TimelineRoutines.h"

#include <map>
#include <memory>
#include <optional>
#include <QEventLoop>
#include <QMainWindow>
#include <QTimer>
#include <vector>

class QSplitter;

namespace diagram {
class SurfaceView;
}

namespace recovery {
struct LostMap;
}

namespace timeline {
class DaysOfStrip;
}

namespace mainwindow {

class CommandSearch;
class cProgressBar;
class cStatusBar;
class FindBar;
class frmLayers;
class frmPics;
class PickBox;
class PutBack;
class RecoveryBar;
class SliceTabs;
class SmartMenu;
class SurfaceSink;
class TickBox;
class TimelineMenu;
class Toolbar;
class WindowJournal;
enum class OfferAnswer;
struct SearchEntry;

// Deletes itself when it was closed. A new window is loaded and not shown; what its start raises reaches the
// creator, such as error 3024 for a template.tpl that is missing.
class frmMain : public QMainWindow, public document::MapWindow {
    Q_OBJECT
public:
    // The desktop must outlive the window.
    explicit frmMain(support::Desktop &desktop);
    ~frmMain() override;

    // All windows of the process, shown or not, in the order of their making.
    static std::vector<frmMain *> Forms();

    // document::MapWindow
    document::clsfrmMain &clsSettings() override { return *clsSettings_; }
    clsTabStrip &TabStrip() override { return tabStrip_; }
    document::SurfaceArray &AddFlow1() override { return AddFlow1_; }
    support::Desktop &Desktop() override { return desktop_; }
    support::Owner Handle() override { return this; }
    void DoStatus(const QString &text) override;
    void SetProgress(int percent) override;
    void SetMousePointer(int pointer) override;
    void SetWindowCaption(const QString &caption) override;
    void DoEvents() override;
    void DoResize() override;
    void LoadCombos() override;
    void ClickTab() override;
    void AddFlow1_AfterMove(int index) override;
    void RefreshMainControls() override;
    void DrawMenuBar() override;

    // Whether both texts of the nodes are shown: the state of the button, for all slices and maps that this
    // window shows. Presses and releases a button of check style, and runs it.
    bool DisplayPressed() const;
    void ClickFormatButton(const QString &key);
    int MousePointer() const { return mousePointer_; }
    // Keeps what was typed so far into a text in place, and lets the typing go on.
    void StoreTypedText();
    // The slot of the selected tab's surface, or -1 while it has none. Tabs stand without gaps, in the order
    // of the slots that are loaded: a map may leave slots empty.
    int CurrentIndex() const;
    // The surface of the selected tab and its view; error 340 when it has none.
    diagram::Surface &CurrentSurface();
    diagram::SurfaceView &CurrentView();

    // Runs the command with that key; "Unknown Key " and the key for one that names none.
    void SmartMenuXP1_Click(const QString &key);
    void tlbMain_ButtonClick(const QString &key);
    void tlbFormat_ButtonClick(const QString &key);
    void tlbFormat_ButtonMenuClick(int tag);
    // Give the selected nodes and links the name or the size that the box shows.
    void cboFont_Click();
    void cboFontSize_Click();
    PickBox &cboFont() const { return *cboFont_; }
    PickBox &cboFontSize() const { return *cboFontSize_; }
    void SMXP_Click(const QString &key);
    // The lists of what is shown: filled from the groups and levels, ticked by a click, and applied to all
    // slices when one of them closes. The map is as clean afterwards as before.
    void LoadGroupCombo();
    void LoadLevelCombo();
    void ssDBGroups_Click(int row);
    void ssDBLevels_Click(int row);
    void ssDBGroups_CloseUp();
    void ssDBLevels_CloseUp();
    TickBox &ssDBGroups() const { return *ssDBGroups_; }
    TickBox &ssDBLevels() const { return *ssDBLevels_; }
    // Gives the nodes of the current slice the colours of their levels.
    void DoFixColors();
    // The bar that finds and replaces. Next and previous begin again at the end.
    void OpenFindBar(bool replacing);
    void CloseFindBar();
    void FindNext(int step);
    CommandSearch &Search() const { return *search_; }
    // Each runs through frmLayers, unseen but for the last, and rebuilds the slices once the user went
    // through with it: undo histories are lost and the map is dirty, after an OK even when nothing differs.
    void DoInsertSlice();
    void DoRenameSlice();
    void DoDeleteSlice();
    void DoEditSlices();
    // Shows `sFilename`, or the file that the user chooses, here or in a new window. Null when nothing was
    // opened.
    frmMain *DoOpen(QString sFilename, bool bNewWindow);
    // From now on windows that are made keep a journal of their work in a folder below that one; an empty
    // text ends it.
    static void SetJournalsFolder(const QString &folder);
    bool HasUnsavedWork();
    bool LetsEventsRun() const { return lettingEventsRun_; }
    // Null for a window that keeps none.
    WindowJournal *Journal() const { return journal_.get(); }
    // Offers maps that a former run left, in a bar above the surface.
    void OfferLostMaps(std::vector<recovery::LostMap> lost);
    RecoveryBar *OfferedMaps() const { return recoveryBar_; }
    // Shows a map that was lost as unsaved work, here or, where that would cover another map, in a new
    // window.
    frmMain *RestoreLostMap(recovery::LostMap lost);
    // Whether a file to be opened wants a new window: this map is dirty, or its first slice has 4 nodes or
    // more.
    bool WantsNewWindow();
    void ShowWindow();

    // The check of a menu entry; no effect for one that isn't there.
    bool MenuValue(const QString &key) const;
    void SetMenuValue(const QString &key, bool checked);
    // Whether the question of the template bar would be asked.
    bool RHSPrompt() const;
    // Brings entries, buttons and status in step with selection, history and zoom; the other form does so
    // once the event that is running has returned.
    void UpdateCommands();
    void ScheduleUpdate();
    // The same, when what is hidden must be counted anew.
    void HiddenMayDiffer();

    // Selects the node, unless two or more are selected, and opens its properties; of a timeline node its
    // popup, at x, y (twips from the left top corner of what is seen). A hidden timeline node gets none.
    void ShowNodeProperties(diagram::Node &oNode, float x, float y);
    void ShowLinkProperties(diagram::Link &oLink);
    // What the window asks of the timeline; replaceable.
    TimelineRoutines &Timeline() { return timeline_; }
    ExchangeRoutines &Exchange() { return exchange_; }
    // Opens the form; while the program has none of that name, the status bar says that `what` is missing.
    // False when it was cancelled too.
    template <support::FormArgument Argument>
    bool ShowForm(Argument &argument, const QString &what) {
        if (support::HasForm<Argument>(desktop_)) return document::Show(*this, argument);
        SetMousePointer(document::pointer::kNormal);
        TellNotYet(what);
        return false;
    }
    void TellNotYet(const QString &what);
    // Says something in the status bar until the user goes on.
    void TellInPassing(const QString &text);
    // What is offered after links were changed.
    PutBack &FormerLinks() const { return *putBack_; }
    // The timeline node whose popup was opened last, or null.
    diagram::Node *oTemplateNode() const;
    // The read-out of AddFlow1_MouseMove; no part of the program turns it on.
    static inline bool DebugReadOut = false;

    void AddFlow1_AfterAddNode(int index, diagram::Node &oNode);
    void AddFlow1_AfterAddLink(int index, diagram::Link &oLink);
    void AddFlow1_AfterEdit(int index);
    void AddFlow1_AfterResize(int index);
    void AddFlow1_AfterStretch(int index);
    void AddFlow1_AfterSelect(int index);
    void AddFlow1_Click(int index);
    // Brings the font boxes in step with the selection.
    void AddFlow1_afGotFocus(int index);
    void AddFlow1_DblClick(int index);
    void AddFlow1_Error(int index, bool &cancelDisplay);
    void AddFlow1_KeyDown(int index, int &keyCode, int shift);
    void AddFlow1_KeyUp(int index, int keyCode, int shift);
    // x, y in twips from the left top corner of what is seen.
    void AddFlow1_MouseDown(int index, int button, int shift, float x, float y);
    void AddFlow1_MouseMove(int index, float x, float y);

Q_SIGNALS:
    // Something of the window is unsaved from now on, or all is saved again. Told once the event that made it
    // so has returned; document::MustAskBeforeLosing tells at any time.
    void UnsavedWorkChanged(bool unsaved);

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BuildControls();
    void BuildPanes();
    void BuildToolbars();
    void BuildStatusBar();
    void BuildMenus();
    void FillToolbars();
    void AddFontBoxes();
    void AddFilterBoxes();
    void AddFindBar();
    void ConnectTabs();
    void ConnectControls();
    void Form_Load();
    void Initialize();
    void StepAside();
    void Form_Activate();
    void LookForPrinters();
    void Form_Resize();
    void picRHS_Resize();
    void tmrResize_Timer();
    // Whether a routine of some window lets events run and goes on with its windows afterwards.
    static bool InsideRoutine();
    friend class LongTask;
    void LetEventsRun(QEventLoop::ProcessEventsFlags flags);
    void Form_QueryUnload(bool &cancel);
    void Form_Unload();
    void SSTab_Click();
    // Rebuilds the slices as `edit` leaves the form.
    void EditSlices(const std::function<void(frmLayers &)> &edit);
    // The tab `from` to the position `to`.
    void MoveSlice(int from, int to);
    void ShowSliceMenu(int tab, const QPoint &at);
    void SurfaceLoaded(diagram::Surface &surface);
    void SurfaceUnloading(diagram::Surface &surface);
    frmMain *OpenElsewhere(const QString &sFilename);
    bool MayReplace();
    bool MayRevert();
    // Reads the map into this window; where that fails before anything was read, the former map stays.
    void Load(const QString &path);
    void SetEnabled(Needs needs, bool enabled);
    void UpdateStatus();
    void ShowHiddenCount();
    void ShowWhetherSaved();
    void FocusChanged(const QWidget *former, const QWidget *now);
    void ShowTimelineTick();
    void ShowHideTimelineNodes();
    std::vector<SearchEntry> SearchEntries();
    void AddCommands(std::vector<SearchEntry> &entries);
    void AddFormats(std::vector<SearchEntry> &entries);
    std::vector<document::FindHit> Hits() const;
    void ShowHits();
    void ShowHit(const std::vector<document::FindHit> &hits, std::ptrdiff_t at);
    void ReplaceHits(bool all);
    diagram::SurfaceView &ViewOf(int index) const { return *views_.at(index); }
    void ShowNodeDialog(diagram::Node &oNode);
    void ShowTimelineMenu(diagram::Node &oNode, float x, float y);
    void ShowPropertiesOfSelection(int index);
    // The routines behind the entries of SMXP.
    void HideTimelineNode();
    void UnHideTimelineNodes();
    void OpenTimelineSetup();
    // The window that shows the hyperlink's target.
    frmMain *Follow(const document::cHyperlink &hyperlink);
    void FollowAll(const QString &node);
    // Selects the tab to which a hyperlink leads, or says that there is none.
    void GoToTab(int tab);
    // Takes away what TellInPassing said, unless something else stands there by now.
    void DropHint();
    // What a view says of a gesture; an empty text takes away what a view said before, and nothing else.
    void TellHintOfView(const QString &text);
    // The twips of the current surface at `at`, in pixels of the window; nothing beside the surface.
    std::optional<QPointF> SurfacePlace(const QPoint &at);
    // A file was dropped at `at`, in pixels of the window.
    void TakeFile(const QString &file, const QPoint &at);
    void OfferFile(diagram::Node &node, const QString &file, const QPoint &global);
    void AnswerOffer(int row, OfferAnswer answer);
    frmMain *PlaceFor(const QString &path);
    // How high it is, in pixels; 0 while nothing is offered.
    int PlaceRecoveryBar(int width);
    // Ends the editing of a text in place, on whatever slice, and keeps what was typed.
    void KeepTypedText();

    support::Desktop &desktop_;
    QWidget *picRHS_ = nullptr;
    QSplitter *SSSplitter1_ = nullptr;
    SliceTabs *SSTab_ctl_ = nullptr;
    cStatusBar *staMain_ = nullptr;
    cProgressBar *prg1_ = nullptr;
    PutBack *putBack_ = nullptr;
    Toolbar *tlbMain_ = nullptr;
    Toolbar *tlbFormat_ = nullptr;
    Toolbar *tlbView_ = nullptr;
    Toolbar *tlbFilter_ = nullptr;
    TickBox *ssDBGroups_ = nullptr;
    TickBox *ssDBLevels_ = nullptr;
    CommandSearch *search_ = nullptr;
    FindBar *findBar_ = nullptr;
    document::FindHit hit_; // shown last
    bool hiddenMayDiffer_ = true;
    bool unsaved_ = false; // as last shown
    PickBox *cboFont_ = nullptr;
    PickBox *cboFontSize_ = nullptr;
    SmartMenu *SmartMenuXP1a_ = nullptr;
    TimelineMenu *SMXP_ = nullptr;
    // By slot and identity: what the popup was opened for can go while it is open.
    std::pair<int, diagram::ItemId> oTemplateNode_{-1, diagram::kNoItem};
    TimelineRoutines timeline_;
    std::unique_ptr<timeline::DaysOfStrip> days_; // the views look at it
    ExchangeRoutines exchange_;
    QString hint_;
    QString hintOfView_;
    frmPics *frmPics_ = nullptr;
    QTimer tmrResize_;
    QTimer update_;
    QTimer firstPaint_; // goes off once the window has been painted for the first time
    clsTabStrip tabStrip_;
    std::unique_ptr<document::clsfrmMain> clsSettings_;
    std::unique_ptr<SurfaceSink> sink_;
    document::SurfaceArray AddFlow1_;
    std::map<int, std::unique_ptr<diagram::SurfaceView>> views_; // go before the surfaces that they show
    int mousePointer_ = document::pointer::kNormal;
    bool activated_ = false;
    bool painted_ = false;
    bool lettingEventsRun_ = false;
    std::unique_ptr<WindowJournal> journal_;
    RecoveryBar *recoveryBar_ = nullptr; // once there is something to offer
};

} // namespace mainwindow
