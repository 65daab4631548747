#include "settings/clsRB.h"

#include "settings/GetSet.h"
#include "support/cRegistry.h"
#include "support/Forms.h"

namespace settings {

namespace {

support::cRegistry StoredAnswer() {
    support::cRegistry registry;
    registry.SectionKey = WindowPath();
    registry.ValueKey = QLatin1String(kRB_Bar);
    registry.ValueType = support::RegistryType::Number;
    registry.Default = clsRB::kNoAnswer;
    return registry;
}

} // namespace

std::int32_t clsRB::DisplayPrompt(bool bFlag) {
    const std::int32_t stored = StoredAnswer().Value().toInt();
    if (stored != kNoAnswer) return Choice = stored;
    Choice = kCancel;
    SaveValue = false;
    Force = bFlag;
    support::Show(support::CurrentDesktop(), *this, nullptr);
    if (Choice != kCancel && SaveValue) StoredAnswer().SetValue(Choice);
    return Choice;
}

void clsRB::ResetPrompt() { StoredAnswer().SetValue(kNoAnswer); }

bool clsRB::GetDisplayPrompt() const { return StoredAnswer().Value().toInt() == kNoAnswer; }

} // namespace settings
