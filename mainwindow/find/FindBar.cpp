#include "mainwindow/find/FindBar.h"

#include "mainwindow/icons/Icons.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QToolButton>

namespace mainwindow {

namespace {
constexpr int kFieldCharacters = 24;
constexpr int kCountCharacters = 16;
} // namespace

FindBar::FindBar(QWidget *parent) : QWidget(parent) {
    setObjectName(QStringLiteral("FindBar"));
    setAutoFillBackground(true);
    hide();
}

void FindBar::Prepare() {
    if (txtFind_) return;
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(6, 4, 6, 4);
    auto *finding = new QHBoxLayout;
    rows->addLayout(finding);
    AddFinding(*finding);
    replacing_ = new QWidget(this);
    auto *replacing = new QHBoxLayout(replacing_);
    replacing->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(replacing_);
    AddReplacing(*replacing);
    AlignLabels();
    OrderTabs();
    connect(txtFind_, &QLineEdit::textChanged, this, &FindBar::Changed);
    connect(chkCase_, &QCheckBox::toggled, this, &FindBar::Changed);
    connect(chkWords_, &QCheckBox::toggled, this, &FindBar::Changed);
}

void FindBar::AddFinding(QBoxLayout &row) {
    txtFind_ = AddField("txtFind", tr("F&ind"), &row);
    lblCount_ = new QLabel(this);
    lblCount_->setObjectName(QStringLiteral("lblCount"));
    lblCount_->setMinimumWidth(fontMetrics().averageCharWidth() * kCountCharacters);
    row.addWidget(lblCount_);
    connect(AddButton("cmdPrevious", {}, QStringLiteral("up"), tr("Previous (Shift+F3)"), &row),
            &QToolButton::clicked, this, &FindBar::Previous);
    connect(AddButton("cmdNext", {}, QStringLiteral("down"), tr("Next (F3)"), &row), &QToolButton::clicked,
            this, &FindBar::Next);
    chkCase_ = AddOption("chkCase", tr("&Match case"), &row);
    chkWords_ = AddOption("chkWords", tr("&Whole words"), &row);
    row.addStretch(1);
    connect(AddButton("cmdClose", {}, QStringLiteral("close"), tr("Close (Escape)"), &row),
            &QToolButton::clicked, this, &FindBar::Closed);
}

void FindBar::AddReplacing(QBoxLayout &row) {
    txtReplace_ = AddField("txtReplace", tr("Re&place with"), &row);
    connect(AddButton("cmdReplace", tr("&Replace"), {}, {}, &row), &QToolButton::clicked, this,
            &FindBar::Replace);
    connect(AddButton("cmdReplaceAll", tr("Replace &all"), {}, {}, &row), &QToolButton::clicked, this,
            &FindBar::ReplaceAll);
    row.addStretch(1);
}

// So that the two fields stand below each other.
void FindBar::AlignLabels() {
    const QList<QLabel *> labels = findChildren<QLabel *>();
    int widest = 0;
    for (const QLabel *label : labels)
        if (label->buddy()) widest = qMax(widest, label->sizeHint().width());
    for (QLabel *label : labels)
        if (label->buddy()) label->setMinimumWidth(widest);
}

// From what is sought to what takes its place.
void FindBar::OrderTabs() {
    QWidget *last = this;
    for (const char *name : {"txtFind", "txtReplace", "cmdReplace", "cmdReplaceAll", "cmdPrevious", "cmdNext",
                             "chkCase", "chkWords", "cmdClose"}) {
        auto *next = findChild<QWidget *>(QLatin1String(name));
        setTabOrder(last, next);
        last = next;
    }
}

QLineEdit *FindBar::AddField(const char *name, const QString &label, QLayout *row) {
    auto *field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    field->setMinimumWidth(fontMetrics().averageCharWidth() * kFieldCharacters);
    field->setClearButtonEnabled(true);
    auto *text = new QLabel(label, this);
    text->setBuddy(field);
    row->addWidget(text);
    row->addWidget(field);
    return field;
}

QToolButton *FindBar::AddButton(const char *name, const QString &text, const QString &image,
                                const QString &tip, QLayout *row) {
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setIcon(Icon(image));
    button->setToolTip(tip);
    if (text.isEmpty()) button->setAccessibleName(tip);
    button->setAutoRaise(text.isEmpty());
    button->setFocusPolicy(Qt::StrongFocus);
    row->addWidget(button);
    return button;
}

QCheckBox *FindBar::AddOption(const char *name, const QString &text, QLayout *row) {
    auto *option = new QCheckBox(text, this);
    option->setObjectName(QLatin1String(name));
    row->addWidget(option);
    return option;
}

void FindBar::Open(bool replacing) {
    Prepare();
    replacing_->setVisible(replacing);
    show();
    txtFind_->setFocus(Qt::ShortcutFocusReason);
    txtFind_->selectAll();
}

QString FindBar::Sought() const { return txtFind_->text(); }
QString FindBar::Replacement() const { return txtReplace_->text(); }
document::FindOptions FindBar::Options() const { return {chkCase_->isChecked(), chkWords_->isChecked()}; }

void FindBar::SetCount(int at, int count) {
    if (Sought().isEmpty())
        lblCount_->clear();
    else if (count == 0)
        lblCount_->setText(tr("Nothing found"));
    else
        lblCount_->setText(tr("%1 of %2").arg(QLocale().toString(at), QLocale().toString(count)));
}

void FindBar::keyPressEvent(QKeyEvent *event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        Q_EMIT Closed();
    else if (enter && txtReplace_->hasFocus())
        Q_EMIT Replace();
    else if (enter && txtFind_->hasFocus())
        event->modifiers() & Qt::ShiftModifier ? Q_EMIT Previous() : Q_EMIT Next();
    else
        QWidget::keyPressEvent(event);
}

} // namespace mainwindow
