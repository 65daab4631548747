#include "timeline/setup/frmTimelineSetup.h"

#include "diagram/edit/History.h"
#include "document/clsfrmMain.h"
#include "document/DefaultNodes.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "support/Val.h"
#include "timeline/Arrange.h"
#include "timeline/DateText.h"
#include "timeline/setup/SampleView.h"
#include "timeline/setup/StoreDefaults.h"
#include "timeline/TimelineNodes.h"
#include "widgets/SwatchButton.h"

#include <optional>
#include <QCheckBox>
#include <QComboBox>

namespace timeline {

namespace {

using namespace document::tags;

constexpr float kSampleSide = 1200; // twips
const QString kTrue = QStringLiteral("True");
const QString kFalse = QStringLiteral("False");
const QString kSamplePattern = QStringLiteral("MMM YYYY");
constexpr int kDefaultArrangement = 4;
const QString kSampleSize = QStringLiteral("TimelineSample");

// A value that the list doesn't have selects nothing; what it stands for then stays as it is.
void Select(QComboBox &list, int value) { list.setCurrentIndex(list.findData(value)); }

QString Truth(bool value) { return value ? kTrue : kFalse; }

} // namespace

frmTimelineSetup::frmTimelineSetup(const TimelineSetupArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument) {
    setObjectName(QLatin1String(TimelineSetupArgument::kForm));
    BuildControls();
    if (argument_.asTemplate)
        RunAsTemplate();
    else
        RunAsTimeline();
    BuildSample();
    LoadUsual();
    if (argument_.TemplateNode) ShowTemplate(ShownTemplate());
    ShowFlow();
    if (argument_.choices) ShowChoices(*argument_.choices);
    ApplyToSample();
    ShowSampleDate();
}

diagram::Surface &frmTimelineSetup::TimelineSample() { return TimelineSample_->Model(); }

void frmTimelineSetup::BuildSample() {
    sample_ = &TimelineSample().Nodes().Add(0, 0, kSampleSide, kSampleSide);
    const QString today = FormatDate(argument_.window.Desktop().clock.Now().date(), kSamplePattern);
    sample_->SetText(today);
    document::SetTag(*sample_, kTheDate, today);
    TimelineSample_->SetNode(*sample_);
}

// A map without a timeline of its own is offered what all new maps start with.
void frmTimelineSetup::LoadUsual() {
    const diagram::Node *node = argument_.TemplateNode;
    if (argument_.asTemplate || !node || node->Width() != 0) return;
    usual_ = std::make_unique<diagram::Surface>();
    document::LoadDefaults(*usual_);
    if (!IsConfigured(*usual_)) usual_.reset();
}

const diagram::Node &frmTimelineSetup::ShownTemplate() const {
    return usual_ ? *LocateTimeLineTemplateNode(*usual_, false) : *argument_.TemplateNode;
}

// A pattern that the list doesn't have selects nothing and stays.
void frmTimelineSetup::ShowTemplate(const diagram::Node &node) {
    const QString missing = document::GetTag(node, kMissing);
    if (argument_.Flow && document::GetTag(*argument_.Flow, kMissing).isEmpty() && !missing.isEmpty())
        document::SetTag(*argument_.Flow, kMissing, missing);
    const QString pattern = document::GetTag(node, kDateFormat);
    cboDateFormat_->setCurrentIndex(pattern.isEmpty() ? 1 : cboDateFormat_->findText(pattern));
    for (const LookRow &row : LookRows()) Select(*row.list, row.stored(node));
    picForeColor_->SetValue(node.ForeColor());
    picFillColor_->SetValue(node.FillColor());
    picBorderColor_->SetValue(node.BorderColor());
    if (node.Width() > 0) sample_->SetWidth(node.Width());
    if (node.Height() > 0) sample_->SetHeight(node.Height());
}

void frmTimelineSetup::ShowFlow() {
    cboArrangement_->setCurrentIndex(kDefaultArrangement);
    if (!argument_.Flow) return;
    QString align = document::GetTag(*argument_.Flow, kTimelineAlign);
    if (align.isEmpty() && usual_) align = document::GetTag(ShownTemplate(), kTimelineAlign);
    if (!align.isEmpty()) Select(*cboArrangement_, int(support::Val(align)));
    chkMissingDates_->setChecked(
        document::GetTag(*argument_.Flow, kMissing).compare(kTrue, Qt::CaseInsensitive) == 0);
    const document::cLevels &levels = argument_.window.clsSettings().Levels();
    if (argument_.asTemplate && levels.count() > 0) picFillColor_->SetValue(levels.Item(1).Color);
}

// The pattern in force: the chosen one, else that of the node, which the list needn't have.
QString frmTimelineSetup::Pattern() const {
    if (cboDateFormat_->currentIndex() >= 0) return cboDateFormat_->currentText();
    return argument_.TemplateNode ? document::GetTag(ShownTemplate(), kDateFormat) : QString();
}

QVariantMap frmTimelineSetup::Choices() const {
    QVariantMap choices{{kSampleSize, sample_->Bounds().size()},
                        {chkMissingDates_->objectName(), chkMissingDates_->isChecked()}};
    for (const QComboBox *list : findChildren<QComboBox *>())
        choices[list->objectName()] = list->currentIndex();
    for (const widgets::SwatchButton *swatch : findChildren<widgets::SwatchButton *>())
        choices[swatch->objectName()] = swatch->Value();
    return choices;
}

void frmTimelineSetup::ShowChoices(const QVariantMap &choices) {
    if (choices.isEmpty()) return;
    for (QComboBox *list : findChildren<QComboBox *>())
        list->setCurrentIndex(choices[list->objectName()].toInt());
    for (widgets::SwatchButton *swatch : findChildren<widgets::SwatchButton *>())
        swatch->SetValue(choices[swatch->objectName()].value<support::Colour>());
    chkMissingDates_->setChecked(choices[chkMissingDates_->objectName()].toBool());
    const QSizeF size = choices[kSampleSize].toSizeF();
    sample_->SetWidth(float(size.width()));
    sample_->SetHeight(float(size.height()));
}

void frmTimelineSetup::reject() {
    if (argument_.choices) *argument_.choices = Choices();
    QDialog::reject();
}

// In the order in which the sample takes them over.
std::array<frmTimelineSetup::LookRow, 9> frmTimelineSetup::LookRows() const {
    using diagram::Node;
    return {{
        {cboAutoSize_, [](const Node &node) { return int(node.AutoSize()); },
         [](Node &node, int value) { node.SetAutoSize(value); }},
        {cboDrawStyle_, [](const Node &node) { return int(node.DrawStyle()); },
         [](Node &node, int value) { node.SetDrawStyle(value); }},
        {cboDrawWidth_, [](const Node &node) { return int(support::CLng(double(node.DrawWidth()))); },
         [](Node &node, int value) { node.SetDrawWidth(float(value)); }},
        {cboShadow_, [](const Node &node) { return int(node.Shadow()); },
         [](Node &node, int value) { node.SetShadow(value); }},
        {cboShape_, [](const Node &node) { return int(node.Shape()); },
         [](Node &node, int value) { node.SetShape(value); }},
        {cboShapeOrient_, [](const Node &node) { return int(node.ShapeOrientation()); },
         [](Node &node, int value) { node.SetShapeOrientation(value); }},
        {cboTextAlign_, [](const Node &node) { return int(node.Alignment()); },
         [](Node &node, int value) { node.SetAlignment(value); }},
        {cboXMargin_, [](const Node &node) { return int(node.xTextMargin()); },
         [](Node &node, int value) { node.SetxTextMargin(value); }},
        {cboYMargin_, [](const Node &node) { return int(node.yTextMargin()); },
         [](Node &node, int value) { node.SetyTextMargin(value); }},
    }};
}

void frmTimelineSetup::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    ApplyToSample();
}

