#include "templates/forms/frmSaveAsTemplate.h"

#include "dialogs/clsCompactPath.h"
#include "document/MapWindow.h"
#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "support/Desktop.h"
#include "support/Error.h"
#include "templates/ScratchFile.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>

namespace templates {

namespace {

namespace pointer = document::pointer;
using namespace support::fileflags;

constexpr int kIconSide = 32;
constexpr int kLeastOfPath = 48; // characters that are seen on any screen
constexpr long kIconFlags = kFileMustExist | kHideReadOnly;
constexpr long kPathFlags = kPathMustExist | kHideReadOnly | kOverwritePrompt;

} // namespace

frmSaveAsTemplate::frmSaveAsTemplate(const SaveAsTemplateArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument) {
    setObjectName(QLatin1String(SaveAsTemplateArgument::kForm));
    setWindowTitle(tr("Save As Template"));
    Build();
    support::Report("frmSaveAsTemplate", "Form_Load", [this] { ShowDefaults(); });
}

frmSaveAsTemplate::~frmSaveAsTemplate() = default;

void frmSaveAsTemplate::Build() {
    auto *grid = new QGridLayout(this);
    lblOutputPath_ = AddPath(*grid, 0, "lblOutput", "lblOutputPath", tr("Output Path:"));
    lblIconPath_ = AddPath(*grid, 1, "lblIcon", "lblIconPath", tr("Icon:"));
    cmdPath_ = AddButton("cmdPath", tr("&Browse..."));
    cmdIcon_ = AddButton("cmdIcon", tr("Choose &Icon..."));
    cmdDrawnIcon_ = AddButton("cmdDrawnIcon", tr("From the &drawing"));
    cmdDrawnIcon_->setToolTip(settings::ReplaceTerms(tr("Makes an icon of the @SLICE itself, drawn small")));
    picIcon_ = new QLabel(this);
    picIcon_->setObjectName(QStringLiteral("picIcon"));
    picIcon_->setFixedSize(kIconSide, kIconSide);
    picIcon_->setAccessibleName(tr("The icon"));
    grid->addWidget(cmdPath_, 0, 2);
    grid->addWidget(cmdIcon_, 1, 2);
    grid->addWidget(picIcon_, 2, 1);
    grid->addWidget(cmdDrawnIcon_, 2, 2);
    AddButtons(*grid);
    connect(cmdPath_, &QPushButton::clicked, this, &frmSaveAsTemplate::cmdPath_Click);
    connect(cmdIcon_, &QPushButton::clicked, this, &frmSaveAsTemplate::cmdIcon_Click);
    connect(cmdDrawnIcon_, &QPushButton::clicked, this, &frmSaveAsTemplate::cmdDrawnIcon_Click);
}

QPushButton *frmSaveAsTemplate::AddButton(const char *name, const QString &caption) {
    auto *button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

dialogs::PathLabel *frmSaveAsTemplate::AddPath(QGridLayout &grid, int row, const char *caption,
                                               const char *path, const QString &text) {
    auto *label = new QLabel(text, this);
    label->setObjectName(QLatin1String(caption));
    auto *shown = new dialogs::PathLabel(this);
    shown->setObjectName(QLatin1String(path));
    shown->setMinimumWidth(kLeastOfPath * fontMetrics().averageCharWidth());
    shown->setAccessibleName(QString(text).remove(QLatin1Char(':')));
    grid.addWidget(label, row, 0);
    grid.addWidget(shown, row, 1);
    return shown;
}

void frmSaveAsTemplate::AddButtons(QGridLayout &grid) {
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    cmdOK_ = buttons->button(QDialogButtonBox::Ok);
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel_ = buttons->button(QDialogButtonBox::Cancel);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel_->setText(tr("Cancel"));
    grid.setColumnStretch(1, 1);
    grid.setRowStretch(3, 1);
    grid.addWidget(buttons, 4, 0, 1, 3);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmSaveAsTemplate::cmdOK_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void frmSaveAsTemplate::ShowDefaults() {
    const QString icon = FirstIcon();
    if (!icon.isEmpty()) TakeIcon(icon, icon);
    dialogs::clsCompactPath().CompactPathIntoControl(ProposedPath(argument_.window.TabStrip().Caption()),
                                                     *lblOutputPath_);
}

void frmSaveAsTemplate::TakeIcon(const QString &shown, const QString &file) {
    icon_ = file;
    dialogs::clsCompactPath().CompactPathIntoControl(shown, *lblIconPath_);
    picIcon_->setPixmap(QIcon(file).pixmap(QSize(kIconSide, kIconSide), devicePixelRatioF()));
}

void frmSaveAsTemplate::cmdIcon_Click() {
    support::Report("frmSaveAsTemplate", "cmdIcon_Click", [this] { AskForIcon(); });
}

void frmSaveAsTemplate::AskForIcon() {
    int row = 1;
    const QString file = argument_.window.Desktop().dialogs.ShowOpenFileDialog(
        QStringLiteral("Icon Files|*.ico"), QString(), settings::TemplatesFolder(), kIconFlags, this, row);
    if (!file.isEmpty()) TakeIcon(file, file);
}

void frmSaveAsTemplate::cmdPath_Click() {
    support::Report("frmSaveAsTemplate", "cmdPath_Click", [this] { AskForPath(); });
}

void frmSaveAsTemplate::AskForPath() {
    int row = 1;
    const QString ending = settings::Terms().TEMPLATE;
    const QString file = argument_.window.Desktop().dialogs.ShowSaveFileDialog(
        QStringLiteral("Template Files|*.%1").arg(ending), ending, settings::FolderForTemplates(), kPathFlags,
        this, row);
    if (!file.isEmpty()) dialogs::clsCompactPath().CompactPathIntoControl(file, *lblOutputPath_);
}

void frmSaveAsTemplate::cmdDrawnIcon_Click() {
    support::Report("frmSaveAsTemplate", "cmdDrawnIcon_Click", [this] {
        drawn_ = std::make_unique<ScratchFile>(IconFromDrawing(argument_.Flow));
        TakeIcon(tr("From the drawing"), drawn_->Path());
    });
}

void frmSaveAsTemplate::Tell(const QString &text) {
    argument_.window.Desktop().messageBoxes.Show(text, support::Buttons::Ok, support::Icon::Information,
                                                 settings::Terms().TITLE);
}

bool frmSaveAsTemplate::HasBoth() {
    if (icon_.isEmpty()) {
        Tell(QStringLiteral("Please select an icon for display purposes."));
        AskForIcon();
        if (icon_.isEmpty()) return false;
    }
    if (!lblOutputPath_->Tag().isEmpty()) return true;
    Tell(QStringLiteral("Please select an output file."));
    AskForPath();
    return !lblOutputPath_->Tag().isEmpty();
}

void frmSaveAsTemplate::cmdOK_Click() {
    support::Report("frmSaveAsTemplate", "cmdOK_Click", [this] {
        if (HasBoth()) Save();
    });
    argument_.window.SetMousePointer(pointer::kNormal);
}

void frmSaveAsTemplate::Save() {
    argument_.window.SetMousePointer(pointer::kHourglass);
    for (QPushButton *button : {cmdOK_, cmdCancel_, cmdPath_, cmdIcon_, cmdDrawnIcon_})
        button->setEnabled(false);
    repaint();
    SaveAsTemplate(argument_.window, argument_.Flow, icon_, lblOutputPath_->Tag());
    if (argument_.LoadRadBar) argument_.LoadRadBar();
    accept();
}

} // namespace templates
