#include "timeline/setup/frmDate.h"

#include "settings/Settings.h"
#include "timeline/DateText.h"
#include "timeline/MonthNames.h"
#include "timeline/MoveDates.h"

#include <algorithm>
#include <functional>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace timeline {

frmDate::frmDate(DateFormArgument &argument, QWidget *parent) : QDialog(parent), argument_(argument) {
    setObjectName(QLatin1String(DateFormArgument::kForm));
    setWindowTitle(tr("Date"));
    chkDate_ = new QCheckBox(tr("&On the timeline"), this);
    chkDate_->setObjectName(QStringLiteral("chkDate"));
    chkDate_->setChecked(true); // whoever opens the form wants a date
    const QDate begin = argument.date.value_or(argument.view.today);
    BuildText(begin);
    BuildCalendar(begin);
    BuildLayout();
    Connect();
    Read();
    if (BeginsEmpty())
        ShowMeaning(settings::ReplaceTerms(tr("%1 @NODEs of different dates; +2w moves each"))
                        .arg(argument.several.size()));
    txtDate_->selectAll();
    txtDate_->setFocus();
}

void frmDate::BuildText(const QDate &begin) {
    txtDate_ = new QLineEdit(BeginsEmpty() ? QString() : AsWritten({begin, argument_.last}), this);
    txtDate_->setObjectName(QStringLiteral("txtDate"));
    txtDate_->setAccessibleName(tr("Date"));
    txtDate_->setToolTip(
        tr("Such as 14 March, 14/3/2004, next Friday, +2w, week 14 or end of June; with an end such as "
           "14 March - 2 April or 14 March for 2w") +
        (argument_.several.size() > 1 ? tr("; +2w moves each from its own date") : QString()));
    lblMeaning_ = new QLabel(this);
    lblMeaning_->setObjectName(QStringLiteral("lblMeaning"));
    const QString usual = ReadDateAsWritten(QString(), argument_.view).told;
    lblMeaning_->setMinimumWidth(lblMeaning_->fontMetrics().horizontalAdvance(usual));
}

void frmDate::BuildCalendar(const QDate &begin) {
    calDate_ = new QCalendarWidget(this);
    calDate_->setObjectName(QStringLiteral("calDate"));
    calDate_->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
    calDate_->setSelectedDate(begin);
}

void frmDate::BuildLayout() {
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *rows = new QVBoxLayout(this);
    for (QWidget *row : std::initializer_list<QWidget *>{chkDate_, txtDate_, lblMeaning_, calDate_, buttons})
        rows->addWidget(row);
    rows->setSizeConstraint(QLayout::SetFixedSize);
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

bool frmDate::BeginsEmpty() const {
    return argument_.lastsDiffer ||
           std::ranges::adjacent_find(argument_.several, std::not_equal_to()) != argument_.several.end();
}

void frmDate::Typed() {
    Read();
    if (span_) calDate_->setSelectedDate(span_->first);
}

void frmDate::Read() {
    step_.reset();
    span_.reset();
    if (!ReadStep()) {
        const SpanRead read = ReadSpanAsWritten(txtDate_->text(), argument_.view);
        span_ = read.span;
        ShowMeaning(read.told);
    }
    UpdateButtons();
}

bool frmDate::ReadStep() {
    const std::optional<DateStep> step = ReadDateStep(Plain(txtDate_->text()).simplified());
    if (!step || argument_.several.size() < 2) return false;
    const std::optional<MovedDates> foreseen = Foreseen(argument_.several, *step);
    if (foreseen && foreseen->moved == 0) return false; // they have none to begin from
    if (foreseen) step_ = step;
    const QString who =
        foreseen && foreseen->undated > 0 ? tr("Each dated @NODE moves: %1") : tr("Each @NODE moves: %1");
    ShowMeaning(foreseen ? settings::ReplaceTerms(who).arg(InWords(*step)) : YearsInWords());
    return true;
}

// A screen reader tells it with the box.
void frmDate::ShowMeaning(const QString &meaning) {
    lblMeaning_->setText(meaning);
    txtDate_->setAccessibleDescription(meaning);
}

void frmDate::Chosen(const QDate &date) {
    txtDate_->setText(AsWritten(span_ ? BegunOn(*span_, date) : Span{date}));
}

void frmDate::UpdateButtons() {
    const bool dated = chkDate_->isChecked();
    txtDate_->setEnabled(dated);
    lblMeaning_->setEnabled(dated);
    calDate_->setEnabled(dated);
    ok_->setEnabled(span_ || step_ || !dated);
}

void frmDate::accept() {
    if (!ok_->isEnabled()) return;
    const std::optional<Span> span = chkDate_->isChecked() ? span_ : std::nullopt;
    argument_.date = span ? std::optional(span->first) : std::nullopt;
    argument_.last = span ? span->last : std::nullopt;
    argument_.step = chkDate_->isChecked() ? step_ : std::nullopt;
    QDialog::accept();
}

} // namespace timeline