void frmTimelineSetup::ApplyLook(diagram::Node &node) const {
    for (const LookRow &row : LookRows())
        if (row.list->currentIndex() >= 0) row.store(node, row.list->currentData().toInt());
    node.SetForeColor(picForeColor_->Value());
    node.SetFillColor(picFillColor_->Value());
    node.SetBorderColor(picBorderColor_->Value());
}

void frmTimelineSetup::ApplyToSample() {
    ApplyLook(*sample_);
    TimelineSample_->Refresh();
}

void frmTimelineSetup::ShowSampleDate() {
    const QString text = Reformatted(document::GetTag(*sample_, kTheDate), Pattern());
    if (!text.isEmpty()) sample_->SetText(text);
    TimelineSample_->Refresh();
}

// The font reaches new maps alone, through the defaults: the text of the months stays as it was.
void frmTimelineSetup::OKButton_Click() {
    support::Report("frmTimelineSetup", "OKButton_Click", [this] {
        std::optional<diagram::ActionGroup> step;
        if (argument_.Flow) step.emplace(*argument_.Flow);
        if (argument_.TemplateNode) StoreTemplate(*argument_.TemplateNode);
        if (argument_.Flow) StoreFlow(*argument_.Flow);
        if (argument_.asTemplate) StoreLevelColour();
        accept();
    });
}

