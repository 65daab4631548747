#include "dialogs/NamesForm.h"

#include "document/MapWindow.h"
#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "support/Error.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace dialogs {

namespace {

// In the order of NameFault::Kind.
constexpr const char *kFaults[] = {
    QT_TRANSLATE_NOOP("dialogs::NamesForm", "Please give it a name."),
    QT_TRANSLATE_NOOP("dialogs::NamesForm", "Another one has this name. Please choose a different name."),
    QT_TRANSLATE_NOOP("dialogs::NamesForm", "The one that you deleted has this name, and stays in the @MAP. "
                                            "Please choose a different name."),
};

QString TextOf(NameFault::Kind kind) { return NamesForm::tr(kFaults[std::size_t(kind)]); }

} // namespace

NamesForm::NamesForm(const Words &words, NameList::Colours colours, document::MapWindow &window,
                     QString &status, QWidget *parent)
    : QDialog(parent), form_(words.form), window_(window), status_(status) {
    setObjectName(QLatin1String(words.form));
    setWindowTitle(words.caption);
    BuildControls(words, colours);
}

void NamesForm::BuildControls(const Words &words, NameList::Colours colours) {
    lower_ = new QVBoxLayout(this);
    auto *frame = new QGroupBox(words.frame, this);
    auto *columns = new QHBoxLayout(frame);
    lvwColor_ = new NameList(words.column, colours, frame);
    lvwColor_->setObjectName(QStringLiteral("lvwColor"));
    columns->addWidget(lvwColor_, 1);
    lastOfTab_ = lvwColor_;
    buttons_ = new QVBoxLayout;
    buttons_->addStretch();
    columns->addLayout(buttons_);
    lower_->addWidget(frame, 1);

    AddButton("cmdNew", QStringLiteral("&New"), [this] { cmdNew_Click(); });
    NeedsRow(*AddButton("cmdEdit", QStringLiteral("&Edit"), [this] { cmdEdit_Click(); }));
    NeedsRow(*AddButton("cmdDelete", QStringLiteral("&Delete"), [this] { cmdDelete_Click(); }));
    BuildClosingButtons();

    connect(lvwColor_, &NameList::DeletePressed, this, &NamesForm::cmdDelete_Click);
    connect(lvwColor_, &NameList::currentItemChanged, this, &NamesForm::UpdateButtons);
    connect(lvwColor_, &NameList::LabelEdited, this, [this](QTreeWidgetItem &row, const QString &text) {
        support::Report(form_.constData(), "lvwColor_AfterLabelEdit",
                        [&] { lvwColor_AfterLabelEdit(row, text); });
        RowsChanged();
    });
    lvwColor_->setFocus();
}

