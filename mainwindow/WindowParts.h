// The controls of the window, as they are put together.
#pragma once

class QSplitter;
class QString;
class QWidget;

namespace mainwindow {

class CommandSearch;
class cProgressBar;
class cStatusBar;
class frmMain;
class frmPics;
enum class Needs;
class PickBox;
class SliceTabs;
class SmartMenu;
class Toolbar;

// All of them belong to the window.
class WindowParts {
public:
    explicit WindowParts(frmMain &window);
    // Adds the buttons. The menus must have been built.
    void FillToolbars(frmPics &pics);
    // Enables the entries and buttons that need this of the window's state.
    void SetEnabled(Needs needs, bool enabled) const;

    SmartMenu *SmartMenuXP1a;
    CommandSearch *search;
    QSplitter *SSSplitter1;
    QWidget *picRHS; // the panel of the surfaces
    SliceTabs *SSTab_ctl;
    cStatusBar *staMain;
    cProgressBar *prg1;
    Toolbar *tlbMain;
    Toolbar *tlbFormat;
    Toolbar *tlbView;
    Toolbar *tlbFilter;
    PickBox *cboFont = nullptr;
    PickBox *cboFontSize = nullptr;

private:
    void BuildPanes();
    void BuildToolbars();
    void BuildStatusBar();
    void AddFontBoxes(frmPics &pics);
    // Adds the menu entry of that key as a button; a separator for a key that names none.
    void AddViewButton(const QString &key) const;

    frmMain &window_;
};

} // namespace mainwindow
