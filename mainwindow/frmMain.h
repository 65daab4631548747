// The document window: one map, one surface a slice. Several can be open in one process.
#pragma once

#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"
#include "mainwindow/controls/clsTabStrip.h"
#include "mainwindow/edits/LevelColours.h"

#include <memory>
#include <QEventLoop>
#include <QMainWindow>
#include <QTimer>
#include <vector>

namespace diagram {
class SurfaceView;
}

namespace mainwindow {

class CommandSearch;
class DroppedFiles;
class FilterBoxes;
class Finder;
class frmPics;
class LookBar;
class LostMapOffers;
class Overview;
class PickBox;
class PutBack;
class ShapePalette;
class SliceEditor;
class SliceTurns;
class SliceViews;
class StartOffer;
class TemplateBar;
class TickBox;
class TimelinePopup;
class UndoRedo;
class WindowJournal;
class WindowParts;
class WindowPrinting;
class WindowStatus;

// Deletes itself when it is closed. The constructor loads the window without showing it; its errors reach the
// caller, such as 3024 for a missing template.tpl.
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
    std::optional<bool> ShowsTimeline() override;

    // Whether both texts of the nodes are shown: the state of the button DISPLAY, for all slices and maps
    // that this window shows.
    bool DisplayPressed() const;
    // Runs the button, toggling it first if it can be checked.
    void ClickFormatButton(const QString &key);
    int MousePointer() const { return mousePointer_; }
    // The slot of the selected tab's surface, or -1 while it has none. Tabs stand without gaps, in the order
    // of the slots that are loaded: a map may leave slots empty.
    int CurrentIndex() const;
    // The surface of the selected tab and its view; error 340 when it has none.
    diagram::Surface &CurrentSurface();
    diagram::SurfaceView &CurrentView();
    // Lays out the panel: bars, surface and tabs.
    void picRHS_Resize();
    // Whether a routine of any window lets events run at the moment. It goes on with its window afterwards,
    // so no window may be closed, and nothing be loaded or asked, until it is over.
    static bool InsideRoutine();
    SliceViews &Views() const { return *views_; }
    WindowStatus &Status() const { return *status_; }

    // Runs the command with that key; "Unknown Key " and the key for one that names none.
    void SmartMenuXP1_Click(const QString &key);
    void tlbMain_ButtonClick(const QString &key);
    void tlbFormat_ButtonClick(const QString &key);
    void tlbFormat_ButtonMenuClick(int tag);
    // Give the selected nodes and links the name or the size that the box shows.
    void cboFont_Click();
    void cboFontSize_Click();
    PickBox &cboFont() const;
    PickBox &cboFontSize() const;
    void SMXP_Click(const QString &key);
    TemplateBar &Templates() const { return *templates_; }
    // The routines of the bar of templates, under the window's names for them.
    void LoadRadBar();
    void LoadBarDetails(int Bar, const QString &Folder, const QStringList &Files);
    void RB_BarClick(int Bar);
    void tmrBar_Timer();
    void RB_ItemClick(int Item, int Bar);
    // The lists of groups and levels that are shown: filled from the map's pools, ticked by a click, and
    // applied to all slices when one of them closes. None of this makes the map dirty.
    void LoadGroupCombo();
    void LoadLevelCombo();
    void ssDBGroups_Click(int row);
    void ssDBLevels_Click(int row);
    void ssDBGroups_CloseUp();
    void ssDBLevels_CloseUp();
    TickBox &ssDBGroups() const;
    TickBox &ssDBLevels() const;
    // Repaints the nodes of the current slice whose fill is their level's former colour: see FollowLevels.
    void DoFixColors(const LevelColours &former);
    Finder &Find() const { return *finder_; }
    FilterBoxes &Filter() const { return *filter_; }
    LookBar &Look() const { return *look_; }
    WindowPrinting &Printing() const { return *printing_; }
    CommandSearch &Search() const;
    // DoEditSlices shows frmLayers, the others drive it unseen. After its OK the slices are rebuilt: undo
    // histories are lost and the map is dirty, even when nothing differs.
    void DoInsertSlice();
    void DoRenameSlice();
    void DoDeleteSlice();
    void DoEditSlices();
    // Shows `sFilename`, or the file that the user chooses, here or in a new window. Null when nothing was
    // opened.
    frmMain *DoOpen(QString sFilename, bool bNewWindow);
    // Reads the map into this window; where that fails before anything was read, the former map stays.
    void Load(const QString &path);
    bool HasUnsavedWork();
    // Whether a routine of this window lets events run at the moment.
    bool LetsEventsRun() const { return lettingEventsRun_; }
    // Null for a window that keeps no journal.
    WindowJournal *Journal() const { return journal_.get(); }
    LostMapOffers &LostMaps() const { return *lostMaps_; }
    StartOffer &Start() const { return *start_; }
    SliceTurns &Turns() const { return *turns_; }
    Overview &TheOverview() const { return *overview_; }
    ShapePalette &Shapes() const { return *shapes_; }
    // Whether a file to be opened wants a new window: this map is dirty, or its first slice has 4 nodes or
    // more.
    bool WantsNewWindow();
    void ShowWindow();

