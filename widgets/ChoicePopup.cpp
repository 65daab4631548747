#include "widgets/ChoicePopup.h"

#include "widgets/PopupPlace.h"

#include <algorithm>
#include <QEnterEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolButton>

namespace widgets {

namespace {

constexpr int kMargin = 8;     // pixels around the sections
constexpr int kRim = 4;        // around a picture
constexpr int kGap = 8;        // between a picture and its name
constexpr int kAboveTitle = 6; // between sections
constexpr double kTint = 0.22; // of the accent, under the choice that has the focus
constexpr qreal kCorner = 4, kMark = 2;

// A picture, with its name beside it or in its tip. The one under the pointer has the focus, as in a menu.
class ChoiceButton : public QToolButton {
public:
    ChoiceButton(const Choice &choice, const ChoiceSection &section, QWidget *parent) : QToolButton(parent) {
        setText(choice.name);
        setAccessibleName(choice.name);
        setIcon(choice.icon);
        setIconSize(section.iconSize);
        setCheckable(choice.current);
        setChecked(choice.current);
        setFocusPolicy(Qt::StrongFocus);
        setToolButtonStyle(section.named ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
        if (!section.named) setToolTip(choice.name);
        setSizePolicy(section.named ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override {
        const QSize icon = iconSize() + QSize(2 * kRim, 2 * kRim);
        if (!IsNamed()) return icon;
        return {icon.width() + kGap + fontMetrics().horizontalAdvance(text()) + kGap,
                qMax(icon.height(), fontMetrics().height() + kRim)};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void enterEvent(QEnterEvent *event) override {
        QToolButton::enterEvent(event);
        setFocus(Qt::MouseFocusReason);
    }

    // The arrows, Enter and the letters are the popup's.
    void keyPressEvent(QKeyEvent *event) override {
        if (event->key() == Qt::Key_Space)
            QToolButton::keyPressEvent(event);
        else
            event->ignore();
    }

    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        PaintGround(painter);
        const QSize size = iconSize();
        const QRect at(IsNamed() ? kRim : (width() - size.width()) / 2, (height() - size.height()) / 2,
                       size.width(), size.height());
        icon().paint(&painter, at);
        if (!IsNamed()) return;
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect().adjusted(at.right() + 1 + kGap, 0, 0, 0), Qt::AlignVCenter, text());
    }

private:
    bool IsNamed() const { return toolButtonStyle() == Qt::ToolButtonTextBesideIcon; }

    void PaintGround(QPainter &painter) const {
        QColor accent = palette().color(QPalette::Highlight);
        painter.setPen(isChecked() ? QPen(accent, kMark) : QPen(Qt::NoPen));
        accent.setAlphaF(float(kTint));
        painter.setBrush(hasFocus() ? QBrush(accent) : QBrush(Qt::NoBrush));
        const qreal in = kMark / 2;
        painter.drawRoundedRect(QRectF(rect()).adjusted(in, in, -in, -in), kCorner, kCorner);
    }
};

struct KeyStep {
    int key, rows, columns;
};
constexpr KeyStep kSteps[] = {
    {Qt::Key_Left, 0, -1}, {Qt::Key_Right, 0, 1}, {Qt::Key_Up, -1, 0}, {Qt::Key_Down, 1, 0}};

} // namespace

ChoicePopup::ChoicePopup(const QString &title, const std::vector<ChoiceSection> &sections, QWidget *parent)
    : QFrame(parent, Qt::Popup) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(title);
    setWindowTitle(title);
    auto *rows = new QGridLayout(this);
    rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    rows->setSpacing(1);
    for (const ChoiceSection &section : sections)
        if (!section.choices.empty()) AddSection(*rows, section);
    begin_ = std::max(begin_, 0);
}

void ChoicePopup::AddSection(QGridLayout &rows, const ChoiceSection &section) {
    const bool isFirst = rows.count() == 0;
    if (!section.title.isEmpty()) {
        auto *title = new QLabel(section.title, this);
        title->setContentsMargins(kRim, isFirst ? 0 : kAboveTitle, 0, kRim / 2);
        rows.addWidget(title, rows.rowCount(), 0);
    } else if (!isFirst) {
        rows.setRowMinimumHeight(rows.rowCount(), kAboveTitle);
        rows.addItem(new QSpacerItem(0, 0), rows.rowCount() - 1, 0);
    }
    auto *grid = new QGridLayout;
    grid->setSpacing(1);
    for (std::size_t i = 0; i < section.choices.size(); ++i) {
        const int row = int(i) / section.columns, column = int(i) % section.columns;
        grid->addWidget(AddChoice(section.choices[i], section), row, column);
        places_.push_back({sections_, rows_ + row, column});
        if (section.choices[i].current && begin_ < 0) begin_ = int(places_.size()) - 1;
    }
    if (!section.named) grid->setColumnStretch(section.columns, 1);
    rows_ += (int(section.choices.size()) + section.columns - 1) / section.columns;
    ++sections_;
    rows.addLayout(grid, rows.rowCount(), 0);
}

QToolButton *ChoicePopup::AddChoice(const Choice &choice, const ChoiceSection &section) {
    auto *button = new ChoiceButton(choice, section, this);
    // What is chosen may open a dialog, or end the window: the popup is gone by then.
    connect(button, &QToolButton::clicked, this, [this, choose = choice.choose] {
        const auto chosen = choose;
        close();
        if (chosen) chosen();
    });
    buttons_.push_back(button);
    return button;
}

void ChoicePopup::OpenAt(const QRect &place) {
    const QRect room = RoomAround(place);
    QRect at(BesidePlace(sizeHint(), place, room).topLeft(), sizeHint()); // rather over the place than cut
    at.moveTop(qMax(room.top(), qMin(at.top(), room.bottom() + 1 - at.height())));
    setGeometry(at);
    show();
    GoTo(begin_);
}

int ChoicePopup::Position() const {
    const auto at = std::find(buttons_.begin(), buttons_.end(), focusWidget());
    return at == buttons_.end() ? begin_ : int(at - buttons_.begin());
}

void ChoicePopup::GoTo(int position) {
    if (position >= 0 && position < int(buttons_.size()))
        buttons_[std::size_t(position)]->setFocus(Qt::TabFocusReason);
}

// A step aside goes on in the next row, a step down to the nearest column of it; both begin anew at the end.
void ChoicePopup::Step(int rows, int columns) {
    if (buttons_.empty()) return;
    const int count = int(buttons_.size()), from = Position();
    if (columns != 0) return GoTo((from + columns + count) % count);
    const Place place = places_[std::size_t(from)];
    const int row = (place.row + rows + rows_) % rows_;
    int best = from;
    for (int i = 0; i < count; ++i)
        if (places_[std::size_t(i)].row == row && places_[std::size_t(i)].column <= place.column) best = i;
    GoTo(best);
}

void ChoicePopup::GoToLetter(const QString &letter) {
    const int count = int(buttons_.size()), from = Position();
    for (int step = 1; step <= count; ++step) {
        const int at = (from + step) % count;
        if (buttons_[std::size_t(at)]->text().startsWith(letter, Qt::CaseInsensitive)) return GoTo(at);
    }
}

bool ChoicePopup::focusNextPrevChild(bool next) {
    const int section = places_.empty() ? 0 : places_[std::size_t(Position())].section;
    const int wanted = sections_ == 0 ? 0 : (section + (next ? 1 : sections_ - 1)) % sections_;
    const auto at = std::find_if(places_.begin(), places_.end(),
                                 [wanted](const Place &place) { return place.section == wanted; });
    if (at != places_.end()) GoTo(int(at - places_.begin()));
    return true;
}

void ChoicePopup::keyPressEvent(QKeyEvent *event) {
    for (const KeyStep &step : kSteps)
        if (event->key() == step.key) return Step(step.rows, step.columns);
    auto *button = qobject_cast<QToolButton *>(focusWidget());
    switch (event->key()) {
    case Qt::Key_Home:
        return GoTo(0);
    case Qt::Key_End:
        return GoTo(int(buttons_.size()) - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (button) button->click();
        return;
    case Qt::Key_Escape:
        close();
        return;
    default:
        break;
    }
    const QString letter = event->text();
    if (letter.size() == 1 && letter.at(0).isLetterOrNumber()) return GoToLetter(letter);
    QFrame::keyPressEvent(event);
}

void ChoicePopup::hideEvent(QHideEvent *event) {
    QFrame::hideEvent(event);
    Q_EMIT Closed();
}

} // namespace widgets
