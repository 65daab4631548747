// What marks the map as changed (Dirty), and what leaves that mark as it was: a row for each thing that a
// user can do.
#include "diagram/edit/History.h"
#include "diagram/view/SurfaceView.h"
#include "dialogs/PropertyForms.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QTest>
#include <QToolBar>

namespace mainwindow::testing {

namespace {

// A window with two linked nodes, the first of them selected, and what its user can do.
class Deeds : public WindowTest {
protected:
    frmMain &Prepare() {
        frmMain &window = NewWindow();
        const diagram::ActionGroup group(window.CurrentSurface());
        first = &AddNode(window, 300, 300, QStringLiteral("first"));
        second = &AddNode(window, 6000, 300, QStringLiteral("second"));
        link = &first->Links().Add(*second);
        first->SetSelected(true);
        return window;
    }
    QPointF Body() const { return first->Bounds().topLeft() + QPointF(300, 150); }
    static QAction &Button(frmMain &window, const QString &key) {
        return *window.findChild<QToolBar *>(QStringLiteral("tlbFormat"))->findChild<QAction *>(key);
    }
    void TypeInto(frmMain &window, const char *box, const QString &text) {
        auto *field = window.findChild<QComboBox *>(QLatin1String(box));
        field->setFocus();
        field->lineEdit()->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }
    QString SavedPicture() {
        QImage image(4, 4, QImage::Format_RGB32);
        image.fill(Qt::green);
        EXPECT_TRUE(image.save(MapFile(QStringLiteral("ground.bmp"))));
        return MapFile(QStringLiteral("ground.bmp"));
    }

public:
    struct Row {
        const char *name;
        bool marks;
        void (*deed)(Deeds &test, frmMain &window);
    };
    static const std::vector<Row> &Rows();

