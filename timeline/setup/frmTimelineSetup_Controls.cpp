// How the form is put together.
#include "document/MapWindow.h"
#include "timeline/DateText.h"
#include "timeline/setup/frmTimelineSetup.h"
#include "timeline/setup/SampleView.h"
#include "widgets/PropertyLists.h"
#include "widgets/SwatchButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace timeline {

using widgets::ListOf;

namespace {
constexpr const char *kArrangements[] = {"Left", "Right", "Top", "Bottom", "Center"}; // stored 0 to 4
} // namespace

void frmTimelineSetup::BuildControls() {
    auto *columns = new QGridLayout(this);
    frame_ = new QGroupBox(this);
    columns->addWidget(frame_, 0, 0);
    auto *grid = new QGridLayout(frame_);
    grid->setColumnStretch(1, 1);
    BuildLook(*grid);
    BuildTimelineControls(*grid);

    TimelineSample_ = new SampleView(this);
    columns->addWidget(TimelineSample_, 0, 1);
    columns->setColumnStretch(1, 1);
    columns->setRowStretch(0, 1);
    BuildButtons(*columns);
}

// From top to bottom, the order in which Tab goes.
void frmTimelineSetup::BuildLook(QGridLayout &grid) {
    cboAutoSize_ = AddList(grid, "cboAutoSize", QStringLiteral("Auto &Size"), ListOf::AutoSizes);
    cboDrawStyle_ = AddList(grid, "cboDrawStyle", QStringLiteral("D&raw Style"), ListOf::DrawStyles);
    cboDrawWidth_ = AddList(grid, "cboDrawWidth", QStringLiteral("&Draw Width"), ListOf::DrawWidths);
    cboShadow_ = AddList(grid, "cboShadow", QStringLiteral("S&hadow"), ListOf::Shadows);
    cboShape_ = AddList(grid, "cboShape", QStringLiteral("Shap&e"), ListOf::Shapes);
    cboShapeOrient_ =
        AddList(grid, "cboShapeOrient", QStringLiteral("Shape Orie&ntation"), ListOf::Orientations);
    cboTextAlign_ = AddList(grid, "cboTextAlign", QStringLiteral("A&lignment"), ListOf::Alignments);
    cboXMargin_ = AddList(grid, "cboXMargin", QStringLiteral("&x Margin"), ListOf::Margins);
    cboYMargin_ = AddList(grid, "cboYMargin", QStringLiteral("&y Margin"), ListOf::Margins);
    picForeColor_ = AddSwatch(grid, "cmdChangeFore", "picForeColor", QStringLiteral("Fore Color"));
    picFillColor_ = AddSwatch(grid, "cmdChangeFill", "picFillColor", QStringLiteral("&Fill Color"));
    picBorderColor_ = AddSwatch(grid, "cmdChangeBorder", "picBorderColor", QStringLiteral("Border Color"));
    auto *font = new QPushButton(QStringLiteral("Font"), this);
    font->setObjectName(QStringLiteral("cmdFont"));
    font->setAutoDefault(false);
    connect(font, &QPushButton::clicked, this, &frmTimelineSetup::cmdFont_Click);
    grid.addWidget(font, grid.rowCount(), 1, Qt::AlignLeft);
}

void frmTimelineSetup::BuildTimelineControls(QGridLayout &grid) {
    cboDateFormat_ = AddList(grid, "cboDateFormat", tr("Date format"));
    lblDateFormat_ = findChild<QLabel *>(QStringLiteral("lbl_cboDateFormat"));
    for (const char *pattern : kDisplayPatterns) cboDateFormat_->addItem(QString::fromLatin1(pattern));
    disconnect(cboDateFormat_, nullptr, this, nullptr);
    connect(cboDateFormat_, &QComboBox::activated, this, &frmTimelineSetup::ShowSampleDate);
    cboArrangement_ = AddList(grid, "cboArrangement", QStringLiteral("Timeline Arrangement"));
    for (const char *arrangement : kArrangements)
        cboArrangement_->addItem(QString::fromLatin1(arrangement), cboArrangement_->count());
    lblTimelineArrangement_ = findChild<QLabel *>(QStringLiteral("lbl_cboArrangement"));
    chkMissingDates_ = new QCheckBox(QStringLiteral("Add Missing Dates"), this);
    chkMissingDates_->setObjectName(QStringLiteral("chkMissingDates"));
    grid.addWidget(chkMissingDates_, grid.rowCount(), 1);
}

void frmTimelineSetup::BuildButtons(QGridLayout &grid) {
    auto *buttons = new QDialogButtonBox(this);
    QPushButton *ok = buttons->addButton(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("OKButton"));
    QPushButton *cancel = buttons->addButton(QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    QPushButton *store = buttons->addButton(QStringLiteral("&Default"), QDialogButtonBox::ActionRole);
    store->setObjectName(QStringLiteral("cmdDefault"));
    store->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmTimelineSetup::OKButton_Click);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(store, &QPushButton::clicked, this, &frmTimelineSetup::cmdDefault_Click);
    grid.addWidget(buttons, 1, 0, 1, 2);
}

QComboBox *frmTimelineSetup::AddList(QGridLayout &grid, const char *name, const QString &label,
                                     std::optional<ListOf> what) {
    auto *list = new QComboBox(this);
    list->setObjectName(QLatin1String(name));
    if (what) widgets::FillList(*list, *what);
    auto *text = new QLabel(label, this);
    text->setObjectName(QStringLiteral("lbl_") + QLatin1String(name));
    text->setBuddy(list);
    const int row = grid.rowCount();
    grid.addWidget(text, row, 0);
    grid.addWidget(list, row, 1);
    connect(list, &QComboBox::activated, this, &frmTimelineSetup::ApplyToSample);
    return list;
}

widgets::SwatchButton *frmTimelineSetup::AddSwatch(QGridLayout &grid, const char *name, const char *field,
                                                   const QString &label) {
    QString spoken = label;
    auto *swatch = new widgets::SwatchButton(argument_.window.Desktop(), QLatin1String(name),
                                             QLatin1String(field), spoken.remove(u'&'), this);
    auto *text = new QLabel(label, this);
    text->setBuddy(swatch);
    const int row = grid.rowCount();
    grid.addWidget(text, row, 0);
    grid.addWidget(swatch, row, 1, Qt::AlignLeft);
    connect(swatch, &widgets::SwatchButton::Changed, this, &frmTimelineSetup::ApplyToSample);
    return swatch;
}

void frmTimelineSetup::RunAsTemplate() {
    argument_.asTemplate = true;
    setWindowTitle(QStringLiteral("Default Node Setup"));
    frame_->setTitle(QStringLiteral("Default Node Settings"));
    for (QWidget *dated : std::initializer_list<QWidget *>{chkMissingDates_, cboDateFormat_, lblDateFormat_,
                                                           cboArrangement_, lblTimelineArrangement_})
        dated->hide();
}

void frmTimelineSetup::RunAsTimeline() {
    argument_.asTemplate = false;
    setWindowTitle(QStringLiteral("Timeline Setup"));
    frame_->setTitle(QStringLiteral("Timeline Node Settings:"));
}

} // namespace timeline
