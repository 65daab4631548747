#include "output/powerpoint/PowerPointForm.h"

#include "settings/GetSet.h"

namespace powerpoint {

namespace {

struct SettingRow {
    const char *name;
    bool FormChoice::*tick;
};
constexpr SettingRow kSettings[] = {{"PowerPointAll", &FormChoice::all},
                                    {"PowerPointTitle", &FormChoice::title},
                                    {"PowerPointShapes", &FormChoice::shapes}};

} // namespace

FormChoice LoadChoice() {
    FormChoice choice;
    for (const SettingRow &row : kSettings)
        choice.*row.tick = settings::GetSet(QLatin1String(row.name)) == QLatin1String("1");
    return choice;
}

void SaveChoice(const FormChoice &choice) {
    for (const SettingRow &row : kSettings)
        settings::SaveSet(QLatin1String(row.name), QString::number(int(choice.*row.tick)));
}

PowerpointOptions OptionsOf(const FormChoice &choice) {
    return {choice.title ? kLayoutTitle : kLayoutBlank, !choice.all, choice.shapes};
}

} // namespace powerpoint
