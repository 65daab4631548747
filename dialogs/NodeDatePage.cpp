#include "dialogs/NodeDatePage.h"

#include "dialogs/DateBox.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace dialogs {

NodeDatePage::NodeDatePage(const timeline::DateView &view, QWidget *parent) : QWidget(parent) {
    auto *fraDate = new QFrame(this);
    fraDate->setObjectName(QStringLiteral("fraDate"));
    chkDate_ = new QCheckBox(tr("On the &timeline"), fraDate);
    chkDate_->setObjectName(QStringLiteral("chkDate"));
    SSDateCombo1_ = new DateBox(QStringLiteral("SSDateCombo1"), view, fraDate);
    lblMeaning_ = new QLabel(fraDate);
    lblMeaning_->setObjectName(QStringLiteral("lblMeaning"));
    lblMeaning_->setWordWrap(true);
    connect(SSDateCombo1_, &DateBox::Changed, this, &NodeDatePage::ShowMeaning);
    SSDateCombo1_->SetDate(view.today);
    auto *rows = new QVBoxLayout(fraDate);
    rows->setContentsMargins({});
    rows->addWidget(chkDate_);
    auto *box = new QHBoxLayout;
    box->addWidget(SSDateCombo1_);
    box->addWidget(lblMeaning_, 1);
    rows->addLayout(box);
    auto *hint = new QLabel(
        tr("Type it as you write it, such as 14 March, 14/3/2004, next Friday, +2w, week 14 or end of June, "
           "or choose it. With an end: 14 March - 2 April, or 14 March for 2w."),
        fraDate);
    hint->setWordWrap(true);
    rows->addWidget(hint);
    auto *page = new QVBoxLayout(this);
    page->addWidget(fraDate);
    page->addStretch();
    connect(chkDate_, &QCheckBox::toggled, this, &NodeDatePage::chkDate_Click);
}

void NodeDatePage::Load(const QString &day, const std::optional<QDate> &last) {
    chkDate_->setChecked(true);
    SSDateCombo1_->SetText(day);
    if (const std::optional<QDate> first = SSDateCombo1_->Date(); first && last)
        SSDateCombo1_->SetSpan({*first, last});
}

void NodeDatePage::Store(NodeEdit &edit) const {
    edit.date.dated = chkDate_->isChecked();
    const std::optional<timeline::Span> span = SSDateCombo1_->Span();
    edit.date.value = span ? std::optional(span->first) : std::nullopt;
    edit.date.last = span ? span->last : std::nullopt;
}

bool NodeDatePage::IsUnreadable() const {
    return chkDate_->isChecked() && SSDateCombo1_->IsEdited() && !SSDateCombo1_->Date();
}

QString NodeDatePage::Text() const { return SSDateCombo1_->Text(); }

void NodeDatePage::FocusDate() { SSDateCombo1_->setFocus(); }

void NodeDatePage::chkDate_Click() {
    SSDateCombo1_->setEnabled(chkDate_->isChecked());
    lblMeaning_->setEnabled(chkDate_->isChecked());
}

void NodeDatePage::ShowMeaning() { lblMeaning_->setText(SSDateCombo1_->Meaning()); }

} // namespace dialogs
