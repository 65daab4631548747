#include "timeline/setup/frmDate.h"

#include "timeline/DateText.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace timeline {

frmDate::frmDate(DateFormArgument &argument, QWidget *parent) : QDialog(parent), argument_(argument) {
    setObjectName(QLatin1String(kFormDate));
    setWindowTitle(tr("Date"));
    chkDate_ = new QCheckBox(tr("&On the timeline"), this);
    chkDate_->setObjectName(QStringLiteral("chkDate"));
    chkDate_->setChecked(true); // whoever opens the form wants a date
    txtDate_ = new QDateEdit(argument.date.value_or(argument.today), this);
    txtDate_->setObjectName(QStringLiteral("txtDate"));
    txtDate_->setAccessibleName(tr("Date"));
    txtDate_->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
    txtDate_->setDisplayFormat(QStringLiteral("d MMMM yyyy"));
    txtDate_->setCalendarPopup(true);
    connect(chkDate_, &QCheckBox::toggled, txtDate_, &QWidget::setEnabled);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(chkDate_);
    rows->addWidget(txtDate_);
    rows->addWidget(buttons);
    txtDate_->setFocus();
}

void frmDate::accept() {
    argument_.date = chkDate_->isChecked() ? std::optional(txtDate_->date()) : std::nullopt;
    QDialog::accept();
}

} // namespace timeline
