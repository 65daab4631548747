#include "diagram/export/Export.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/render/Renderer.h"
#include "diagram/view/PictureMime.h"
#include "diagram/view/SurfaceView.h"
#include "document/DoSave.h"
#include "document/UnsavedWork.h"
#include "tests/mainwindow/WindowTest.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QMimeData>
#include <QTest>
#include <QTextEdit>

namespace mainwindow::testing {

namespace {

const QString kBoth = QStringLiteral("first\r\nsecond");

} // namespace

// A window of two slices with a node of two texts on each.
struct Display : WindowTest {
    frmMain &window = NewWindow();
    diagram::Node *node = nullptr, *other = nullptr;

    Display() {
        desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Two"));
        Run("mnuEditSlicesInsert");
        window.TabStrip().SetTheTab(1);
        other = &AddOne();
        window.TabStrip().SetTheTab(0);
        node = &AddOne();
        window.clsSettings().Dirty = false;
    }
    diagram::Node &AddOne() {
        diagram::Node &added = AddNode(window, 300, 300, QStringLiteral("first"));
        added.SetEvent(QStringLiteral("second"));
        return added;
    }
    void Run(const char *key) { window.SmartMenuXP1_Click(QLatin1String(key)); }
    void ClickDisplay() { window.ClickFormatButton(QStringLiteral("DISPLAY")); }
    // Which of the texts a picture of the slice shows.
    QString Seen() {
        return WordsOf(diagram::ExportPicture(window.CurrentSurface(), diagram::PictureFormat::Svg));
    }
    static QString WordsOf(const QByteArray &svg) {
        QStringList words;
        for (const char *word : {"first", "second", "other"})
            if (svg.contains(word)) words << QLatin1String(word);
        return words.join(u' ');
    }
    void EditInPlace(const QString &typed) {
        node->SetSelected(true);
        Press(window, QStringLiteral("F2"));
        QTest::keyClicks(QApplication::focusWidget(), typed);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    }
};

TEST_F(Display, ShowsBothTextsOfAllSlicesAndChangesNone) {
    diagram::Node &alone = AddNode(window, 3000, 0, QStringLiteral("alone"));
    ClickDisplay();
    EXPECT_TRUE(window.DisplayPressed());
    for (const diagram::Node *each : {node, other}) {
        EXPECT_EQ(each->ShownText(), kBoth);
        EXPECT_EQ(each->Text(), QStringLiteral("first"));
    }
    EXPECT_EQ(alone.ShownText(), QStringLiteral("alone"));
    ClickDisplay();
    EXPECT_FALSE(window.DisplayPressed());
    for (const diagram::Node *each : {node, other}) EXPECT_EQ(each->ShownText(), QStringLiteral("first"));
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Display, IsPaintedAtOnceAndTakenAwayAtOnce) {
    const auto picture = [&] {
        ProcessEvents();
        return window.CurrentView().grab().toImage();
    };
    const QImage before = picture();
    ClickDisplay();
    EXPECT_NE(picture(), before);
    ClickDisplay();
    EXPECT_EQ(picture(), before);
}

TEST_F(Display, ANodeThatTakesTheSizeOfItsTextIsPaintedWithRoomForBoth) {
    node->SetAutoSize(3);
    const QRectF box = node->Bounds();
    ClickDisplay();
    ProcessEvents();
    EXPECT_EQ(node->Bounds(), box);
    EXPECT_EQ(node->ShownBounds().topLeft(), box.topLeft());
    EXPECT_GT(node->ShownBounds().height(), 1.8 * box.height());
    EXPECT_TRUE(window.CurrentView().TheRenderer().TextFits(*node));
    Click(window, node->ShownBounds().center() + QPointF(0, node->ShownBounds().height() / 3));
    EXPECT_TRUE(node->Selected());
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    ClickDisplay();
    EXPECT_EQ(node->ShownBounds(), box);
}

TEST_F(Display, ASecondTextThatChangesMeanwhileIsPaintedAtOnce) {
    ClickDisplay();
    ProcessEvents();
    const QImage before = window.CurrentView().grab().toImage();
    node->SetEvent(QStringLiteral("third"));
    ProcessEvents();
    EXPECT_NE(window.CurrentView().grab().toImage(), before);
}

TEST_F(Display, IsNoStepOfUndoAndLeavesRedoAlone) {
    node->SetSelected(true);
    document::MarkSaved(window);
    window.tlbFormat_ButtonClick(QStringLiteral("BOLD"));
    Run("mnuEditUndo");
    ClickDisplay();
    ClickDisplay();
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
    EXPECT_TRUE(window.CurrentSurface().CanRedo());
    EXPECT_FALSE(document::HasUnsavedWork(window));
}

TEST_F(Display, UndoAndRedoAcrossTheButtonDoubleNoText) {
    ClickDisplay();
    EditInPlace(QStringLiteral("other"));
    ClickDisplay();
    Run("mnuEditUndo");
    EXPECT_EQ(node->Text(), QStringLiteral("first"));
    ClickDisplay();
    Run("mnuEditRedo");
    EXPECT_EQ(node->ShownText(), QStringLiteral("other\r\nsecond"));
    ClickDisplay();
    EXPECT_EQ(node->Text(), QStringLiteral("other"));
    EXPECT_EQ(node->Event(), QStringLiteral("second"));
}

TEST_F(Display, InPlaceTheFirstTextIsEdited) {
    ClickDisplay();
    node->SetSelected(true);
    Press(window, QStringLiteral("F2"));
    auto *editor = qobject_cast<QTextEdit *>(QApplication::focusWidget());
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->toPlainText(), QStringLiteral("first"));
    QTest::keyClick(editor, Qt::Key_Escape);
    EditInPlace(QStringLiteral("first\r"));
    EXPECT_EQ(node->ShownText(), QStringLiteral("first\r\n\r\nsecond"));
    EXPECT_EQ(node->Event(), QStringLiteral("second"));
}

