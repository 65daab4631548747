// A variable of the environment, as a test wants it.
#pragma once

#include <QByteArray>

namespace tests {

// Has the value for the life of the object, then the former one again, or none if there was none.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char *name, const QByteArray &value) : name_(name), former_(qgetenv(name)) {
        qputenv(name, value);
    }
    ~EnvironmentVariable() { former_.isNull() ? qunsetenv(name_) : qputenv(name_, former_); }
    EnvironmentVariable(const EnvironmentVariable &) = delete;
    EnvironmentVariable &operator=(const EnvironmentVariable &) = delete;

private:
    const char *name_;
    QByteArray former_;
};

} // namespace tests
