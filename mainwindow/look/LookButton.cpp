#include "mainwindow/look/LookButton.h"

#include "mainwindow/look/LookPictures.h"
#include "settings/Settings.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QStyleOptionToolButton>

namespace mainwindow {

namespace {

constexpr std::size_t kPictures = 50; // that are kept

// Why the button can't be used now.
QString Missing(const LookRow &row) {
    if (!row.ofLink) return LookButton::tr("select a @NODE first");
    return row.ofNode ? LookButton::tr("select a @NODE or a @LINK first")
                      : LookButton::tr("select a @LINK first");
}

QString Spoken(const LookRow &row, const LookState &state) {
    if (!state.fits) return Missing(row);
    return state.value ? NameOfLook(row, *state.value) : LookButton::tr("differs");
}

} // namespace

LookButton::LookButton(const LookRow &row, QWidget *parent) : QToolButton(parent), row_(row) {
    setObjectName(QLatin1String(row.key));
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setIconSize(ButtonPictureSize(row.what));
    connect(this, &QToolButton::clicked, this, &LookButton::Asked);
    Show({});
}

void LookButton::Show(const LookState &state) {
    if (state == state_) return;
    state_ = state;
    setEnabled(state.fits);
    if (pictures_.size() > kPictures) pictures_.clear();
    QIcon &picture = pictures_[{state.fits, state.value}];
    if (picture.isNull()) picture = ButtonPicture(row_, state);
    setIcon(picture);
    Describe();
}

void LookButton::Describe() {
    const QString caption = QCoreApplication::translate("mainwindow::Look", row_.caption);
    const QString text = settings::ReplaceTerms(tr("%1: %2").arg(caption, Spoken(row_, state_)));
    setToolTip(text);
    setAccessibleName(text);
}

// In a toolbar the pictures would all have the size of the bar's own.
void LookButton::initStyleOption(QStyleOptionToolButton *option) const {
    QToolButton::initStyleOption(option);
    option->iconSize = iconSize();
}

void LookButton::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Left:
        Q_EMIT StepAsked(-1);
        return;
    case Qt::Key_Right:
        Q_EMIT StepAsked(1);
        return;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        return;
    case Qt::Key_Escape:
        Q_EMIT Done();
        return;
    default:
        QToolButton::keyPressEvent(event);
    }
}

} // namespace mainwindow
