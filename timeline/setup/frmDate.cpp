#include "timeline/setup/frmDate.h"

#include "timeline/DateText.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace timeline {

frmDate::frmDate(DateFormArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument), date_(argument.date.value_or(argument.view.today)) {
    setObjectName(QLatin1String(DateFormArgument::kForm));
    setWindowTitle(tr("Date"));
    chkDate_ = new QCheckBox(tr("&On the timeline"), this);
    chkDate_->setObjectName(QStringLiteral("chkDate"));
    chkDate_->setChecked(true); // whoever opens the form wants a date
    txtDate_ = new QLineEdit(FormatDate(*date_, kDayPattern), this);
    txtDate_->setObjectName(QStringLiteral("txtDate"));
    txtDate_->setAccessibleName(tr("Date"));
    txtDate_->setToolTip(tr("Such as 14 March, 14/3/2004, next Friday, +2w, week 14 or end of June"));
    lblMeaning_ = new QLabel(this);
    lblMeaning_->setObjectName(QStringLiteral("lblMeaning"));
    lblMeaning_->setMinimumWidth(
        lblMeaning_->fontMetrics().horizontalAdvance(ReadDateAsWritten(QString(), argument.view).told));
    ShowMeaning(InFull(*date_));
    calDate_ = new QCalendarWidget(this);
    calDate_->setObjectName(QStringLiteral("calDate"));
    calDate_->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
    calDate_->setSelectedDate(*date_);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *rows = new QVBoxLayout(this);
    for (QWidget *row : std::initializer_list<QWidget *>{chkDate_, txtDate_, lblMeaning_, calDate_, buttons})
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
    const DateRead read = ReadDateAsWritten(txtDate_->text(), argument_.view);
    date_ = read.date;
    ShowMeaning(read.told);
    if (date_) calDate_->setSelectedDate(*date_);
    UpdateButtons();
}

// Heard too, by whoever doesn't see it.
void frmDate::ShowMeaning(const QString &meaning) {
    lblMeaning_->setText(meaning);
    txtDate_->setAccessibleDescription(meaning);
}

void frmDate::Chosen(const QDate &date) { txtDate_->setText(FormatDate(date, kDayPattern)); }

void frmDate::UpdateButtons() {
    const bool dated = chkDate_->isChecked();
    txtDate_->setEnabled(dated);
    lblMeaning_->setEnabled(dated);
    calDate_->setEnabled(dated);
    ok_->setEnabled(date_ || !dated);
}

void frmDate::accept() {
    if (!ok_->isEnabled()) return;
    argument_.date = chkDate_->isChecked() ? date_ : std::nullopt;
    QDialog::accept();
}

} // namespace timeline
