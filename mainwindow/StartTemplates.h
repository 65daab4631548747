// The templates that the start page offers.
#pragma once

#include <QIcon>
#include <QString>
#include <vector>

namespace mainwindow {

struct StartTemplate {
    QString caption;
    QString file;
    QIcon icon; // its own, or the drawn one of templates
};

// The first ones of all folders of templates: one of each folder in turn, so that few show much. Only those
// that a click loads; what can't be read is left out.
std::vector<StartTemplate> StartTemplates(int most);

} // namespace mainwindow
