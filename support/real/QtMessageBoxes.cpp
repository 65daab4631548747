#include "support/real/QtMessageBoxes.h"

#include "support/real/InFront.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>

namespace support {

namespace {

struct ButtonRow {
    Buttons buttons;
    QMessageBox::StandardButtons shown;
};
constexpr ButtonRow kButtons[] = {
    {Buttons::Ok, QMessageBox::Ok},
    {Buttons::OkCancel, QMessageBox::Ok | QMessageBox::Cancel},
    {Buttons::YesNo, QMessageBox::Yes | QMessageBox::No},
    {Buttons::YesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel},
};

struct AnswerRow {
    Answer answer;
    QMessageBox::StandardButton button;
};
constexpr AnswerRow kAnswers[] = {
    {Answer::Ok, QMessageBox::Ok},
    {Answer::Cancel, QMessageBox::Cancel},
    {Answer::Yes, QMessageBox::Yes},
    {Answer::No, QMessageBox::No},
};

struct IconRow {
    Icon icon;
    QMessageBox::Icon shown;
};
constexpr IconRow kIcons[] = {
    {Icon::None, QMessageBox::NoIcon},
    {Icon::Stop, QMessageBox::Critical},
    {Icon::Question, QMessageBox::Question},
    {Icon::Exclamation, QMessageBox::Warning},
    {Icon::Information, QMessageBox::Information},
};

QMessageBox::StandardButton ButtonOf(Answer answer) {
    for (const AnswerRow &row : kAnswers)
        if (row.answer == answer) return row.button;
    return QMessageBox::NoButton;
}

QString TitleOrApplication(const QString &title) {
    return title.isEmpty() ? QCoreApplication::applicationName() : title;
}

// Title bars belong to the desktop: their font is often bold, and beside the title stand icon and buttons.
int WidthForTitle(const QString &title) {
    constexpr int kLinesBesideTitle = 8; // heights of a line
    QFont font = QFontDatabase::systemFont(QFontDatabase::TitleFont);
    font.setBold(true);
    const QFontMetrics metrics(font);
    return metrics.horizontalAdvance(title) + kLinesBesideTitle * metrics.height();
}

// The box sizes itself by its layout alone, so a row of the layout keeps the width. Last of all: setting an
// icon makes a new layout.
void WidenForTitle(QMessageBox &box) {
    auto *layout = qobject_cast<QGridLayout *>(box.layout());
    if (!layout) return;
    layout->addItem(new QSpacerItem(WidthForTitle(box.windowTitle()), 0), layout->rowCount(), 0, 1,
                    layout->columnCount());
}

QMessageBox::StandardButton ButtonForEnter(QMessageBox::StandardButtons buttons, EnterPresses enter) {
    if (enter == EnterPresses::No && buttons.testFlag(QMessageBox::No)) return QMessageBox::No;
    return buttons.testFlag(QMessageBox::Yes) ? QMessageBox::Yes : QMessageBox::Ok;
}

} // namespace

QString WithLineFeeds(const QString &text) {
    QString lines = text;
    return lines.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
}

QString FitForBox(const QString &text) {
    constexpr int kMost = 1200, kRun = 60; // characters
    constexpr QChar kMayBreak(0x200b);     // is not seen
    const QString shown =
        text.size() <= kMost ? text : text.left(kMost / 2) + QStringLiteral(" ... ") + text.right(kMost / 2);
    QString fit;
    int run = 0;
    for (const QChar c : shown) {
        run = c.isSpace() ? 0 : run + 1;
        if (run > kRun && !c.isLowSurrogate()) {
            fit += kMayBreak;
            run = 1;
        }
        fit += c;
    }
    return fit;
}

Answer QtMessageBoxes::Show(const QString &text, Buttons buttons, Icon icon, const QString &title,
                            EnterPresses enter) {
    QMessageBox box(WindowInFront());
    box.setTextFormat(Qt::PlainText);
    box.setText(FitForBox(WithLineFeeds(text)));
    box.setWindowTitle(TitleOrApplication(title));
    for (const ButtonRow &row : kButtons)
        if (row.buttons == buttons) box.setStandardButtons(row.shown);
    for (const IconRow &row : kIcons)
        if (row.icon == icon) box.setIcon(row.shown);
    const Answer closing = ClosingAnswer(buttons);
    box.setEscapeButton(ButtonOf(closing));
    box.setDefaultButton(ButtonForEnter(box.standardButtons(), enter));
    WidenForTitle(box);
    const int pressed = ExecInFront(box);
    for (const AnswerRow &row : kAnswers)
        if (row.button == pressed) return row.answer;
    return closing;
}

QString QtMessageBoxes::InputBox(const QString &prompt, const QString &title, const QString &preset) {
    QInputDialog dialog(WindowInFront());
    dialog.setWindowTitle(TitleOrApplication(title));
    dialog.setLabelText(WithLineFeeds(prompt));
    dialog.setTextValue(preset);
    return ExecInFront(dialog) == QDialog::Accepted ? dialog.textValue() : QString();
}

} // namespace support
