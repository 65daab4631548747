#include "mainwindow/start/RecoveryBar.h"

#include <array>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScrollArea>

namespace mainwindow {

namespace {

constexpr int kRowsSeen = 3;

struct ButtonText {
    OfferAnswer answer;
    const char *name, *text, *tip;
};
constexpr std::array kButtons = {
    ButtonText{OfferAnswer::Restore, "cmdRestore", QT_TRANSLATE_NOOP("RecoveryBar", "Restore"),
               QT_TRANSLATE_NOOP("RecoveryBar", "Opens %1 with the changes, unsaved")},
    ButtonText{OfferAnswer::Later, "cmdLater", QT_TRANSLATE_NOOP("RecoveryBar", "Show later"),
               QT_TRANSLATE_NOOP("RecoveryBar", "Offers %1 again at the next start")},
    ButtonText{OfferAnswer::Discard, "cmdDiscard", QT_TRANSLATE_NOOP("RecoveryBar", "Discard"),
               QT_TRANSLATE_NOOP("RecoveryBar", "Throws the changes of %1 away")},
};

} // namespace

QString OfferText(const recovery::LostMap &lost) {
    const QLocale locale;
    const QString changes = lost.changes == 1
                                ? RecoveryBar::tr("1 change")
                                : RecoveryBar::tr("%1 changes").arg(locale.toString(lost.changes));
    QString text = RecoveryBar::tr("%1: %2, %3")
                       .arg(lost.title, changes, locale.toString(lost.time, QLocale::ShortFormat));
    if (lost.damaged) text += RecoveryBar::tr(" (a part of it is damaged and lost)");
    return text;
}

RecoveryBar::RecoveryBar(QWidget *parent)
    : QFrame(parent), heading_(new QLabel(this)), list_(new QWidget(this)), layout_(new QVBoxLayout(list_)) {
    setObjectName(QStringLiteral("RecoveryBar"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setFrameShape(QFrame::StyledPanel);
    heading_->setObjectName(QStringLiteral("lblHeading"));
    heading_->setText(tr("The &program ended before these changes were saved:"));
    heading_->setForegroundRole(QPalette::ToolTipText);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(2);
    auto *area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(list_);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    for (QWidget *clear : {static_cast<QWidget *>(area), area->viewport(), list_})
        clear->setBackgroundRole(QPalette::ToolTipBase);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(8, 4, 8, 4);
    whole->setSpacing(2);
    whole->addWidget(heading_);
    whole->addWidget(area, 1);
    setAccessibleName(tr("Changes that were not saved"));
    hide();
}

void RecoveryBar::Add(std::vector<recovery::LostMap> lost) {
    for (recovery::LostMap &each : lost) AddRow(std::move(each));
    if (!rows_.empty()) heading_->setBuddy(rows_.front().buttons.front());
}

void RecoveryBar::AddRow(recovery::LostMap lost) {
    auto *widget = new QWidget(list_);
    auto *line = new QHBoxLayout(widget);
    line->setContentsMargins(0, 0, 0, 0);
    auto *text = new QLabel(OfferText(lost), widget);
    text->setTextFormat(Qt::PlainText);
    text->setForegroundRole(QPalette::ToolTipText);
    text->setToolTip(lost.path);
    text->setMinimumWidth(1); // a narrow window cuts the text off, not the buttons
    text->setMaximumWidth(text->sizeHint().width());
    line->addWidget(text);
    Row row{std::move(lost), widget, text, {}};
    for (const ButtonText &each : kButtons) {
        QPushButton *button = AddButton(each.answer, row.lost.title, *widget);
        line->addWidget(button);
        row.buttons.push_back(button);
    }
    line->addStretch(1);
    layout_->addWidget(widget);
    rows_.push_back(std::move(row));
}

QPushButton *RecoveryBar::AddButton(OfferAnswer answer, const QString &title, QWidget &row) {
    const ButtonText &words = kButtons[std::size_t(answer)];
    auto *button = new QPushButton(tr(words.text), &row);
    button->setObjectName(QLatin1String(words.name));
    button->setToolTip(tr(words.tip).arg(title));
    button->setAccessibleName(QStringLiteral("%1: %2").arg(tr(words.text), title));
    button->setAccessibleDescription(button->toolTip());
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this,
            [this, &row, answer] { Q_EMIT Answered(RowOf(&row), answer); });
    return button;
}

int RecoveryBar::RowOf(const QWidget *widget) const {
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (rows_[i].widget == widget) return int(i);
    return -1;
}

recovery::LostMap RecoveryBar::Take(int row) {
    const auto at = rows_.begin() + row;
    recovery::LostMap lost = std::move(at->lost);
    at->widget->hide();
    at->widget->deleteLater(); // its button may be what was pressed
    layout_->removeWidget(at->widget);
    rows_.erase(at);
    heading_->setBuddy(rows_.empty() ? nullptr : rows_.front().buttons.front());
    return lost;
}

QString RecoveryBar::Text(int row) const { return rows_[std::size_t(row)].text->text(); }

QPushButton *RecoveryBar::Button(int row, OfferAnswer answer) const {
    return rows_[std::size_t(row)].buttons[std::size_t(answer)];
}

int RecoveryBar::WantedHeight() const {
    if (rows_.empty()) return 0;
    const int seen = std::min(Count(), kRowsSeen);
    const int row = rows_.front().widget->sizeHint().height() + layout_->spacing();
    const QMargins margins = layout()->contentsMargins();
    return heading_->sizeHint().height() + layout()->spacing() + seen * row + margins.top() +
           margins.bottom() + 2 * frameWidth();
}

void RecoveryBar::TakeFocus() {
    if (!rows_.empty()) rows_.front().buttons.front()->setFocus(Qt::ShortcutFocusReason);
}

void RecoveryBar::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) return Q_EMIT Left();
    QFrame::keyPressEvent(event);
}

} // namespace mainwindow
