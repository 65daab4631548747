#include "support/Forms.h"

#include "support/Error.h"

#include <gtest/gtest.h>

using namespace support;

namespace {

// What two forms are handed.
struct Question {
    static constexpr char kForm[] = "frmQuestion";
    int answer = 0;
};
struct Other {
    static constexpr char kForm[] = "frmOther";
};

} // namespace

TEST(FormTable, ShowModal_CallsTheFormAndRaisesForAnUnknownOne) {
    FormTable forms;
    forms.Add<Question>([](Question &question, Owner) { return question.answer == 1; });
    Question one{1}, two{2};
    Other other;
    EXPECT_TRUE(forms.ShowModal(FormRequest(one), nullptr));
    EXPECT_FALSE(forms.ShowModal(FormRequest(two), nullptr));
    EXPECT_TRUE(forms.Knows("frmQuestion"));
    EXPECT_FALSE(forms.Knows("frmOther"));
    EXPECT_THROW(forms.ShowModal(FormRequest(other), nullptr), Error);
}

TEST(FormRequest, As_RaisesForAnotherType) {
    Question question;
    EXPECT_EQ(&FormRequest(question).As<Question>(), &question);
    EXPECT_THROW(FormRequest(question).As<Other>(), Error);
}
