// The look that all new maps start with, offered where a map has no timeline yet.
#include "diagram/format/SurfaceFile.h"
#include "document/Tags.h"
#include "tests/timeline/setup/SetupTest.h"
#include "widgets/SwatchButton.h"

#include <QCheckBox>

namespace timeline::testing {

namespace {

using namespace document::tags;

struct UsualMonth : SetupTest {
    UsualMonth() {
        diagram::Surface file;
        diagram::Node &month = file.Nodes().Add(0, 0, 1800, 480);
        month.SetText(kTemplateNodeText);
        month.SetHidden(true);
        month.SetSelectable(false);
        month.SetShape(7);
        month.SetFillColor(0xF7F2EE);
        month.SetFont(diagram::Font(QStringLiteral("Courier"), 11));
        document::SetTag(month, kDateFormat, QStringLiteral("MM-YYYY"));
        document::SetTag(month, kMissing, QStringLiteral("True"));
        document::SetTag(month, kTimelineAlign, QStringLiteral("3"));
        diagram::SaveFile(file, program.filePath(document::kTimelineTemplateNodeFile));
    }
    diagram::Node &Look() { return *LocateTimeLineTemplateNode(flow, true); }
};

} // namespace

TEST_F(UsualMonth, IsWhatOkStoresInANodeThatNobodyHasSetUp) {
    Form().OKButton_Click();
    EXPECT_EQ(Look().Bounds().size(), QSizeF(1800, 480));
    EXPECT_EQ(Look().Shape(), 7);
    EXPECT_EQ(Look().FillColor(), 0xF7F2EE);
    EXPECT_EQ(Look().Font().Name(), QStringLiteral("Courier"));
    EXPECT_EQ(document::GetTag(Look(), kDateFormat), QStringLiteral("MM-YYYY"));
    EXPECT_EQ(document::GetTag(flow, kTimelineAlign), QStringLiteral("3"));
    EXPECT_EQ(document::GetTag(flow, kMissing), QStringLiteral("True"));
}

TEST_F(UsualMonth, IsShownBeforeAndCancelledLeavesNothing) {
    Form();
    EXPECT_EQ(Sample().Bounds().size(), QSizeF(1800, 480));
    EXPECT_EQ(Control("cboDateFormat").currentText(), QStringLiteral("MM-YYYY"));
    EXPECT_EQ(Control("cboArrangement").currentIndex(), 3);
    form->reject();
    EXPECT_EQ(Look().Width(), 0);
}

TEST_F(UsualMonth, DoesNotReachANodeThatWasSetUp) {
    Look().SetBounds(0, 0, 900, 300);
    Look().SetShape(1);
    Form().OKButton_Click();
    EXPECT_EQ(Look().Bounds().size(), QSizeF(900, 300));
    EXPECT_EQ(Look().Shape(), 1);
}

TEST_F(UsualMonth, IsNotTheDefaultNodes) {
    Form(true).OKButton_Click();
    EXPECT_EQ(document::LocateTemplateNode(flow, false)->Width(), 1200);
}

} // namespace timeline::testing
