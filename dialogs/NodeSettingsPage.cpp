#include "dialogs/NodeSettingsPage.h"

#include "dialogs/PropertyRows.h"
#include "widgets/SwatchButton.h"

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
    ShowValue(*cboShape_, edit.look.shape);
    ShowValue(*cboShapeOrient_, edit.look.shapeOrientation);
    ShowValue(*cboDrawStyle_, edit.look.drawStyle);
    ShowValue(*cboShadow_, edit.look.shadow);
    ShowValue(*cboDrawWidth_, double(edit.look.drawWidth));
    ShowValue(*cboAutoSize_, edit.look.autoSize);
    picFillColor_->SetValue(edit.look.fillColor);
    picBorderColor_->SetValue(edit.look.borderColor);
    picForeColor_->SetValue(edit.look.foreColor);
}

void NodeSettingsPage::Store(NodeEdit &edit) const {
    edit.look.shape = std::uint8_t(ValueOf(*cboShape_));
    edit.look.shapeOrientation = std::uint8_t(ValueOf(*cboShapeOrient_));
    edit.look.drawStyle = std::uint8_t(ValueOf(*cboDrawStyle_));
    edit.look.shadow = std::uint8_t(ValueOf(*cboShadow_));
    edit.look.drawWidth = float(ValueOf(*cboDrawWidth_));
    edit.look.autoSize = std::uint8_t(ValueOf(*cboAutoSize_));
    edit.look.fillColor = picFillColor_->Value();
    edit.look.borderColor = picBorderColor_->Value();
    edit.look.foreColor = picForeColor_->Value();
}

} // namespace dialogs
