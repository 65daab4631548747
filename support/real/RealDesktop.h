// The desktop of the editor: Qt's dialogs, the platform's registry, printers and programs.
#pragma once

#include "support/Desktop.h"
#include "support/Forms.h"
#include "support/headless/SystemDoors.h"
#include "support/real/QtCommonDialogs.h"
#include "support/real/QtFileIcons.h"
#include "support/real/QtLauncher.h"
#include "support/real/QtMessageBoxes.h"
#include "support/real/QtPrinters.h"
#include "support/RegistryStore.h"

#include <memory>

namespace support {

// Becomes the current desktop, and shows reported errors in message boxes, for as long as it lives. Needs a
// QApplication once a dialog is shown, not before.
class RealDesktop {
public:
    // On the platform's registry.
    RealDesktop();
    explicit RealDesktop(std::unique_ptr<RegistryStore> registry);
    ~RealDesktop();
    RealDesktop(const RealDesktop &) = delete;
    RealDesktop &operator=(const RealDesktop &) = delete;

    Desktop &Get() { return desktop_; }
    // Where the folders above add their modal forms.
    FormTable &Forms() { return forms_; }

private:
    QtMessageBoxes messageBoxes_;
    SystemPrinters printers_;
    QtCommonDialogs dialogs_{printers_};
    QtLauncher launcher_;
    SystemClock clock_;
    SystemMemoryProbe memory_;
    std::unique_ptr<RegistryStore> registry_;
    SystemRandom random_;
    SystemIdentity identity_;
    QtFileIcons fileIcons_;
    FormTable forms_;
    Desktop desktop_;
};

} // namespace support
