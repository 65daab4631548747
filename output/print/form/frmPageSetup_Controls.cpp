#include "output/print/Fields.h"
#include "output/print/form/frmPageSetup.h"
#include "settings/Settings.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace print {

namespace {

constexpr int kRowsOfSlices = 4; // that are seen at least

QString Words(const QString &text) { return settings::ReplaceTerms(text); }

template <typename Control>
Control *Named(Control *control, const char *name) {
    control->setObjectName(QLatin1String(name));
    return control;
}

} // namespace

frmPageSetup::frmPageSetup(PageSetupArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument) {
    setObjectName(QLatin1String(PageSetupArgument::kForm));
    setWindowTitle(QStringLiteral("Page Setup"));
    auto *whole = new QVBoxLayout(this);
    auto *texts = new QGridLayout;
    BuildTexts(*texts);
    whole->addLayout(texts);
    auto *columns = new QGridLayout;
    columns->addWidget(BuildPage(), 0, 0);
    columns->addWidget(BuildSlices(), 0, 1);
    columns->addWidget(BuildMargins(), 1, 0);
    columns->addWidget(BuildWhatIsPrinted(), 1, 1);
    columns->setColumnStretch(0, 1);
    columns->setColumnStretch(1, 1);
    whole->addLayout(columns, 1);
    BuildClosing(*whole);
    Form_Load();
    for (QDoubleSpinBox *margin : txtMargin_)
        connect(margin, &QDoubleSpinBox::valueChanged, this, &frmPageSetup::UpdateTooNear);
    for (QRadioButton *turn : optOri_)
        connect(turn, &QRadioButton::clicked, this, &frmPageSetup::UpdateTooNear);
    connect(cboPaper_, &QComboBox::activated, this, &frmPageSetup::UpdateTooNear);
    txtHeader_->setFocus();
}

void frmPageSetup::BuildTexts(QGridLayout &grid) {
    const auto add = [&](int row, const QString &caption, const char *name) {
        auto *label = new QLabel(caption, this);
        auto *text = Named(new QLineEdit(this), name);
        label->setBuddy(text);
        grid.addWidget(label, row, 0);
        grid.addWidget(text, row, 1);
        text->setAccessibleName(QString(caption).remove(u':'));
        return text;
    };
    txtHeader_ = add(0, QStringLiteral("Header:"), "txtHeader");
    txtFooter_ = add(1, QStringLiteral("Footer:"), "txtFooter");
    auto *fields =
        Named(new QLabel(tr("These stand for their values: %1").arg(FieldList()), this), "lblFields");
    fields->setTextFormat(Qt::PlainText);
    fields->setWordWrap(true);
    grid.addWidget(fields, 2, 1);
    grid.setColumnStretch(1, 1);
}

QWidget *frmPageSetup::BuildPage() {
    auto *page = new QGroupBox(tr("Page"), this);
    auto *lines = new QVBoxLayout(page);
    auto *paper = new QHBoxLayout;
    auto *label = new QLabel(tr("Pa&per:"), page);
    cboPaper_ = Named(new QComboBox(page), "cboPaper");
    for (const QString &key : PaperKeys()) cboPaper_->addItem(PaperName(key), key);
    label->setBuddy(cboPaper_);
    paper->addWidget(label);
    paper->addWidget(cboPaper_, 1);
    lines->addLayout(paper);
    fraOrientation_ = Named(new QGroupBox(QStringLiteral("Orientation:"), page), "fraOrientation");
    auto *turns = new QHBoxLayout(fraOrientation_);
    optOri_[0] = Named(new QRadioButton(QStringLiteral("Portrait"), fraOrientation_), "optOri(0)");
    optOri_[1] = Named(new QRadioButton(QStringLiteral("Landscape"), fraOrientation_), "optOri(1)");
    for (QRadioButton *turn : optOri_) turns->addWidget(turn);
    turns->addStretch();
    lines->addWidget(fraOrientation_);
    chkFit_ = Named(new QCheckBox(QStringLiteral("Fit to One Page"), page), "chkFit");
    connect(chkFit_, &QCheckBox::toggled, this, &frmPageSetup::UpdateControls);
    lines->addWidget(chkFit_);
    lines->addStretch();
    return page;
}

