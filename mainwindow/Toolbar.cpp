#include "mainwindow/Toolbar.h"

#include "app/settings/Settings.h"
#include "mainwindow/Icons.h"
#include "mainwindow/ShapeMenu.h"

#include <QAction>
#include <QToolButton>

namespace mainwindow {

namespace {

constexpr ButtonRow kMain[] = {
    {"NEW", "new", "New @MAP"},
    {"OPEN", "open", "Open @MAP"},
    {"SAVE", "save", "Save @MAP"},
    {"", "", "", ButtonStyle::Separator},
    {"CUT", "cut", "Cuts selection to clipboard", ButtonStyle::Push, Needs::SelectionOrText},
    {"COPY", "copy", "Copies selection to clipboard", ButtonStyle::Push, Needs::SelectionOrText},
    {"PASTE", "paste", "Pastes selection to clipboard"},
    {"DELETE", "delete", "Deletes selection", ButtonStyle::Push, Needs::Selection},
    {"", "", "", ButtonStyle::Separator},
    {"UNDO", "undo", "Undo", ButtonStyle::Push, Needs::Undo},
    {"REDO", "redo", "Redo", ButtonStyle::Push, Needs::Redo},
};

// The tip of "DISPLAY" is spelled the way users know it.
constexpr ButtonRow kFormat[] = {
    {"NEW", "newe", "New Element", ButtonStyle::DropDown},
    {"", "", "", ButtonStyle::Separator},
    {"BOLD", "bold", "Bold", ButtonStyle::Push, Needs::Selection},
    {"ITALIC", "italic", "Italic", ButtonStyle::Push, Needs::Selection},
    {"ULINE", "uline", "Underline", ButtonStyle::Push, Needs::Selection},
    {"LEFT", "left", "Left", ButtonStyle::Push, Needs::Selection},
    {"CENTER", "center", "Center", ButtonStyle::Push, Needs::Selection},
    {"RIGHT", "right", "Right", ButtonStyle::Push, Needs::Selection},
    {"FRONT", "front", "Bring to front", ButtonStyle::Push, Needs::Selection},
    {"BACK", "back", "Send to back", ButtonStyle::Push, Needs::Selection},
    {"DISPLAY", "display", "Toogles the display of both texts on and off", ButtonStyle::Check},
};

constexpr const char *kView[] = {"mnuViewGrid", "mnuViewSnapGrid", "", "keyZoomOut", "mnuViewZoom100",
                                 "keyZoomIn",   "mnuViewZoomFit"};

} // namespace

std::span<const ButtonRow> MainButtons() { return kMain; }
std::span<const ButtonRow> FormatButtons() { return kFormat; }
std::span<const char *const> ViewButtons() { return kView; }

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
    auto *button = new QAction(tip, this);
    button->setObjectName(key);
    button->setToolTip(tip);
    button->setCheckable(row.style == ButtonStyle::Check);
    button->setProperty("needs", int(row.needs));
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

void Toolbar::SetEnabled(Needs needs, bool enabled) {
    for (QAction *button : std::as_const(buttons_))
        if (button->property("needs").toInt() == int(needs)) button->setEnabled(enabled);
}

} // namespace mainwindow
