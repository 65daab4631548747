#include "support/real/RealDesktop.h"

#include "support/Error.h"
#include "support/PlatformRegistry.h"

namespace support {

RealDesktop::RealDesktop() : RealDesktop(CreatePlatformRegistry()) {}

RealDesktop::RealDesktop(std::unique_ptr<RegistryStore> registry)
    : registry_(std::move(registry)), desktop_{messageBoxes_, dialogs_,   launcher_, clock_,
                                               memory_,       *registry_, random_,   printers_,
                                               identity_,     fileIcons_, forms_} {
    SetDesktop(&desktop_);
    SetReporter(ReportWithMessageBoxes);
}

RealDesktop::~RealDesktop() {
    SetReporter(nullptr);
    SetDesktop(nullptr);
}

} // namespace support
