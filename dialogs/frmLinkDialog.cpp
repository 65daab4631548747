#include "dialogs/frmLinkDialog.h"

#include "diagram/model/Surface.h"
#include "dialogs/LinkSample.h"
#include "dialogs/PlainTextBox.h"
#include "dialogs/PropertyRows.h"
#include "document/MapWindow.h"
#include "settings/Settings.h"
#include "support/Error.h"
#include "widgets/SwatchButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace dialogs {

using diagram::LinkData;

struct frmLinkDialog::ListRow {
    const char *name, *label;
    ListOf what;
    bool right; // in the right column
    double (*stored)(const LinkData &values);
    void (*store)(LinkData &values, double value);
};

namespace {

constexpr int kTextLines = 3;

template <auto Member>
constexpr frmLinkDialog::ListRow Row(const char *name, const char *label, ListOf what, bool right) {
    using Field = std::remove_reference_t<decltype(LinkData().*Member)>;
    return {name,
            label,
            what,
            right,
            [](const LinkData &values) { return double(values.*Member); },
            [](LinkData &values, double value) { values.*Member = Field(value); }};
}

} // namespace

const std::array<frmLinkDialog::ListRow, frmLinkDialog::kLists> &frmLinkDialog::Rows() {
    using enum ListOf;
    static constexpr std::array<ListRow, kLists> kRows{{
        Row<&LinkData::arrowSource>("cboArrowOrigin", "Arrow Origin", Arrows, false),
        Row<&LinkData::arrowSizeSource>("cboArrowOriginSize", "Arrow Size Origin", ArrowSizes, true),
        Row<&LinkData::arrowMiddle>("cboArrowMiddle", "Arrow Middle", Arrows, false),
        Row<&LinkData::arrowSizeMiddle>("cboArrowMiddleSize", "Arrow Size Middle", ArrowSizes, true),
        Row<&LinkData::arrowDest>("cboArrowDest", "Arrow Destination", Arrows, false),
        Row<&LinkData::arrowSizeDest>("cboArrowSizeDest", "Arrow Size Destination", ArrowSizes, true),
        Row<&LinkData::style>("cboLinkStyle", "LinkStyle", Routings, false),
        Row<&LinkData::jumpStyle>("cboJumpStyle", "Jump Style", JumpStyles, true),
        Row<&LinkData::drawStyle>("cboDrawStyle", "Draw Style", DrawStyles, false),
        Row<&LinkData::drawWidth>("cboDrawWidth", "Draw Width", DrawWidths, true),
    }};
    return kRows;
}

frmLinkDialog::frmLinkDialog(LinkDialogArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument), font_(argument.oLink.Font()) {
    setObjectName(QLatin1String(LinkDialogArgument::kForm));
    setWindowTitle(settings::ReplaceTerms(QStringLiteral("@LINK Properties")));
    BuildControls();
    ShowLink();
    UpdateSample();
}

void frmLinkDialog::BuildControls() {
    auto *column = new QVBoxLayout(this);
    sample_ = new LinkSample(argument_.oFlow, this);
    column->addWidget(sample_, 1);
    auto *pair = new QHBoxLayout;
    column->addLayout(pair);
    std::array<QWidget *, 2> sides{new QWidget(this), new QWidget(this)};
    std::array<QGridLayout *, 2> grids{};
    for (std::size_t side = 0; side < sides.size(); ++side) {
        grids[side] = new QGridLayout(sides[side]);
        grids[side]->setContentsMargins(0, 0, 0, 0);
        grids[side]->setColumnStretch(1, 1);
        pair->addWidget(sides[side], 1);
    }
    pair->setSpacing(2 * pair->spacing());
    BuildLists(*grids[0], *grids[1]);
    BuildText(*column);
    BuildButtons(*column);
    lists_[0]->setFocus();
}

void frmLinkDialog::BuildLists(QGridLayout &left, QGridLayout &right) {
    for (std::size_t row = 0; row < lists_.size(); ++row) {
        const ListRow &def = Rows()[row];
        lists_[row] = AddList(def.right ? right : left, def.name, QLatin1String(def.label), def.what);
        connect(lists_[row], &QComboBox::currentIndexChanged, this, &frmLinkDialog::UpdateSample);
    }
    support::Desktop &desktop = argument_.window.Desktop();
    picFillColor_ = AddSwatch(left, desktop, "cmdChangeFill", "picFillColor", QStringLiteral("&Fill Color"));
    picForeColor_ = AddSwatch(right, desktop, "cmdChangeFore", "picForeColor", QStringLiteral("Fore Color"));
    for (SwatchButton *swatch : {picFillColor_, picForeColor_})
        connect(swatch, &SwatchButton::Changed, this, &frmLinkDialog::UpdateSample);
    OrderTabs();
}

