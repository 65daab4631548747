// Finds the controls of a form by their names.
#pragma once

#include <QWidget>
#include <stdexcept>

namespace tests {

// The control of that name; throws std::runtime_error, and so fails the test, when the form has none.
template <typename Widget>
Widget &ControlOf(const QWidget &form, const char *name) {
    auto *found = form.findChild<Widget *>(QLatin1String(name));
    if (!found) throw std::runtime_error(name);
    return *found;
}

} // namespace tests
