#include "dialogs/frmNodeDialog.h"

#include "diagram/model/Surface.h"
#include "dialogs/AttachmentsPage.h"
#include "dialogs/HyperlinkPage.h"
#include "dialogs/NodeDatePage.h"
#include "dialogs/NodeLevelPage.h"
#include "dialogs/NodePicturePage.h"
#include "dialogs/NodeSample.h"
#include "dialogs/NodeSettingsPage.h"
#include "dialogs/NodeTextPage.h"
#include "dialogs/PlainTextBox.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "settings/Settings.h"
#include "support/Error.h"
#include "timeline/Span.h"
#include "widgets/SwatchButton.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

namespace dialogs {

frmNodeDialog::frmNodeDialog(const NodeDialogArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument), SSIndexTab1_(new QTabWidget(this)) {
    setObjectName(QLatin1String(NodeDialogArgument::kForm));
    SSIndexTab1_->setObjectName(QStringLiteral("SSIndexTab1"));
    SSIndexTab1_->setUsesScrollButtons(false); // all pages are in sight
    BuildPages();
    BuildRest();
    Form_Load();
    Watch();
    ShowSample();
}

void frmNodeDialog::BuildPages() {
    support::Desktop &desktop = argument_.window.Desktop();
    settings_ = new NodeSettingsPage(desktop, this);
    text_ = new NodeTextPage(desktop, settings_->picForeColor(), this);
    date_ = new NodeDatePage(timeline::ViewFrom(desktop.clock.Now().date(), argument_.oFlow), this);
    level_ = new NodeLevelPage(this);
    picture_ = new NodePicturePage(desktop, this);
    SSIndexTab1_->addTab(settings_, QStringLiteral("Settings"));
    SSIndexTab1_->addTab(text_, QStringLiteral("Text"));
    SSIndexTab1_->addTab(date_, QStringLiteral("Date"));
    SSIndexTab1_->addTab(level_, QStringLiteral("Level"));
    SSIndexTab1_->addTab(picture_, QStringLiteral("Picture"));
    AddLinkedPages();
}

// The pages for what refers to the node by its key.
void frmNodeDialog::AddLinkedPages() {
    hyperlink_ = new HyperlinkPage(argument_.window, argument_.oNode, this);
    attachments_ = new AttachmentsPage(argument_.window, argument_.oNode, this);
    SSIndexTab1_->addTab(hyperlink_, QStringLiteral("Hyperlink"));
    SSIndexTab1_->addTab(attachments_, QStringLiteral("Attachments"));
}

void frmNodeDialog::BuildRest() {
    auto *lblSample = new QLabel(tr("Sample"), this);
    sample_ = new NodeSample(argument_.oNode, this);
    lblSelection_ = new QLabel(this);
    lblSelection_->setObjectName(QStringLiteral("lblSelection"));
    lblSelection_->setWordWrap(true);
    BuildButtons();
    auto *grid = new QGridLayout(this);
    grid->addWidget(SSIndexTab1_, 0, 0, 2, 1);
    grid->addWidget(lblSample, 0, 1);
    grid->addWidget(sample_, 1, 1);
    grid->addWidget(lblSelection_, 2, 0, 1, 2);
    grid->addWidget(buttons_, 3, 0, 1, 2);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(0, 1);
}

void frmNodeDialog::BuildButtons() {
    buttons_ = new QDialogButtonBox(this);
    OKButton_ = buttons_->addButton(QDialogButtonBox::Ok);
    OKButton_->setObjectName(QStringLiteral("OKButton"));
    OKButton_->setDefault(true);
    QPushButton *cancel = buttons_->addButton(QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("CancelButton"));
    QPushButton *apply = buttons_->addButton(QStringLiteral("&Apply"), QDialogButtonBox::ApplyRole);
    apply->setObjectName(QStringLiteral("cmdApply"));
    for (QPushButton *button : {OKButton_, cancel, apply}) button->setAutoDefault(false);
    connect(buttons_, &QDialogButtonBox::accepted, this, &frmNodeDialog::OKButton_Click);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(apply, &QPushButton::clicked, this, &frmNodeDialog::cmdApply_Click);
}

bool frmNodeDialog::EditsSeveral() const {
    return argument_.editsSelection && argument_.oFlow.SelectedNodes().size() > 1;
}

void frmNodeDialog::Form_Load() {
    setWindowTitle(settings::ReplaceTerms(QStringLiteral("@NODE Properties")));
    const diagram::Node &oNode = argument_.oNode;
    const NodeEdit edit = EditOf(oNode);
    settings_->Load(edit);
    text_->Load(edit, oNode.Text(), oNode.Event());
    picture_->Load(edit);
    hyperlink_->Load();
    attachments_->Load();
    SSIndexTab1_->setTabEnabled(SSIndexTab1_->indexOf(date_), !EditsSeveral());
    ShowDate();
    SSIndexTab1_->setCurrentIndex(0);
    ShowWhatGoesWhere();
}

// The date isn't shown where several nodes are edited, so that applying takes away that of this node.
void frmNodeDialog::ShowDate() {
    const std::optional<QString> day = DayTextOf(argument_.oNode);
    if (day && !EditsSeveral()) {
        const std::optional<timeline::Span> span = timeline::SpanOfNode(argument_.oNode);
        date_->Load(*day, span ? span->last : std::nullopt);
    }
    date_->chkDate_Click();
}

void frmNodeDialog::Watch() {
    resample_ = new QTimer(this);
    resample_->setSingleShot(true);
    connect(resample_, &QTimer::timeout, this, &frmNodeDialog::ShowSample);
    const auto changed = [this] { resample_->start(); };
    connect(settings_, &NodeSettingsPage::Changed, this, changed);
    connect(text_, &NodeTextPage::Changed, this, changed);
    connect(picture_, &NodePicturePage::Changed, this, changed);
    connect(level_, &NodeLevelPage::LevelMarked, this, [this, changed](support::Colour colour) {
        settings_->picFillColor().SetValue(colour);
        changed();
    });
    connect(SSIndexTab1_, &QTabWidget::currentChanged, this, &frmNodeDialog::SSIndexTab1_Click);
    connect(&text_->txtText(), &PlainTextBox::FocusChanged, this,
            [this](bool has) { OKButton_->setDefault(!has); });
}

void frmNodeDialog::SSIndexTab1_Click(int page) {
    if (SSIndexTab1_->widget(page) != level_) return;
    support::Report("frmNodeDialog", "SSIndexTab1_ClickBefore", [this] {
        level_->Fill(argument_.window.clsSettings(), argument_.oNode);
        ShowWhatGoesWhere();
    });
}

void frmNodeDialog::ShowWhatGoesWhere() {
    lblSelection_->setVisible(EditsSeveral());
    if (!EditsSeveral()) return;
    QString text =
        tr("Settings, font, margins and picture go to all %1 selected @NODEs; texts, hyperlink and "
           "attachments to this one alone.")
            .arg(argument_.oFlow.SelectedNodes().size());
    if (DayTextOf(argument_.oNode)) text += u' ' + tr("OK takes this @NODE's date away.");
    const QString level =
        level_->IsFilled() ? tr("All get the level and the groups that are marked, and the fill color.")
                           : tr("Once the page Level was opened, all get its level, groups and color, too.");
    lblSelection_->setText(settings::ReplaceTerms(text + u' ' + level));
}

NodeEdit frmNodeDialog::Edit() const {
    NodeEdit edit;
    settings_->Store(edit);
    text_->Store(edit);
    date_->Store(edit);
    level_->Store(edit);
    picture_->Store(edit);
    return edit;
}

void frmNodeDialog::ShowSample() { sample_->Show(Edit(), text_->Text()); }

void frmNodeDialog::Refuse(const QString &why, QWidget &page) {
    argument_.window.Desktop().messageBoxes.Show(why, support::Buttons::Ok, support::Icon::Exclamation,
                                                 settings::Terms().TITLE);
    SSIndexTab1_->setCurrentWidget(&page);
}

// What was typed for a date must be one, and files must be there and fit in.
bool frmNodeDialog::MayApply() {
    if (date_->IsUnreadable()) {
        Refuse(tr("\"%1\" is no date.").arg(date_->Text()), *date_);
        date_->FocusDate();
        return false;
    }
    const QString why = WhyAttachmentsAreRefused(argument_.window, argument_.oNode, attachments_->Rows());
    if (!why.isEmpty()) Refuse(why, *attachments_);
    return why.isEmpty();
}

bool frmNodeDialog::cmdApply_Click() {
    bool applied = false;
    support::Report("frmNodeDialog", "cmdApply_Click", [&] {
        if (!MayApply()) return;
        level_->SelectLevel();
        ApplyNodeEdit(argument_, Edit(), [this] {
            ApplyHyperlink(argument_.window, argument_.oNode, hyperlink_->Edit());
            ApplyAttachments(argument_.window, argument_.oNode, attachments_->Rows());
        });
        text_->Keep();
        attachments_->Load();
        applied = true;
    });
    return applied;
}

// What could not be applied isn't lost: the dialog stays.
void frmNodeDialog::OKButton_Click() {
    if (cmdApply_Click()) accept();
}

} // namespace dialogs