// From left to right, row by row.
void frmLinkDialog::OrderTabs() {
    for (std::size_t row = 1; row < lists_.size(); ++row) setTabOrder(lists_[row - 1], lists_[row]);
    setTabOrder(lists_.back(), picFillColor_);
    setTabOrder(picFillColor_, picForeColor_);
}

void frmLinkDialog::BuildText(QVBoxLayout &column) {
    auto *label = new QLabel(QStringLiteral("Text"), this);
    txtText_ = new PlainTextBox(QStringLiteral("txtText"), this);
    txtText_->setAccessibleName(label->text());
    txtText_->setFixedHeight(fontMetrics().lineSpacing() * (kTextLines + 1));
    label->setBuddy(txtText_);
    column.addWidget(label);
    column.addWidget(txtText_);
    connect(txtText_, &QPlainTextEdit::textChanged, this, &frmLinkDialog::UpdateSample);

    auto *line = new QHBoxLayout;
    chkOriented_ = new QCheckBox(QStringLiteral("Oriented Text"), this);
    chkOriented_->setObjectName(QStringLiteral("chkOriented"));
    connect(chkOriented_, &QCheckBox::toggled, this, &frmLinkDialog::UpdateSample);
    auto *font = new QPushButton(QStringLiteral("Font"), this);
    font->setObjectName(QStringLiteral("cmdFont"));
    font->setAutoDefault(false);
    connect(font, &QPushButton::clicked, this, &frmLinkDialog::cmdFont_Click);
    line->addWidget(chkOriented_);
    line->addStretch();
    line->addWidget(font);
    column.addLayout(line);
}

void frmLinkDialog::BuildButtons(QVBoxLayout &column) {
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("OKButton"));
    QPushButton *cancel = buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("CancelButton"));
    QPushButton *apply = buttons->addButton(QStringLiteral("Apply"), QDialogButtonBox::ApplyRole);
    apply->setObjectName(QStringLiteral("cmdApply"));
    apply->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmLinkDialog::OKButton_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(apply, &QPushButton::clicked, this, &frmLinkDialog::cmdApply_Click);
    column.addWidget(buttons);
}

void frmLinkDialog::ShowLink() {
    const LinkData &link = argument_.oLink.Data();
    for (std::size_t row = 0; row < lists_.size(); ++row) ShowValue(*lists_[row], Rows()[row].stored(link));
    picFillColor_->SetValue(link.lineColor);
    picForeColor_->SetValue(link.foreColor);
    txtText_->SetText(link.text);
    chkOriented_->setChecked(link.oriented);
    ShowFont();
}

void frmLinkDialog::ShowFont() {
    QFont font(font_.Name());
    font.setPointSizeF(qMax(1.0, double(font_.Size())));
    font.setBold(font_.Bold());
    font.setItalic(font_.Italic());
    font.setUnderline(font_.Underline());
    font.setStrikeOut(font_.Strike());
    txtText_->setFont(font);
}

LinkData frmLinkDialog::Values() const {
    LinkData values = argument_.oLink.Data();
    for (std::size_t row = 0; row < lists_.size(); ++row) Rows()[row].store(values, ValueOf(*lists_[row]));
    values.lineColor = picFillColor_->Value();
    values.foreColor = picForeColor_->Value();
    values.text = txtText_->Text();
    values.font = font_;
    values.oriented = chkOriented_->isChecked();
    return values;
}

void frmLinkDialog::UpdateSample() { sample_->Show(Values()); }

void frmLinkDialog::cmdFont_Click() {
    support::Report("frmLinkDialog", "cmdFont_Click", [this] {
        support::FontChoice choice{font_.Name(),   font_.Size(),      font_.Bold(),
                                   font_.Italic(), font_.Underline(), font_.Strike()};
        support::Colour colour = picForeColor_->Value();
        argument_.window.Desktop().dialogs.ShowFontDialog(this, 0, choice, colour);
        font_ = diagram::Font(choice.name, choice.size, choice.bold, choice.italic, choice.underline,
                              choice.strike);
        picForeColor_->SetValue(colour);
        ShowFont();
        UpdateSample();
    });
}

void frmLinkDialog::cmdApply_Click() {
    support::Report("frmLinkDialog", "cmdApply_Click", [this] { Apply(); });
}

void frmLinkDialog::OKButton_Click() {
    support::Report("frmLinkDialog", "OKButton_Click", [this] {
        Apply();
        accept();
    });
}

// What the links were is remembered before the first apply only.
void frmLinkDialog::Apply() {
    if (argument_.former.IsEmpty()) {
        std::vector<diagram::Link *> links = argument_.oLinks;
        links.push_back(&argument_.oLink);
        argument_.former = RememberLinks(links);
    }
    ApplyToLinks(argument_.window, argument_.oLink, argument_.oLinks, Values());
    txtText_->Keep();
}

} // namespace dialogs
