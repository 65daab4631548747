#include "dialogs/NodeTextPage.h"

#include "dialogs/PlainTextBox.h"
#include "dialogs/PropertyRows.h"
#include "support/Desktop.h"
#include "support/Error.h"
#include "widgets/SwatchButton.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

namespace dialogs {

namespace {

using diagram::Font;

const QString kText = QStringLiteral("TEXT");
const QString kOther = QStringLiteral("OTHER");

// A button of the toolbar: its key, what it says, and what it does to a font.
struct StyleRow {
    const char *key, *letter, *name;
    bool (Font::*is)() const;
    void (Font::*set)(bool on);
    void (QFont::*paint)(bool on);
};
constexpr StyleRow kStyles[] = {
    {"BOLD", "B", QT_TRANSLATE_NOOP("dialogs::NodeTextPage", "Bold"), &Font::Bold, &Font::SetBold,
     &QFont::setBold},
    {"ITALIC", "I", QT_TRANSLATE_NOOP("dialogs::NodeTextPage", "Italic"), &Font::Italic, &Font::SetItalic,
     &QFont::setItalic},
    {"ULINE", "U", QT_TRANSLATE_NOOP("dialogs::NodeTextPage", "Underlined"), &Font::Underline,
     &Font::SetUnderline, &QFont::setUnderline},
};

QFont ToQFont(const Font &font) {
    QFont shown(font.Name());
    shown.setPointSizeF(font.Size());
    shown.setStrikeOut(font.Strike());
    for (const StyleRow &row : kStyles) (shown.*row.paint)((font.*row.is)());
    return shown;
}

} // namespace

NodeTextPage::NodeTextPage(support::Desktop &desktop, SwatchButton &picForeColor, QWidget *parent)
    : QWidget(parent), desktop_(desktop), picForeColor_(picForeColor) {
    auto *grid = new QGridLayout(this);
    BuildTexts(*grid);
    BuildToolbar(*grid);
    cboTextAlign_ = AddList(*grid, "cboTextAlign", QStringLiteral("A&lignment"), ListOf::Alignments);
    cboXMargin_ = AddList(*grid, "cboXMargin", QStringLiteral("&x Margin"), ListOf::Margins);
    cboYMargin_ = AddList(*grid, "cboYMargin", QStringLiteral("&y Margin"), ListOf::Margins);
    grid->setColumnStretch(1, 1);
    for (QComboBox *list : {cboTextAlign_, cboXMargin_, cboYMargin_})
        connect(list, &QComboBox::currentIndexChanged, this, &NodeTextPage::Changed);
}

void NodeTextPage::BuildTexts(QGridLayout &grid) {
    tabText_ = new QTabBar(this);
    tabText_->setObjectName(QStringLiteral("tabText"));
    tabText_->setAccessibleName(tr("Which text"));
    tabText_->setExpanding(false);
    tabText_->setDrawBase(false);
    tabText_->setTabData(tabText_->addTab(QStringLiteral("Text")), kText);
    tabText_->setTabData(tabText_->addTab(QStringLiteral("Other")), kOther);
    front_ = new QStackedWidget(this);
    txtText_ = new PlainTextBox(QStringLiteral("txtText"), front_);
    txtText_->setAccessibleName(QStringLiteral("Text"));
    txtOther_ = new PlainTextBox(QStringLiteral("txtOther"), front_);
    txtOther_->setAccessibleName(QStringLiteral("Other"));
    front_->addWidget(txtText_);
    front_->addWidget(txtOther_);
    grid.addWidget(tabText_, 0, 0, 1, 2);
    grid.addWidget(front_, 1, 0, 1, 2);
    grid.setRowStretch(1, 1);
    connect(tabText_, &QTabBar::currentChanged, this, &NodeTextPage::tabText_Click);
    connect(txtText_, &QPlainTextEdit::textChanged, this, &NodeTextPage::Changed);
}

void NodeTextPage::BuildToolbar(QGridLayout &grid) {
    auto *tlbMain = new QToolBar(this);
    tlbMain->setObjectName(QStringLiteral("tlbMain"));
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const StyleRow &row = kStyles[i];
        QAction *button = buttons_[i] = tlbMain->addAction(QLatin1String(row.letter));
        button->setData(QLatin1String(row.key));
        button->setCheckable(true);
        button->setToolTip(tr(row.name));
        QFont letter = font();
        (letter.*row.paint)(true);
        button->setFont(letter);
        QWidget *shown = tlbMain->widgetForAction(button);
        shown->setFont(letter);
        shown->setAccessibleName(tr(row.name));
        shown->setFocusPolicy(Qt::TabFocus);
        connect(button, &QAction::triggered, this,
                [this, button](bool down) { tlbMain_ButtonClick(button->data().toString(), down); });
    }
    auto *cmdFont = new QPushButton(QStringLiteral("Font"), this);
    cmdFont->setObjectName(QStringLiteral("cmdFont"));
    cmdFont->setAutoDefault(false);
    connect(cmdFont, &QPushButton::clicked, this, &NodeTextPage::cmdFont_Click);
    auto *row = new QHBoxLayout;
    row->addWidget(tlbMain);
    row->addWidget(cmdFont);
    row->addStretch();
    grid.addLayout(row, 2, 0, 1, 2);
}

