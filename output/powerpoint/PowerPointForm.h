// What the form for presentations is handed, and what it remembers.
#pragma once

#include "output/powerpoint/CreatePowerpoint.h"

namespace powerpoint {

struct PowerPointArgument {
    static constexpr char kForm[] = "frmPowerPoint";
    document::MapWindow &frmForm;
    QString Filename;
};

// The ticks of the form.
struct FormChoice {
    bool all = false, title = false, shapes = false;
    friend bool operator==(const FormChoice &, const FormChoice &) = default;
};

// Those of the last time; none at first.
FormChoice LoadChoice();
void SaveChoice(const FormChoice &choice);

PowerpointOptions OptionsOf(const FormChoice &choice);

} // namespace powerpoint