TEST_F(Display, ASaveWithItPressedLeavesTheMapCleanAndTheFileWithoutIt) {
    const QString path = MapFile(QStringLiteral("a.map"));
    window.clsSettings().SetDatabase(path);
    ClickDisplay();
    Run("mnuFileSave");
    EXPECT_TRUE(window.DisplayPressed());
    EXPECT_FALSE(document::MustAskBeforeLosing(window));
    EXPECT_EQ(node->ShownText(), kBoth);
    frmMain &second = NewWindow();
    window.clsSettings().SetDatabase(QString()); // else the open would only bring this window forward
    second.DoOpen(path, false);
    for (const int slot : {0, 1}) {
        const diagram::Node &read = second.AddFlow1()[slot].Nodes().Item(1);
        EXPECT_EQ(read.Text(), QStringLiteral("first")) << slot;
        EXPECT_EQ(read.Event(), QStringLiteral("second")) << slot;
    }
}

TEST_F(Display, ACopyReleasesItOnAllSlicesAndTakesTheBareTexts) {
    for (const char *command : {"mnuEditCopy", "mnuEditCut"}) {
        window.CurrentSurface().Nodes().Item(1).SetSelected(true);
        ClickDisplay();
        Run(command);
        EXPECT_FALSE(window.DisplayPressed());
        EXPECT_EQ(other->ShownText(), QStringLiteral("first"));
        const QMimeData *held = QApplication::clipboard()->mimeData();
        EXPECT_EQ(held->text(), QStringLiteral("first"));
        EXPECT_EQ(WordsOf(held->data(QStringLiteral("image/svg+xml"))), QStringLiteral("first"));
    }
    Run("mnuEditPaste");
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(1).Text(), QStringLiteral("first"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(1).Event(), QStringLiteral("second"));
}

TEST_F(Display, PicturesShowWhatIsSeenAndFilesHoldTheBareTexts) {
    EXPECT_EQ(Seen(), QStringLiteral("first"));
    ClickDisplay();
    EXPECT_EQ(Seen(), QStringLiteral("first second"));
    const auto mime = diagram::SurfaceToMime(window.CurrentSurface());
    EXPECT_EQ(WordsOf(mime->data(QStringLiteral("image/svg+xml"))), QStringLiteral("first second"));
    diagram::SaveFile(window.CurrentSurface(), MapFile(QStringLiteral("a.flt")));
    diagram::Surface read;
    diagram::LoadFile(read, MapFile(QStringLiteral("a.flt")));
    EXPECT_EQ(read.Nodes().Item(1).ShownText(), QStringLiteral("first"));
}

TEST_F(Display, ReachesSlicesThatComeLater) {
    ClickDisplay();
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Three"));
    Run("mnuEditSlicesInsert");
    for (const int slot : window.AddFlow1().Indices()) {
        diagram::Surface &surface = window.AddFlow1()[slot];
        diagram::Node &added = surface.Nodes().Add(0, 0, 100, 100);
        added.SetEvent(QStringLiteral("late"));
        EXPECT_EQ(added.ShownText(), QStringLiteral("\r\nlate")) << slot;
        for (const diagram::Node &each : surface.Nodes()) EXPECT_FALSE(each.Text().contains(u'\n')) << slot;
    }
    window.DoOpen(SavedMap(QStringLiteral("b.map"), 1, 2), true);
    EXPECT_FALSE(frmMain::Forms().back()->AddFlow1()[1].Screen().ShowsBothTexts())
        << "another window has its own";
}

} // namespace mainwindow::testing
