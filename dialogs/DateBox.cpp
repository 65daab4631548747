#include "dialogs/DateBox.h"

#include "timeline/DateText.h"

#include <QCalendarWidget>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QToolButton>
#include <QWidgetAction>

namespace dialogs {

namespace {

// "dd mmm yyyy Hh:Nn:Ss"; a date of a map has no time of day.
QString Shown(const QDate &date) {
    return timeline::FormatDate(date, QStringLiteral("dd mmm yyyy")) + QStringLiteral(" 00:00:00");
}

QString WithoutTime(const QString &text) {
    static const QRegularExpression time(QStringLiteral("\\s+\\d{1,2}:\\d{2}(:\\d{2})?\\s*$"));
    return QString(text).remove(time);
}

} // namespace

DateBox::DateBox(const QString &name, timeline::DateView view, QWidget *parent)
    : QWidget(parent), view_(view), text_(new QLineEdit(this)), open_(new QToolButton(this)) {
    setObjectName(name);
    text_->setAccessibleName(tr("Date"));
    text_->setMinimumWidth(
        text_->fontMetrics().horizontalAdvance(QStringLiteral("00 September 0000 - 00 September 0000")));
    open_->setArrowType(Qt::DownArrow);
    open_->setFocusPolicy(Qt::TabFocus);
    open_->setAccessibleName(tr("Choose in a calendar"));
    open_->setToolTip(open_->accessibleName());
    setFocusProxy(text_);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(2);
    row->addWidget(text_);
    row->addWidget(open_);
    connect(open_, &QToolButton::clicked, this, &DateBox::ShowCalendar);
    connect(text_, &QLineEdit::textEdited, this, [this] {
        edited_ = true;
        Q_EMIT Changed();
    });
    connect(this, &DateBox::Changed, this, [this] { text_->setAccessibleDescription(Meaning()); });
}

void DateBox::SetText(const QString &text) {
    const std::optional<QDate> date = timeline::ParseDate(WithoutTime(text));
    text_->setText(date ? Shown(*date) : text);
    edited_ = false;
    Q_EMIT Changed();
}

void DateBox::SetDate(const QDate &date) {
    text_->setText(Shown(date));
    edited_ = false;
    Q_EMIT Changed();
}

// A date with an end is shown without a time of day: there is no room for it.
void DateBox::SetSpan(const timeline::Span &span) {
    if (!span.last) return SetDate(span.first);
    text_->setText(timeline::AsWritten(span));
    edited_ = false;
    Q_EMIT Changed();
}

timeline::SpanRead DateBox::Read() const {
    return timeline::ReadSpanAsWritten(WithoutTime(text_->text()), view_);
}

std::optional<QDate> DateBox::Date() const {
    const std::optional<timeline::Span> span = Span();
    return span ? std::optional(span->first) : std::nullopt;
}

QString DateBox::Meaning() const { return Read().told; }

QString DateBox::Text() const { return text_->text(); }

void DateBox::Choose(const QDate &date) {
    const std::optional<timeline::Span> span = Span();
    text_->setText(span && span->last ? timeline::AsWritten(timeline::BegunOn(*span, date)) : Shown(date));
    edited_ = true;
    text_->setFocus();
    Q_EMIT Changed();
}

// Made when it is opened, as a calendar is slow to make.
void DateBox::ShowCalendar() {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    auto *calendar = new QCalendarWidget(menu);
    calendar->setObjectName(QStringLiteral("calDate"));
    calendar->setDateRange(QDate(timeline::kFirstYear, 1, 1), QDate(timeline::kLastYear, 12, 31));
    if (const std::optional<QDate> date = Date()) calendar->setSelectedDate(*date);
    auto *entry = new QWidgetAction(menu);
    entry->setDefaultWidget(calendar);
    menu->addAction(entry);
    const auto choose = [this, menu](const QDate &date) {
        Choose(date);
        menu->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::activated, this, choose);
    menu->popup(mapToGlobal(QPoint(0, height())));
    calendar->setFocus();
}

void DateBox::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) ShowEnabled();
}

// While the box is disabled its background has the colour of disabled texts.
void DateBox::ShowEnabled() {
    QPalette colours = palette();
    if (!isEnabled()) {
        colours.setColor(QPalette::Disabled, QPalette::Base,
                         colours.color(QPalette::Disabled, QPalette::Text));
        colours.setColor(QPalette::Disabled, QPalette::Text, colours.color(QPalette::Window));
    }
    text_->setPalette(colours);
}

void DateBox::keyPressEvent(QKeyEvent *event) {
    const bool opens =
        event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier);
    if (opens)
        ShowCalendar();
    else
        QWidget::keyPressEvent(event);
}

} // namespace dialogs
