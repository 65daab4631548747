// The document window: one map, one surface a slice. Several can be open in one process.
#pragma once

#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"
#include "mainwindow/clsTabStrip.h"
#include "mainwindow/Commands.h"

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
class frmLayers;
class frmPics;
class LostMapOffers;
class PickBox;
class PutBack;
class SliceEditor;
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
    std::optional<bool> ShowsTimeline() override;

    // Whether both texts of the nodes are shown: the state of the button, for all slices and maps that this
    // window shows. Presses and releases a button of check style, and runs it.
    bool DisplayPressed() const;
    void ClickFormatButton(const QString &key);
    int MousePointer() const { return mousePointer_; }
    // The slot of the selected tab's surface, or -1 while it has none. Tabs stand without gaps, in the order
    // of the slots that are loaded: a map may leave slots empty.
    int CurrentIndex() const;
    // The surface of the selected tab and its view; error 340 when it has none.
    diagram::Surface &CurrentSurface();
    diagram::SurfaceView &CurrentView();
    // Makes room for what stands around the surface.
    void picRHS_Resize();
    // Whether a routine of some window lets events run and goes on with its windows afterwards.
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
    // The bar of templates and what is told of it, in the window's own names.
    TemplateBar &Templates() const { return *templates_; }
    void LoadRadBar();
    void LoadBarDetails(int Bar, const QString &Folder, const QStringList &Files);
    void RB_BarClick(int Bar);
    void tmrBar_Timer();
    void RB_ItemClick(int Item, int Bar);
    // The lists of what is shown: filled from the groups and levels, ticked by a click, and applied to all
    // slices when one of them closes. The map is as clean afterwards as before.
    void LoadGroupCombo();
    void LoadLevelCombo();
    void ssDBGroups_Click(int row);
    void ssDBLevels_Click(int row);
    void ssDBGroups_CloseUp();
    void ssDBLevels_CloseUp();
    TickBox &ssDBGroups() const;
    TickBox &ssDBLevels() const;
    // Gives the nodes of the current slice the colours of their levels.
    void DoFixColors();
    Finder &Find() const { return *finder_; }
    FilterBoxes &Filter() const { return *filter_; }
    WindowPrinting &Printing() const { return *printing_; }
    CommandSearch &Search() const;
    // Each runs through frmLayers, unseen but for the last, and rebuilds the slices once the user went
    // through with it: undo histories are lost and the map is dirty, after an OK even when nothing differs.
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
    bool LetsEventsRun() const { return lettingEventsRun_; }
    // Null for a window that keeps none.
    WindowJournal *Journal() const { return journal_.get(); }
    LostMapOffers &LostMaps() const { return *lostMaps_; }
    StartOffer &Start() const { return *start_; }
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

    // Selects the node, unless two or more are selected, and opens its properties; of a timeline node its
    // popup, at x, y (twips from the left top corner of what is seen). A hidden timeline node gets none.
    void ShowNodeProperties(diagram::Node &oNode, float x, float y);
    void ShowLinkProperties(diagram::Link &oLink);
    // What is offered after links were changed.
    PutBack &FormerLinks() const { return *putBack_; }
    UndoRedo &History() const { return *history_; }
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
    friend class LongTask;
    void LetEventsRun(QEventLoop::ProcessEventsFlags flags);
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
    std::unique_ptr<Finder> finder_;
    std::unique_ptr<LostMapOffers> lostMaps_;
    std::unique_ptr<StartOffer> start_;
    std::unique_ptr<SliceEditor> slices_;
    std::unique_ptr<WindowPrinting> printing_;
    std::unique_ptr<TimelinePopup> popup_;
    std::unique_ptr<DroppedFiles> drop_;
    std::unique_ptr<TemplateBar> templates_;
    frmPics *frmPics_ = nullptr;
    QTimer tmrResize_;
    QTimer update_;
    QTimer firstPaint_; // goes off once the window has been painted for the first time
    QTimer printersWait_;
    clsTabStrip tabStrip_;
    std::unique_ptr<document::clsfrmMain> clsSettings_;
    document::SurfaceArray AddFlow1_;
    std::unique_ptr<SliceViews> views_; // go before the surfaces that they show
    int mousePointer_ = document::pointer::kNormal;
    bool activated_ = false;
    bool painted_ = false;
    bool lettingEventsRun_ = false;
    std::unique_ptr<WindowJournal> journal_;
};

} // namespace mainwindow