    // The check of a menu entry; no effect for one that isn't there.
    bool MenuValue(const QString &key) const;
    void SetMenuValue(const QString &key, bool checked);
    // Whether a click in the template bar asks before it loads a template.
    bool RHSPrompt() const;
    // Brings entries, buttons and status in step with selection, history and zoom.
    void UpdateCommands();
    // Does so once, when the event that is being handled has returned.
    void ScheduleUpdate();

    // Selects the node, unless two or more are selected, and opens its properties; of a timeline node its
    // popup, at x, y (twips from the left top corner of what is seen). A hidden timeline node gets none.
    void ShowNodeProperties(diagram::Node &oNode, float x, float y);
    void ShowLinkProperties(diagram::Link &oLink);
    // The offer to put links back that were changed.
    PutBack &FormerLinks() const { return *putBack_; }
    UndoRedo &History() const { return *history_; }
    // The timeline node whose popup was opened last, or null.
    diagram::Node *oTemplateNode() const;
    // The read-out of AddFlow1_MouseMove; no part of the program turns it on.
    static inline bool DebugReadOut = false;

    void AddFlow1_AfterAddNode(int index, diagram::Node &oNode);
    void AddFlow1_AfterAddNodeLike(int index, diagram::Node &oNode, const diagram::Node &like);
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

protected:
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BuildControls();
    void BuildMenus();
    void ConnectTabs();
    void ConnectControls();
    void Form_Load();
    void Initialize();
    void Form_Activate();
    void LookForPrinters();
    void Form_Resize();
    void tmrResize_Timer();
    // InsideRoutine is true meanwhile. For DoEvents and LongTask.
    void LetEventsRun(QEventLoop::ProcessEventsFlags flags);
    friend class LongTask;
    void Form_QueryUnload(bool &cancel);
    void Form_Unload();
    void SSTab_Click();
    void ShowPropertiesOfSelection(int index);

    support::Desktop &desktop_;
    std::unique_ptr<WindowParts> parts_;
    std::unique_ptr<WindowStatus> status_;
    PutBack *putBack_ = nullptr;
    std::unique_ptr<UndoRedo> history_;
    std::unique_ptr<FilterBoxes> filter_;
    std::unique_ptr<LookBar> look_;
    std::unique_ptr<Finder> finder_;
    std::unique_ptr<LostMapOffers> lostMaps_;
    std::unique_ptr<StartOffer> start_;
    std::unique_ptr<SliceTurns> turns_;
    std::unique_ptr<Overview> overview_;
    std::unique_ptr<SliceEditor> slices_;
    std::unique_ptr<WindowPrinting> printing_;
    std::unique_ptr<TimelinePopup> popup_;
    std::unique_ptr<DroppedFiles> drop_;
    std::unique_ptr<TemplateBar> templates_;
    std::unique_ptr<ShapePalette> shapes_;
    frmPics *frmPics_ = nullptr;
    QTimer tmrResize_;
    QTimer update_;
    QTimer firstPaint_; // goes off once the window has been painted for the first time
    QTimer printersWait_;
    clsTabStrip tabStrip_;
    std::unique_ptr<document::clsfrmMain> clsSettings_;
    document::SurfaceArray AddFlow1_;
    std::unique_ptr<SliceViews> views_; // declared behind AddFlow1_, as views go before their surfaces
    int mousePointer_ = document::pointer::kNormal;
    bool activated_ = false;
    bool painted_ = false;
    bool lettingEventsRun_ = false;
    std::unique_ptr<WindowJournal> journal_;
};

} // namespace mainwindow
