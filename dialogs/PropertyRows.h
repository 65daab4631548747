// Rows of a page of properties: a label at the left, the control that it leads to at the right.
#pragma once

#include "support/Colour.h"
#include "widgets/PropertyLists.h"

#include <QString>

class QComboBox;
class QGridLayout;
class QWidget;

namespace support {
struct Desktop;
}

namespace widgets {
class SwatchButton;
}

namespace dialogs {

using widgets::ListOf;
using widgets::ShowValue;
using widgets::SwatchButton;
using widgets::ValueOf;

// Puts the control into the next row under the label, which carries the accelerator.
void AddRow(QGridLayout &grid, const QString &label, QWidget *control, Qt::Alignment alignment = {});
// A list of choices, filled.
QComboBox *AddList(QGridLayout &grid, const char *name, const QString &label, ListOf what);
// A colour; the button is `name`, the field of colour in it `swatch`.
SwatchButton *AddSwatch(QGridLayout &grid, support::Desktop &desktop, const char *name, const char *swatch,
                        const QString &label);

} // namespace dialogs
