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

// At most that many templates, one of each folder in turn, so that even a few show the variety. Files for
// other programs, and what can't be read, are left out.
std::vector<StartTemplate> StartTemplates(int most);

} // namespace mainwindow