QWidget *frmPageSetup::BuildMargins() {
    auto *frame = new QGroupBox(tr("Margins"), this);
    auto *grid = new QGridLayout(frame);
    struct Side {
        QString caption;
        const char *name;
        int row, column;
    };
    const Side sides[] = {{tr("&Left:"), "txtLeft", 0, 0},
                          {tr("&Top:"), "txtTop", 0, 2},
                          {tr("&Right:"), "txtRight", 1, 0},
                          {tr("&Bottom:"), "txtBottom", 1, 2}};
    for (std::size_t i = 0; i < std::size(sides); ++i) {
        auto *label = new QLabel(sides[i].caption, frame);
        auto *box = Named(new QDoubleSpinBox(frame), sides[i].name);
        box->setRange(0, kWidestMargin);
        box->setDecimals(1);
        box->setSuffix(tr(" mm"));
        box->setAccessibleName(QString(sides[i].caption).remove(u'&').remove(u':'));
        label->setBuddy(box);
        grid->addWidget(label, sides[i].row, sides[i].column);
        grid->addWidget(box, sides[i].row, sides[i].column + 1);
        txtMargin_[i] = box;
    }
    lblTooNear_ = Named(new QLabel(frame), "lblTooNear");
    lblTooNear_->setTextFormat(Qt::PlainText);
    lblTooNear_->setWordWrap(true);
    lblTooNear_->setMinimumHeight(2 * fontMetrics().lineSpacing());
    lblTooNear_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    grid->addWidget(lblTooNear_, 2, 0, 1, 4);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(3, 1);
    return frame;
}

QWidget *frmPageSetup::BuildSlices() {
    auto *frame = new QGroupBox(Words(tr("@SLICEs")), this);
    auto *lines = new QVBoxLayout(frame);
    const QString captions[] = {Words(tr("Thi&s @SLICE")), Words(tr("&All @SLICEs")), tr("T&hese:")};
    for (std::size_t i = 0; i < optSlices_.size(); ++i) {
        optSlices_[i] = new QRadioButton(captions[i], frame);
        optSlices_[i]->setObjectName(QStringLiteral("optSlices(%1)").arg(i));
        connect(optSlices_[i], &QRadioButton::toggled, this, &frmPageSetup::UpdateControls);
        lines->addWidget(optSlices_[i]);
    }
    lstSlices_ = Named(new QListWidget(frame), "lstSlices");
    lstSlices_->setAccessibleName(Words(tr("@SLICEs to print")));
    for (const QString &caption : argument_.slices) {
        auto *row = new QListWidgetItem(caption, lstSlices_);
        row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        row->setCheckState(Qt::Unchecked);
    }
    lstSlices_->setMinimumHeight(kRowsOfSlices * (fontMetrics().height() + 4));
    lines->addWidget(lstSlices_, 1);
    return frame;
}

QWidget *frmPageSetup::BuildWhatIsPrinted() {
    auto *frame = new QGroupBox(tr("What is printed"), this);
    auto *lines = new QVBoxLayout(frame);
    auto *pages = new QHBoxLayout;
    auto *label = new QLabel(tr("Pa&ges:"), frame);
    txtPages_ = Named(new QLineEdit(frame), "txtPages");
    txtPages_->setPlaceholderText(tr("All, or such as 2-5"));
    txtPages_->setAccessibleName(tr("Pages"));
    label->setBuddy(txtPages_);
    pages->addWidget(label);
    pages->addWidget(txtPages_, 1);
    lines->addLayout(pages);
    chkMarks_ = Named(new QCheckBox(tr("Overlap with &marks for gluing"), frame), "chkMarks");
    chkKeepWhole_ = Named(new QCheckBox(Words(tr("&Don't cut @NODEs between pages")), frame), "chkKeepWhole");
    chkKeepWhole_->setToolTip(tr("Pages end up to a tenth earlier where that helps."));
    chkGrid_ = Named(new QCheckBox(tr("Gr&id, where it is shown"), frame), "chkGrid");
    for (QCheckBox *box : {chkMarks_, chkKeepWhole_, chkGrid_}) lines->addWidget(box);
    lines->addStretch();
    return frame;
}

void frmPageSetup::BuildClosing(QVBoxLayout &whole) {
    auto *closing = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    Named(closing->button(QDialogButtonBox::Ok), "cmdOK");
    Named(closing->button(QDialogButtonBox::Cancel), "cmdCancel");
    connect(closing, &QDialogButtonBox::accepted, this, &frmPageSetup::cmdOK_Click);
    connect(closing, &QDialogButtonBox::rejected, this, &QDialog::reject);
    whole.addWidget(closing);
}

} // namespace print