void frmTimelineSetup::StoreTemplate(diagram::Node &node) const {
    if (usual_) node.SetLook(ShownTemplate().Look());
    ApplyLook(node);
    node.SetWidth(sample_->Width());
    node.SetHeight(sample_->Height());
    document::SetTag(node, kDateFormat, Pattern());
}

void frmTimelineSetup::StoreFlow(diagram::Surface &flow) {
    const int arrangement = cboArrangement_->currentIndex();
    if (arrangement >= 0) document::SetTag(flow, kTimelineAlign, QString::number(arrangement));
    document::SetTag(flow, kMissing, Truth(chkMissingDates_->isChecked()));
    UpdateTimeLineNodes(argument_.window, flow, true);
}

void frmTimelineSetup::StoreLevelColour() {
    document::cLevels &levels = argument_.window.clsSettings().Levels();
    if (levels.count() > 0) levels.Item(1).Color = picFillColor_->Value();
    if (argument_.DoFixColors) argument_.DoFixColors();
}

void frmTimelineSetup::cmdDefault_Click() {
    support::Report("frmTimelineSetup", "cmdDefault_Click", [this] {
        const QString question =
            settings::ReplaceTerms(QStringLiteral("Make these settings the default for all new @MAPs ?"));
        if (argument_.window.Desktop().messageBoxes.Show(question, support::Buttons::YesNo,
                                                         support::Icon::Question,
                                                         settings::Terms().TITLE) == support::Answer::Yes)
            SaveDefaults();
    });
}

void frmTimelineSetup::SaveDefaults() {
    document::SetTag(*sample_, kDateFormat, Pattern());
    document::SetTag(*sample_, kMissing, Truth(chkMissingDates_->isChecked()));
    if (cboArrangement_->currentIndex() >= 0)
        document::SetTag(*sample_, kTimelineAlign, QString::number(cboArrangement_->currentIndex()));
    const QString node = StoreDefaultNode(TimelineSample(), *sample_, argument_.asTemplate);
    const QString levels = StoreDefaultLevels(argument_.window.clsSettings().Levels(), sample_->FillColor());
    settings::TellOfOwnCopies({node, levels});
}

void frmTimelineSetup::cmdFont_Click() {
    support::Report("frmTimelineSetup", "cmdFont_Click", [this] {
        const diagram::Font &font = sample_->Font();
        support::FontChoice choice{font.Name(),   font.Size(),      font.Bold(),
                                   font.Italic(), font.Underline(), font.Strike()};
        support::Colour colour = picForeColor_->Value();
        argument_.window.Desktop().dialogs.ShowFontDialog(this, 0, choice, colour);
        sample_->SetFont(diagram::Font(choice.name, choice.size, choice.bold, choice.italic, choice.underline,
                                       choice.strike));
        picForeColor_->SetValue(colour);
        ApplyToSample();
    });
}

} // namespace timeline