    diagram::Node *first = nullptr;
    diagram::Node *second = nullptr;
    diagram::Link *link = nullptr;
};

const std::vector<Deeds::Row> &Deeds::Rows() {
    static const std::vector<Row> rows{
        {"draw a node", true,
         [](Deeds &t, frmMain &w) {
             t.Drag(w, {300, 4500}, {2400, 6000});
             ASSERT_EQ(w.CurrentSurface().Nodes().Count(), 3);
         }},
        {"insert a linked node", true,
         [](Deeds &t, frmMain &w) {
             t.Press(w, QStringLiteral("Ins"));
             ASSERT_EQ(w.CurrentSurface().Links().size(), 2U);
         }},
        {"draw a link", true,
         [](Deeds &t, frmMain &w) {
             t.DragFromBeside(w, *t.second, t.first->Bounds().topLeft() + QPointF(1400, 150));
             ASSERT_EQ(w.CurrentSurface().Links().size(), 2U);
             ASSERT_EQ(&w.CurrentSurface().Links()[1]->Source(), t.second);
         }},
        {"type a text", true,
         [](Deeds &t, frmMain &w) {
             t.Press(w, QStringLiteral("F2"));
             QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("new"));
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
             ASSERT_EQ(t.first->Text(), QStringLiteral("new"));
         }},
        {"drag a node", true,
         [](Deeds &t, frmMain &w) {
             t.Drag(w, t.Body(), t.Body() + QPointF(900, 900));
             ASSERT_NE(t.first->Left(), 300);
         }},
        {"move by key", true,
         [](Deeds &t, frmMain &w) {
             t.Press(w, QStringLiteral("Right"));
             ASSERT_EQ(t.first->Left(), 315);
         }},
        {"resize a node", true,
         [](Deeds &t, frmMain &w) {
             const QPointF corner = t.first->Bounds().bottomRight();
             t.Drag(w, corner, corner + QPointF(600, 600));
             ASSERT_GT(t.first->Width(), 1800);
         }},
        {"bend a link", true,
         [](Deeds &t, frmMain &w) {
             t.Click(w, {4500, 750});
             t.Drag(w, {4500, 750}, {4500, 2400});
             ASSERT_EQ(t.link->Route().size(), 3U);
         }},
        {"format buttons", true,
         [](Deeds &t, frmMain &w) {
             for (const char *key :
                  {"BOLD", "ITALIC", "ULINE", "LEFT", "CENTER", "RIGHT", "FRONT", "BACK", "DISPLAY", "NEW"}) {
                 w.clsSettings().Dirty = false;
                 Button(w, QLatin1String(key)).trigger();
                 EXPECT_TRUE(w.clsSettings().Dirty) << key;
                 t.ProcessEvents();
             }
         }},
        {"new element of a shape", true, [](Deeds &, frmMain &w) { w.tlbFormat_ButtonMenuClick(8); }},

        {"click", false,
         [](Deeds &t, frmMain &w) {
             t.Click(w, t.second->Bounds().topLeft() + QPointF(300, 150));
             ASSERT_EQ(w.CurrentSurface().SelectedNode(), t.second);
         }},
        {"click beside", false,
         [](Deeds &t, frmMain &w) {
             t.Click(w, {4500, 6000});
             ASSERT_FALSE(t.first->Selected());
         }},
        {"double click", false, [](Deeds &t, frmMain &w) { t.DoubleClick(w, t.Body()); }},
        {"rubber band", false,
         [](Deeds &t, frmMain &w) {
             t.Drag(w, {100, 3000}, {9000, 100}, Qt::ShiftModifier);
             ASSERT_EQ(w.CurrentSurface().SelectedNodes().size(), 2U);
         }},
        {"select all", false,
         [](Deeds &t, frmMain &w) {
             t.Press(w, QStringLiteral("Ctrl+A"));
             ASSERT_EQ(w.CurrentSurface().SelectedNodes().size(), 2U);
         }},
        {"go to the next node", false,
         [](Deeds &t, frmMain &w) {
             t.Press(w, QStringLiteral("Tab"));
             ASSERT_EQ(w.CurrentSurface().SelectedNode(), t.second);
         }},
        {"a drag given up", false,
         [](Deeds &t, frmMain &w) {
             QWidget *viewport = w.CurrentView().viewport();
             const QPoint from = PixelOf(w, t.Body()), to = from + QPoint(80, 80);
             QTest::mousePress(viewport, Qt::LeftButton, {}, from);
             MoveHeld(*viewport, to);
             ASSERT_NE(t.first->Left(), 300);
             t.Press(w, QStringLiteral("Esc"));
             ASSERT_EQ(t.first->Left(), 300);
             QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
         }},
        {"zoom", false,
         [](Deeds &t, frmMain &w) {
             for (const char *key : {"mnuViewZoom150", "mnuViewZoomFit", "mnuViewZoom75", "mnuViewZoom100"})
                 w.SmartMenuXP1_Click(QLatin1String(key));
             t.Press(w, QStringLiteral("Ctrl++"));
             ASSERT_GT(w.CurrentView().ShownZoom(), 101);
         }},
        {"grid and snap", false,
         [](Deeds &t, frmMain &w) {
             t.Press(w, QStringLiteral("Ctrl+G"));
             t.Press(w, QStringLiteral("Ctrl+Shift+G"));
             ASSERT_TRUE(w.CurrentSurface().GridLines());
         }},
        {"background colour", false,
         [](Deeds &t, frmMain &w) {
             t.desktop.ExpectColour(0x123456);
             w.SmartMenuXP1_Click(QStringLiteral("mnuViewBackgroundColor"));
         }},
        {"background picture", false,
         [](Deeds &t, frmMain &w) {
             t.desktop.ExpectOpenFile(t.SavedPicture());
             w.SmartMenuXP1_Click(QStringLiteral("mnuViewBackgroundPicture"));
             w.SmartMenuXP1_Click(QStringLiteral("mnuViewBackgroundClear"));
         }},
        {"undo and redo", false,
         [](Deeds &t, frmMain &w) {
             t.Press(w, QStringLiteral("Ctrl+Z"));
             ASSERT_EQ(w.CurrentSurface().Nodes().Count(), 0);
             t.Press(w, QStringLiteral("Ctrl+Y"));
             ASSERT_EQ(w.CurrentSurface().Nodes().Count(), 2);
         }},
        {"font", false,
         [](Deeds &t, frmMain &w) {
             t.TypeInto(w, "cboFont", QStringLiteral("Some Font"));
             ASSERT_EQ(t.first->Font().Name(), QStringLiteral("Some Font"));
         }},
        {"font size", false,
         [](Deeds &t, frmMain &w) {
             t.TypeInto(w, "cboFontSize", QStringLiteral("33"));
             ASSERT_EQ(t.first->Font().Size(), 33);
         }},
        {"Delete key", false,
         [](Deeds &t, frmMain &w) {
             t.desktop.ExpectMessageContaining(QStringLiteral("delete the select Nodes"),
                                               support::Answer::Yes);
             t.Press(w, QStringLiteral("Del"));
             ASSERT_EQ(w.CurrentSurface().Nodes().Count(), 1);
         }},
        {"copy, cut and paste", false,
         [](Deeds &t, frmMain &w) {
             for (const char *keys : {"Ctrl+C", "Ctrl+V", "Ctrl+X", "Ctrl+V"})
                 t.Press(w, QLatin1String(keys));
             ASSERT_EQ(w.CurrentSurface().Nodes().Count(), 3);
         }},
        {"properties", false,
         [](Deeds &t, frmMain &w) {
             t.desktop.ExpectForm<dialogs::NodeDialogArgument>();
             t.RightClick(w, t.Body());
             ASSERT_EQ(t.desktop.dialogHost.shown.size(), 1);
         }},
    };
    return rows;
}

class Dirty : public Deeds, public ::testing::WithParamInterface<std::size_t> {};

std::string NameOf(const ::testing::TestParamInfo<std::size_t> &row) {
    std::string name;
    for (const char letter : std::string(Deeds::Rows()[row.param].name))
        if (std::isalnum(static_cast<unsigned char>(letter))) name += letter;
    return name;
}

} // namespace

TEST_P(Dirty, FollowsWhatTheUserDid) {
    const Row &row = Rows()[GetParam()];
    frmMain &window = Prepare();
    ProcessEvents();
    ASSERT_FALSE(window.clsSettings().Dirty);
    row.deed(*this, window);
    ProcessEvents();
    EXPECT_EQ(window.clsSettings().Dirty, row.marks) << row.name;
}

INSTANTIATE_TEST_SUITE_P(AllDeeds, Dirty, ::testing::Range(std::size_t(0), Deeds::Rows().size()), NameOf);

} // namespace mainwindow::testing