void NamesForm::BuildClosingButtons() {
    auto *closing = new QDialogButtonBox(this);
    closing->setObjectName(QStringLiteral("closing"));
    QPushButton *ok = closing->addButton(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("cmdOK"));
    QPushButton *cancel = closing->addButton(QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    QPushButton *store = closing->addButton(QStringLiteral("&Default"), QDialogButtonBox::ActionRole);
    store->setObjectName(QStringLiteral("cmdDefault"));
    store->setAutoDefault(false);
    for (QPushButton *button : {ok, cancel, store}) button->setFocusPolicy(Qt::TabFocus);
    connect(closing, &QDialogButtonBox::accepted, this, &NamesForm::cmdOK_Click);
    connect(closing, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(store, &QPushButton::clicked, this, &NamesForm::cmdDefault_Click);
    lower_->addWidget(closing);
}

// A click leaves the focus where it is, so that a name being typed is taken by the button's routine and not
// between press and release.
QPushButton *NamesForm::AddButton(const char *name, const QString &text, const std::function<void()> &click) {
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::clicked, this, click);
    buttons_->insertWidget(buttons_->count() - 1, button);
    setTabOrder(std::exchange(lastOfTab_, button), button);
    return button;
}

void NamesForm::AddBelowList(QWidget &widget, QWidget &first) {
    lower_->insertWidget(1, &widget);
    setTabOrder(lastOfTab_, &first);
}

void NamesForm::ShowRows(const NameRows &rows) {
    former_ = rows;
    lvwColor_->SetRows(rows);
    UpdateButtons();
}

void NamesForm::UpdateButtons() {
    for (QPushButton *button : ofRow_) button->setEnabled(lvwColor_->currentItem() != nullptr);
}

void NamesForm::Run(const char *routine, const std::function<void()> &action) {
    support::Report(form_.constData(), routine, [&] {
        lvwColor_->EndEditing();
        action();
    });
}

void NamesForm::cmdNew_Click() {
    Run("cmdNew_Click", [this] {
        QTreeWidgetItem &row = lvwColor_->AddRow({{}, kNewItem, true, support::kBlack});
        RowsChanged();
        lvwColor_->EditRow(row);
    });
}

void NamesForm::cmdEdit_Click() {
    Run("cmdEdit_Click", [this] {
        if (QTreeWidgetItem *row = lvwColor_->currentItem()) lvwColor_->EditRow(*row);
    });
}

void NamesForm::cmdDelete_Click() {
    Run("cmdDelete_Click", [this] { DeleteRow(); });
}

// The row that takes its place is selected.
void NamesForm::DeleteRow() {
    const int at = lvwColor_->indexOfTopLevelItem(lvwColor_->currentItem());
    if (at < 0) return;
    delete lvwColor_->takeTopLevelItem(at);
    lvwColor_->setCurrentItem(lvwColor_->topLevelItem(qMin(at, lvwColor_->topLevelItemCount() - 1)));
    RowsChanged();
    UpdateButtons();
}

void NamesForm::cmdOK_Click() {
    Run("cmdOK_Click", [this] { Accept(); });
}

void NamesForm::Accept() {
    NameRows rows = lvwColor_->Rows();
    if (!RowsAreGood(rows)) return;
    Store(rows);
    status_ = TextOfDeleted(DeletedRows(former_, rows));
    accept();
}

QString NamesForm::TextOfDeleted(const NameRows &deleted) const {
    if (deleted.empty()) return {};
    const QString text = deleted.size() == 1
                             ? tr("“%1” stays in the @MAP and is listed again next time.")
                             : tr("%1 deleted ones stay in the @MAP and are listed again next time.");
    constexpr int kLongest = 40;
    const QString &name = deleted.front().name;
    const QString one = name.size() > kLongest ? name.left(kLongest) + QStringLiteral("...") : name;
    return settings::ReplaceTerms(text).arg(
        deleted.size() == 1 ? one : QLocale().toString(qlonglong(deleted.size())));
}

void NamesForm::cmdDefault_Click() {
    Run("cmdDefault_Click", [this] { WriteDefaults(); });
}

void NamesForm::WriteDefaults() {
    const NameRows rows = lvwColor_->Rows();
    if (RowsAreGood(rows) && (!isVisible() || Consents())) settings::TellOfOwnCopies({StoreDefaults(rows)});
}

bool NamesForm::Consents() const {
    const QString question =
        settings::ReplaceTerms(QStringLiteral("This will affect all new @MAPs!\r\rContinue?"));
    return window_.Desktop().messageBoxes.Show(question, support::Buttons::YesNo, support::Icon::Question,
                                               settings::Terms().TITLE) == support::Answer::Yes;
}

bool NamesForm::RowsAreGood(const NameRows &rows) {
    const std::optional<NameFault> fault = FindFault(former_, rows);
    if (!fault) return true;
    QTreeWidgetItem &row = *lvwColor_->topLevelItem(int(fault->row));
    lvwColor_->EditRow(row);
    lvwColor_->ShowMessage(row, settings::ReplaceTerms(TextOf(fault->kind)));
    return false;
}

void NamesForm::done(int result) {
    lvwColor_->DropEditing();
    QDialog::done(result);
}

} // namespace dialogs
