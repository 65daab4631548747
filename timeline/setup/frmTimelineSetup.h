// The settings of a slice's timeline, or of its default node, on a live sample.
#pragma once

#include "timeline/AddTimelineLink.h"

#include <array>
#include <memory>
#include <optional>
#include <QDialog>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;

namespace widgets {
enum class ListOf;
class SwatchButton;
} // namespace widgets

namespace timeline {

class SampleView;

class frmTimelineSetup : public QDialog {
    Q_OBJECT
public:
    // In the role that the argument names. What the argument refers to must outlive the form.
    frmTimelineSetup(const TimelineSetupArgument &argument, QWidget *parent);

    diagram::Surface &TimelineSample();

    void RunAsTemplate();
    void RunAsTimeline();
    // What is shown is kept where the argument says.
    void reject() override;
    // The buttons; OK can be pressed on a form that was never shown.
    void OKButton_Click();
    void cmdDefault_Click();
    void cmdFont_Click();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void BuildSample();
    void BuildControls();
    void BuildLook(QGridLayout &grid);
    void BuildTimelineControls(QGridLayout &grid);
    void BuildButtons(QGridLayout &grid);
    QComboBox *AddList(QGridLayout &grid, const char *name, const QString &label,
                       std::optional<widgets::ListOf> what = std::nullopt);
    widgets::SwatchButton *AddSwatch(QGridLayout &grid, const char *name, const char *swatch,
                                     const QString &label);
    // A list, and the property of a node whose stored values it offers.
    struct LookRow {
        QComboBox *list;
        int (*stored)(const diagram::Node &node);
        void (*store)(diagram::Node &node, int value);
    };
    std::array<LookRow, 9> LookRows() const;
    void LoadUsual();
    const diagram::Node &ShownTemplate() const;
    void ShowTemplate(const diagram::Node &node);
    void ShowFlow();
    QVariantMap Choices() const;
    void ShowChoices(const QVariantMap &choices);
    QString Pattern() const;
    void ApplyToSample();
    void ApplyLook(diagram::Node &node) const;
    void ShowSampleDate();
    void StoreTemplate(diagram::Node &node) const;
    void StoreFlow(diagram::Surface &flow);
    void StoreLevelColour();
    void SaveDefaults();

    TimelineSetupArgument argument_;
    // Holds the look of the months of new maps, for a template node that nobody has set up yet; else null.
    std::unique_ptr<diagram::Surface> usual_;
    diagram::Node *sample_ = nullptr;
    QGroupBox *frame_ = nullptr;
    SampleView *TimelineSample_ = nullptr;
    QComboBox *cboAutoSize_ = nullptr, *cboDrawStyle_ = nullptr, *cboDrawWidth_ = nullptr,
              *cboShadow_ = nullptr, *cboShape_ = nullptr, *cboShapeOrient_ = nullptr,
              *cboTextAlign_ = nullptr, *cboXMargin_ = nullptr, *cboYMargin_ = nullptr,
              *cboDateFormat_ = nullptr, *cboArrangement_ = nullptr;
    widgets::SwatchButton *picForeColor_ = nullptr, *picFillColor_ = nullptr, *picBorderColor_ = nullptr;
    QLabel *lblTimelineArrangement_ = nullptr, *lblDateFormat_ = nullptr;
    QCheckBox *chkMissingDates_ = nullptr;
};

} // namespace timeline
