#include "dialogs/NodeSettingsPage.h"

#include "dialogs/PropertyRows.h"
#include "dialogs/SwatchButton.h"

#include <QComboBox>
#include <QGridLayout>

namespace dialogs {

NodeSettingsPage::NodeSettingsPage(support::Desktop &desktop, QWidget *parent) : QWidget(parent) {
    auto *grid = new QGridLayout(this);
    cboShape_ = AddList(*grid, "cboShape", QStringLiteral("Shap&e"), ListOf::Shapes);
    cboShapeOrient_ =
        AddList(*grid, "cboShapeOrient", QStringLiteral("Shape Orie&ntation"), ListOf::Orientations);
    cboDrawStyle_ = AddList(*grid, "cboDrawStyle", QStringLiteral("D&raw Style"), ListOf::DrawStyles);
    cboShadow_ = AddList(*grid, "cboShadow", QStringLiteral("S&hadow"), ListOf::Shadows);
    cboDrawWidth_ = AddList(*grid, "cboDrawWidth", QStringLiteral("&Draw Width"), ListOf::DrawWidths);
    cboAutoSize_ = AddList(*grid, "cboAutoSize", QStringLiteral("Auto &Size"), ListOf::AutoSizes);
    picFillColor_ = AddSwatch(*grid, desktop, "cmdChangeFill", "picFillColor", QStringLiteral("&Fill Color"));
    picBorderColor_ =
        AddSwatch(*grid, desktop, "cmdChangeBorder", "picBorderColor", QStringLiteral("Border Color"));
    picForeColor_ = AddSwatch(*grid, desktop, "cmdChangeFore", "picForeColor", QStringLiteral("Fore Color"));
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    for (QComboBox *list : findChildren<QComboBox *>())
        connect(list, &QComboBox::currentIndexChanged, this, &NodeSettingsPage::Changed);
    for (SwatchButton *swatch : {picFillColor_, picBorderColor_, picForeColor_})
        connect(swatch, &SwatchButton::Changed, this, &NodeSettingsPage::Changed);
}

void NodeSettingsPage::Load(const NodeEdit &edit) {
    ShowValue(*cboShape_, edit.Shape);
    ShowValue(*cboShapeOrient_, edit.ShapeOrientation);
    ShowValue(*cboDrawStyle_, edit.DrawStyle);
    ShowValue(*cboShadow_, edit.Shadow);
    ShowValue(*cboDrawWidth_, double(edit.DrawWidth));
    ShowValue(*cboAutoSize_, edit.AutoSize);
    picFillColor_->SetValue(edit.FillColor);
    picBorderColor_->SetValue(edit.BorderColor);
    picForeColor_->SetValue(edit.ForeColor);
}

void NodeSettingsPage::Store(NodeEdit &edit) const {
    edit.Shape = int(ValueOf(*cboShape_));
    edit.ShapeOrientation = int(ValueOf(*cboShapeOrient_));
    edit.DrawStyle = int(ValueOf(*cboDrawStyle_));
    edit.Shadow = int(ValueOf(*cboShadow_));
    edit.DrawWidth = float(ValueOf(*cboDrawWidth_));
    edit.AutoSize = int(ValueOf(*cboAutoSize_));
    edit.FillColor = picFillColor_->Value();
    edit.BorderColor = picBorderColor_->Value();
    edit.ForeColor = picForeColor_->Value();
}

} // namespace dialogs
