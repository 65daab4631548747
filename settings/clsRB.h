// The remembered answer to the question whether a template makes a new slice or updates the current one.
#pragma once

#include <cstdint>

namespace settings {

inline constexpr char kRB_Bar[] = "RB_Bar";

// Also the argument of the form that asks, frmRB (support/Forms.h).
class clsRB {
public:
    static constexpr char kForm[] = "frmRB";
    static constexpr std::int32_t kCancel = 0;
    static constexpr std::int32_t kUpdate = 1;
    static constexpr std::int32_t kNew = 2;
    // What the registry holds while the question is to be asked.
    static constexpr std::int32_t kNoAnswer = -1;

    // The answer, and whether it is to be remembered. The form sets both.
    std::int32_t Choice = kCancel;
    bool SaveValue = false;
    // Whether the form opens with its check box ticked.
    bool Force = false;

    // Gives the stored answer, or asks through frmRB with `bFlag` as Force; an answer other than cancel is
    // stored when the form set SaveValue.
    std::int32_t DisplayPrompt(bool bFlag);
    // Forgets the answer.
    void ResetPrompt();
    // Whether DisplayPrompt would ask.
    bool GetDisplayPrompt() const;
};

} // namespace settings
