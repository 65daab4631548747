#include "timeline/setup/frmDate.h"

#include "timeline/DateText.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace timeline {

frmDate::frmDate(DateFormArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument), date_(argument.date.value_or(argument.today)) {
    setObjectName(QLatin1String(DateFormArgument::kForm));
    setWindowTitle(tr("Date"));
    chkDate_ = new QCheckBox(tr("&On the timeline"), this);
    chkDate_->setObjectName(QStringLiteral("chkDate"));
    chkDate_->setChecked(true); // whoever opens the form wants a date
    txtDate_ = new QLineEdit(FormatDate(*date_, kDayPattern), this);
    txtDate_->setObjectName(QStringLiteral("txtDate"));
    txtDate_->setAccessibleName(tr("Date"));
    txtDate_->setToolTip(tr("Such as 14 March 2004, Mar-04 or 14/3/2004"));
    calDate_ = new QCalendarWidget(this);
    calDate_->setObjectName(QStringLiteral("calDate"));
    calDate_->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
    calDate_->setSelectedDate(*date_);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *rows = new QVBoxLayout(this);
    for (QWidget *row : std::initializer_list<QWidget *>{chkDate_, txtDate_, calDate_, buttons})
        rows->addWidget(row);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    Connect();
    txtDate_->selectAll();
    txtDate_->setFocus();
}

void frmDate::Connect() {
    connect(chkDate_, &QCheckBox::toggled, this, &frmDate::UpdateButtons);
    connect(txtDate_, &QLineEdit::textChanged, this, &frmDate::Typed);
    connect(calDate_, &QCalendarWidget::clicked, this, &frmDate::Chosen);
    connect(calDate_, &QCalendarWidget::activated, this, [this](const QDate &date) {
        Chosen(date);
        accept();
    });
}

void frmDate::Typed() {
    date_ = ParseDate(txtDate_->text());
    if (date_) calDate_->setSelectedDate(*date_);
    UpdateButtons();
}

void frmDate::Chosen(const QDate &date) { txtDate_->setText(FormatDate(date, kDayPattern)); }

void frmDate::UpdateButtons() {
    const bool dated = chkDate_->isChecked();
    txtDate_->setEnabled(dated);
    calDate_->setEnabled(dated);
    ok_->setEnabled(date_ || !dated);
}

void frmDate::accept() {
    if (!ok_->isEnabled()) return;
    argument_.date = chkDate_->isChecked() ? date_ : std::nullopt;
    QDialog::accept();
}

} // namespace timeline
