// The controls of a form, by their names.
#pragma once

#include <QWidget>
#include <stdexcept>

namespace tests {

// The one of that name; a test that names none of the form's fails.
template <typename Widget>
Widget &ControlOf(const QWidget &form, const char *name) {
    auto *found = form.findChild<Widget *>(QLatin1String(name));
    if (!found) throw std::runtime_error(name);
    return *found;
}

} // namespace tests
