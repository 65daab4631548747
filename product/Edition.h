// One edition of the product: a folder of texts that becomes the program's folder.
#pragma once

#include <QDir>

namespace product {

// Leaves Settings.nml, Default.htm, template.tpl, Template.nd, Template.tnd and the folders Templates and
// Startup in `target`, made from the texts of the folder `edition`. The program's folder must be `target`:
// maps start from the template in it.
void BuildEdition(const QDir &edition, const QDir &target);

} // namespace product
