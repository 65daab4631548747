#include "mainwindow/menus/Toolbar.h"

#include "mainwindow/controls/ShapeMenu.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/look/StateButton.h"
#include "settings/Settings.h"

#include <algorithm>
#include <QAction>
#include <QToolButton>

namespace mainwindow {

namespace {

constexpr ButtonStyle kPush = ButtonStyle::Push;

constexpr ButtonRow kMain[] = {
    {"NEW", "new", "New @MAP", kPush, Needs::Nothing, "mnuFileNew"},
    {"OPEN", "open", "Open @MAP", kPush, Needs::Nothing, "mnuFileOpen"},
    {"SAVE", "save", "Save @MAP", kPush, Needs::Nothing, "mnuFileSave"},
    {"", "", "", ButtonStyle::Separator},
    {"CUT", "cut", "Cuts selection to clipboard", kPush, Needs::SelectionOrText, "mnuEditCut"},
    {"COPY", "copy", "Copies selection to clipboard", kPush, Needs::SelectionOrText, "mnuEditCopy"},
    {"PASTE", "paste", "Pastes selection to clipboard", kPush, Needs::Nothing, "mnuEditPaste"},
    {"", "", "", ButtonStyle::Separator},
    {"UNDO", "undo", "Undo", kPush, Needs::Undo, "mnuEditUndo"},
    {"REDO", "redo", "Redo", kPush, Needs::Redo, "mnuEditRedo"},
    {"", "", "", ButtonStyle::Separator},
    {"PRINT", "print", "Print", kPush, Needs::Printers, "mnuFilePrint"},
};

// The tip of "DISPLAY" is spelled the way users know it.
constexpr ButtonRow kFormat[] = {
    {"NEW", "newe", "New Element", ButtonStyle::DropDown},
    {"", "", "", ButtonStyle::Separator},
    {"BOLD", "bold", "Bold", kPush, Needs::Selection, "mnuEditLookBold", true},
    {"ITALIC", "italic", "Italic", kPush, Needs::Selection, "mnuEditLookItalic", true},
    {"ULINE", "uline", "Underline", kPush, Needs::Selection, "mnuEditLookUnderline", true},
    {"LEFT", "left", "Left", kPush, Needs::Selection, "mnuEditLookLeft", true},
    {"CENTER", "center", "Center", kPush, Needs::Selection, "mnuEditLookCenter", true},
    {"RIGHT", "right", "Right", kPush, Needs::Selection, "mnuEditLookRight", true},
    {"FRONT", "front", "Bring to front", kPush, Needs::Selection},
    {"BACK", "back", "Send to back", kPush, Needs::Selection},
    {"DISPLAY", "display", "Toogles the display of both texts on and off", ButtonStyle::Check},
    {"", "", "", ButtonStyle::Separator},
    {"EXPAND", "expand", "Expand Timeline Nodes"},
    {"COMPRESS", "compress", "Compress Timeline Nodes"},
    {"LINEUP", "lineup", "Line up by date", kPush, Needs::Nothing, "mnuViewTimelineLineUp"},
};

constexpr const char *kView[] = {"keyShapes",       "",          "mnuViewGrid",
                                 "mnuViewSnapGrid", "",          "keyZoomOut",
                                 "mnuViewZoom100",  "keyZoomIn", "mnuViewZoomFit"};

} // namespace

std::span<const ButtonRow> MainButtons() { return kMain; }
std::span<const ButtonRow> FormatButtons() { return kFormat; }
std::span<const char *const> ViewButtons() { return kView; }

QString TipOfMainButton(const QString &command) {
    for (const ButtonRow &row : kMain)
        if (command == QLatin1String(row.command)) return settings::ReplaceTerms(QString::fromUtf8(row.tip));
    return {};
}

Toolbar::Toolbar(const QString &name, const QString &title, QWidget *parent) : QToolBar(title, parent) {
    setObjectName(name);
    setMovable(false);
    setFloatable(false);
    setIconSize(QSize(20, 20));
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void Toolbar::AddButtons(std::span<const ButtonRow> rows) {
    for (const ButtonRow &row : rows) {
        if (row.style == ButtonStyle::Separator)
            addSeparator();
        else
            AddButton(row);
    }
}

void Toolbar::AddButton(const ButtonRow &row) {
    const QString key = QLatin1String(row.key);
    const QString tip = settings::ReplaceTerms(QString::fromUtf8(row.tip));
    QAction *button = row.showsState ? new StateAction(this) : new QAction(this);
    button->setText(tip);
    button->setObjectName(key);
    const CommandRow *command = FindCommand(QLatin1String(row.command));
    button->setToolTip(command ? WithKeys(tip, KeysOf(*command)) : tip);
    button->setCheckable(row.style == ButtonStyle::Check);
    needing_.insert(int(row.needs), button);
    const QString tag = QLatin1String(row.tag);
    if (tag.length() > 1) button->setIcon(Icon(tag));
    addAction(button);
    buttons_.insert(key, button);
    connect(button, &QAction::triggered, this, [this, key] { Q_EMIT ButtonClick(key); });
    if (row.style == ButtonStyle::DropDown) AddDropDown(*button);
}

void Toolbar::AddDropDown(QAction &button) {
    auto *menu = new ShapeMenu(this);
    button.setMenu(menu);
    connect(menu, &ShapeMenu::Chosen, this, &Toolbar::ButtonMenuClick);
    if (auto *tool = qobject_cast<QToolButton *>(widgetForAction(&button)))
        tool->setPopupMode(QToolButton::MenuButtonPopup);
}

void Toolbar::ShowState(const QString &key, Shared state) {
    if (QAction *action = Button(key))
        if (auto *button = qobject_cast<StateButton *>(widgetForAction(action))) button->ShowState(state);
}

void Toolbar::SetEnabled(Needs needs, bool enabled) {
    const auto [first, last] = std::as_const(needing_).equal_range(int(needs));
    std::for_each(first, last, [enabled](QAction *button) { button->setEnabled(enabled); });
}

} // namespace mainwindow
