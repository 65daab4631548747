#include "dialogs/PropertyRows.h"

#include "widgets/SwatchButton.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

namespace dialogs {

namespace {

QString WithoutAccelerator(QString label) { return label.remove(u'&'); }

} // namespace

void AddRow(QGridLayout &grid, const QString &label, QWidget *control, Qt::Alignment alignment) {
    auto *text = new QLabel(label, grid.parentWidget());
    text->setBuddy(control);
    const int row = grid.rowCount();
    grid.addWidget(text, row, 0);
    grid.addWidget(control, row, 1, alignment);
}

QComboBox *AddList(QGridLayout &grid, const char *name, const QString &label, ListOf what) {
    auto *list = new QComboBox(grid.parentWidget());
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(WithoutAccelerator(label));
    FillList(*list, what);
    AddRow(grid, label, list);
    return list;
}

SwatchButton *AddSwatch(QGridLayout &grid, support::Desktop &desktop, const char *name, const char *swatch,
                        const QString &label) {
    auto *button = new SwatchButton(desktop, QLatin1String(name), QLatin1String(swatch),
                                    WithoutAccelerator(label), grid.parentWidget());
    AddRow(grid, label, button, Qt::AlignLeft);
    return button;
}

} // namespace dialogs
