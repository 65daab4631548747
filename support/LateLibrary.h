// A library that is loaded when it is needed, since it brings others along that a start would wait for.
#pragma once

#include <QLibrary>
#include <QString>

namespace support {

class LateLibrary {
public:
    // NAME as the linker has it ("cups"), VERSION that of the binary interface.
    LateLibrary(const QString &name, int version) : library_(name, version) {}

    // Gives `function` its address. False where the library is missing or lacks it; Why tells.
    template <typename Function>
    bool Resolve(const char *name, Function &function) {
        function = reinterpret_cast<Function>(library_.resolve(name));
        return function != nullptr;
    }
    QString Why() const { return library_.errorString(); }

private:
    QLibrary library_;
};

} // namespace support
