#include "timeline/setup/frmTimelineSetup.h"

#include "app/settings/Settings.h"
#include "diagram/edit/History.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "support/Val.h"
#include "timeline/Arrange.h"
#include "timeline/DateText.h"
#include "timeline/setup/SampleView.h"
#include "timeline/setup/StoreDefaults.h"
#include "timeline/setup/Swatch.h"
#include "timeline/TimelineNodes.h"

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

QString Truth(bool value) { return value ? kTrue : kFalse; }

} // namespace

frmTimelineSetup::frmTimelineSetup(const TimelineSetupArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument) {
    setObjectName(QLatin1String(kFormTimelineSetup));
    BuildControls();
    if (argument_.asTemplate)
        RunAsTemplate();
    else
        RunAsTimeline();
    BuildSample();
    ShowTemplate();
    ShowFlow();
    ApplyToSample();
}

diagram::Surface &frmTimelineSetup::TimelineSample() { return TimelineSample_->Model(); }

void frmTimelineSetup::BuildSample() {
    sample_ = &TimelineSample().Nodes().Add(0, 0, kSampleSide, kSampleSide);
    const QString today = FormatDate(argument_.window.Desktop().clock.Now().date(), kSamplePattern);
    sample_->SetText(today);
    document::SetTag(*sample_, kTheDate, today);
    TimelineSample_->SetNode(*sample_);
}

// A pattern that the list doesn't have selects nothing.
void frmTimelineSetup::ShowTemplate() {
    const diagram::Node &node = argument_.TemplateNode;
    if (document::GetTag(argument_.Flow, kMissing).isEmpty() && !document::GetTag(node, kMissing).isEmpty())
        document::SetTag(argument_.Flow, kMissing, document::GetTag(node, kMissing));
    const QString pattern = document::GetTag(node, kDateFormat);
    cboDateFormat_->setCurrentIndex(pattern.isEmpty() ? 1 : cboDateFormat_->findText(pattern));
    cboAutoSize_->setCurrentIndex(int(node.AutoSize()));
    cboDrawStyle_->setCurrentIndex(int(node.DrawStyle()));
    cboDrawWidth_->setCurrentIndex(support::CInt(double(node.DrawWidth())));
    cboShadow_->setCurrentIndex(int(node.Shadow()));
    cboShape_->setCurrentIndex(cboShape_->findData(int(node.Shape())));
    cboShapeOrient_->setCurrentIndex(int(node.ShapeOrientation()));
    cboTextAlign_->setCurrentIndex(int(node.Alignment()));
    cboXMargin_->setCurrentIndex(int(node.xTextMargin()));
    cboYMargin_->setCurrentIndex(int(node.yTextMargin()));
    picForeColor_->SetValue(node.ForeColor());
    picFillColor_->SetValue(node.FillColor());
    picBorderColor_->SetValue(node.BorderColor());
    sample_->SetFont(node.Font());
    if (node.Width() > 0) sample_->SetWidth(node.Width());
    if (node.Height() > 0) sample_->SetHeight(node.Height());
}

void frmTimelineSetup::ShowFlow() {
    const QString align = document::GetTag(argument_.Flow, kTimelineAlign);
    cboArrangement_->setCurrentIndex(align.isEmpty() ? kDefaultArrangement : int(support::Val(align)));
    chkMissingDates_->setChecked(
        document::GetTag(argument_.Flow, kMissing).compare(kTrue, Qt::CaseInsensitive) == 0);
    const document::cLevels &levels = argument_.window.clsSettings().Levels();
    if (argument_.asTemplate && levels.count() > 0) picFillColor_->SetValue(levels.Item(1).Color);
}

void frmTimelineSetup::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    ApplyToSample();
}

void frmTimelineSetup::ApplyLook(diagram::Node &node) const {
    node.SetAutoSize(cboAutoSize_->currentIndex());
    node.SetDrawStyle(cboDrawStyle_->currentIndex());
    node.SetDrawWidth(float(cboDrawWidth_->currentIndex()));
    node.SetShadow(cboShadow_->currentIndex());
    if (cboShape_->currentIndex() >= 0) node.SetShape(cboShape_->currentData().toInt());
    node.SetShapeOrientation(cboShapeOrient_->currentIndex());
    node.SetAlignment(cboTextAlign_->currentIndex());
    node.SetxTextMargin(cboXMargin_->currentIndex());
    node.SetyTextMargin(cboYMargin_->currentIndex());
    node.SetForeColor(picForeColor_->Value());
    node.SetFillColor(picFillColor_->Value());
    node.SetBorderColor(picBorderColor_->Value());
}

void frmTimelineSetup::ApplyToSample() {
    ApplyLook(*sample_);
    TimelineSample_->Refresh();
}

void frmTimelineSetup::ShowSampleDate() {
    const QString text = Reformatted(document::GetTag(*sample_, kTheDate), cboDateFormat_->currentText());
    if (!text.isEmpty()) sample_->SetText(text);
    TimelineSample_->Refresh();
}

// The font reaches new maps alone, through the defaults: the text of the months stays as it was.
void frmTimelineSetup::OKButton_Click() {
    support::Report("frmTimelineSetup", "OKButton_Click", [this] {
        const diagram::ActionGroup step(argument_.Flow);
        diagram::Node &node = argument_.TemplateNode;
        ApplyLook(node);
        node.SetWidth(sample_->Width());
        node.SetHeight(sample_->Height());
        document::SetTag(node, kDateFormat, cboDateFormat_->currentText());
        StoreFlow();
        if (argument_.asTemplate) StoreLevelColour();
    });
    accept();
}

void frmTimelineSetup::StoreFlow() {
    document::SetTag(argument_.Flow, kTimelineAlign, QString::number(cboArrangement_->currentIndex()));
    document::SetTag(argument_.Flow, kMissing, Truth(chkMissingDates_->isChecked()));
    UpdateTimeLineNodes(argument_.window, argument_.Flow, true);
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
    document::SetTag(*sample_, kDateFormat, cboDateFormat_->currentText());
    document::SetTag(*sample_, kMissing, Truth(chkMissingDates_->isChecked()));
    document::SetTag(*sample_, kTimelineAlign, QString::number(cboArrangement_->currentIndex()));
    StoreDefaultNode(TimelineSample(), *sample_, argument_.asTemplate);
    StoreDefaultLevels(argument_.window.clsSettings().Levels(), sample_->FillColor());
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
