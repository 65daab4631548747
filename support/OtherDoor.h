// A desktop that differs from another in one door.
#pragma once

#include "support/Desktop.h"

#include <type_traits>

namespace support {

// The doors of `desktop`, but `door` in the place of the one of its kind, or of each of its kinds.
template <typename Door>
Desktop WithDoor(const Desktop &desktop, Door &door) {
    const auto chosen = [&door]<typename Kind>(Kind &own) -> Kind & {
        if constexpr (std::is_base_of_v<Kind, Door>)
            return door;
        else
            return own;
    };
    return {chosen(desktop.messageBoxes), chosen(desktop.dialogs),   chosen(desktop.launcher),
            chosen(desktop.clock),        chosen(desktop.memory),    chosen(desktop.registry),
            chosen(desktop.random),       chosen(desktop.printers),  chosen(desktop.identity),
            chosen(desktop.fileIcons),    chosen(desktop.dialogHost)};
}

} // namespace support