void NodeTextPage::Load(const NodeEdit &edit, const QString &text, const QString &event) {
    ShowValue(*cboTextAlign_, edit.look.alignment);
    ShowValue(*cboXMargin_, edit.xTextMargin);
    ShowValue(*cboYMargin_, edit.yTextMargin);
    txtText_->SetText(text);
    txtOther_->SetText(event);
    font_ = edit.look.font;
    ShowFont();
}

void NodeTextPage::Store(NodeEdit &edit) const {
    edit.look.alignment = std::uint8_t(ValueOf(*cboTextAlign_));
    edit.xTextMargin = int(ValueOf(*cboXMargin_));
    edit.yTextMargin = int(ValueOf(*cboYMargin_));
    edit.Text = txtText_->Edited();
    edit.Event = txtOther_->Edited();
    edit.look.font = font_;
}

QString NodeTextPage::Text() const { return txtText_->Text(); }

void NodeTextPage::Keep() {
    txtText_->Keep();
    txtOther_->Keep();
}

void NodeTextPage::tabText_Click(int tab) {
    front_->setCurrentWidget(tabText_->tabData(tab) == kOther ? txtOther_ : txtText_);
}

// Works on the text even while the other one is in front.
void NodeTextPage::tlbMain_ButtonClick(const QString &key, bool down) {
    for (const StyleRow &row : kStyles)
        if (key.toUpper() == QLatin1String(row.key)) (font_.*row.set)(down);
    ShowFont();
    Q_EMIT Changed();
}

void NodeTextPage::ShowFont() { txtText_->setFont(ToQFont(font_)); }

// Only from here on do the buttons show the font's style; until then the first click on one turns it on.
void NodeTextPage::cmdFont_Click() {
    support::Report("frmNodeDialog", "cmdFont_Click", [this] {
        support::FontChoice choice{font_.Name(),   font_.Size(),      font_.Bold(),
                                   font_.Italic(), font_.Underline(), font_.Strike()};
        support::Colour colour = picForeColor_.Value();
        desktop_.dialogs.ShowFontDialog(window(), 0, choice, colour);
        font_ = Font(choice.name, choice.size, choice.bold, choice.italic, choice.underline, choice.strike);
        ShowFont();
        for (std::size_t i = 0; i < buttons_.size(); ++i) buttons_[i]->setChecked((font_.*kStyles[i].is)());
        picForeColor_.SetValue(colour);
        Q_EMIT Changed();
    });
}

} // namespace dialogs
