#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"
#include "mainwindow/slices/DroppedFile.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAction>
#include <QCoreApplication>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QTest>
#include <QUrl>

namespace mainwindow::testing {

class Drop : public WindowTest {
protected:
    QString SavedFile(const QString &name, const QByteArray &content) {
        QFile file(MapFile(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    QString SavedPicture(const QString &name, const QSize &size = {40, 20}) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(MapFile(name), "PNG"));
        return MapFile(name);
    }
    // Drags the file to a place on the current surface (twips) and drops it.
    void DropAt(frmMain &window, const QString &path, const QPointF &twips) {
        ProcessEvents();
        const DropOutcome outcome = DropFile(window, path, twips);
        EXPECT_TRUE(outcome.IsTaken());
        hint = outcome.hint;
        ProcessEvents();
    }
    static DropMenu *Menu(frmMain &window) { return window.findChild<DropMenu *>(); }
    void Choose(frmMain &window, int entry) {
        DropMenu &menu = *Menu(window);
        menu.setActiveAction(menu.actions().at(entry));
        QTest::keyClick(&menu, Qt::Key_Return);
        ProcessEvents();
    }
    QString hint; // of the status bar, before the last drop
    static constexpr int kAttach = 0, kPicture = 1, kCancel = 3;
};

TEST_F(Drop, AFileOnANodeIsOfferedThere) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300);
    DropAt(window, SavedPicture(QStringLiteral("R&D.png")), {900, 500});
    EXPECT_EQ(hint, QStringLiteral("Drop the file to attach it to this Node or to show it there"));
    EXPECT_EQ(Status(window), QString());
    ASSERT_NE(Menu(window), nullptr);
    EXPECT_TRUE(Menu(window)->isVisible());
    EXPECT_EQ(Menu(window)->pos(), window.CurrentView().viewport()->mapToGlobal(PixelOf(window, {900, 500})));
    QStringList captions;
    for (const QAction *entry : Menu(window)->actions()) captions << entry->text();
    EXPECT_EQ(captions,
              QStringList({"&Attach R&&D.png to this Node", "Use R&&D.png as &picture", "", "&Cancel"}));
    Choose(window, kCancel);
    EXPECT_EQ(Menu(window), nullptr);
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_EQ(window.clsSettings().Attachments().count(), 0);
}

TEST_F(Drop, AttachingGivesTheNodeAKeyAndItsAttachment) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    const QString file = SavedFile(QStringLiteral("plan.txt"), "words");
    DropAt(window, file, {900, 500});
    EXPECT_FALSE(Menu(window)->actions().at(kPicture)->isEnabled());
    Choose(window, kAttach);
    ASSERT_EQ(window.clsSettings().Attachments().count(), 1);
    const document::cAttachment &attachment = window.clsSettings().Attachments().Item(1);
    EXPECT_EQ(attachment.Node, node.Key());
    EXPECT_FALSE(node.Key().isEmpty());
    EXPECT_EQ(attachment.Filename, file);
    EXPECT_FALSE(attachment.Embed);
    EXPECT_FALSE(attachment.Key.isEmpty());
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_EQ(Status(window), QStringLiteral("plan.txt is attached."));
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
}

TEST_F(Drop, TheSameFileIsAttachedOnce) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    node.SetKey(QStringLiteral("{mine}"));
    const QString file = SavedFile(QStringLiteral("plan.txt"), "words");
    for (int i = 0; i < 2; ++i) {
        DropAt(window, file, {900, 500});
        Choose(window, kAttach);
    }
    EXPECT_EQ(window.clsSettings().Attachments().count(), 1);
    EXPECT_EQ(node.Key(), QStringLiteral("{mine}"));
    EXPECT_EQ(Status(window), QStringLiteral("plan.txt was attached already."));
}

TEST_F(Drop, APictureForANodeIsOneStepAndMarksTheMap) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    DropAt(window, SavedPicture(QStringLiteral("red.png")), {900, 500});
    Choose(window, kPicture);
    EXPECT_EQ(node.Picture().PixelSize(), QSize(40, 20));
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_TRUE(node.Picture().IsNull());
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
}

TEST_F(Drop, ANodeThatGoesWhileTheMenuIsOpenTakesNothing) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    DropAt(window, SavedPicture(QStringLiteral("red.png")), {900, 500});
    window.CurrentSurface().Remove(node);
    Choose(window, kPicture);
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Drop, APictureBesideTheNodesBecomesANodeOfItsOwn) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300).SetSelected(true);
    DropAt(window, SavedPicture(QStringLiteral("red.png")), {6000, 4500});
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 2);
    const diagram::Node &node = window.CurrentSurface().Nodes().Item(2);
    EXPECT_EQ(node.Picture().PixelSize(), QSize(40, 20));
    EXPECT_EQ(node.Bounds(), QRectF(5700, 4350, 600, 300));
    EXPECT_EQ(document::GetTag(node, document::tags::kLevel), window.clsSettings().Levels().Item(2).Key);
    EXPECT_EQ(window.CurrentSurface().SelectedNodes().size(), 1u);
    EXPECT_TRUE(node.Selected());
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Drop, AMapBesideTheNodesOpens) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300);
    document::MarkSaved(window);
    const QString map = SavedMap(QStringLiteral("plan.map"), 3);
    DropAt(window, map, {6000, 4500});
    EXPECT_EQ(hint, QStringLiteral("Drop a Map to open it, a picture to add it as a Node"));
    EXPECT_EQ(window.clsSettings().Database(), map);
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 3);
}

TEST_F(Drop, AMapOnANodeIsOfferedAsAttachmentLikeAnyFile) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300);
    DropAt(window, SavedMap(QStringLiteral("plan.map"), 3), {900, 500});
    ASSERT_NE(Menu(window), nullptr);
    EXPECT_FALSE(Menu(window)->actions().at(kPicture)->isEnabled());
    Choose(window, kCancel);
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Drop, ADamagedPictureIsTold) {
    frmMain &window = NewWindow();
    desktop.ExpectMessage(QStringLiteral("torn.png holds no picture that can be shown."));
    DropAt(window, SavedFile(QStringLiteral("torn.png"), "\x89PNG\r\n\x1a\n???"), {6000, 4500});
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 0);
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(Drop, WhatIsNoMapIsTold) {
    frmMain &window = NewWindow();
    AddNode(window, 300, 300);
    document::MarkSaved(window);
    const QString files[] = {SavedFile(QStringLiteral("notes.txt"), "no map"),
                             SavedFile(QStringLiteral("empty.map"), ""), QFileInfo(MapFile("x")).path()};
    for (const QString &file : files) {
        desktop.ExpectMessageContaining(QFileInfo(file).fileName());
        DropAt(window, file, {6000, 4500});
        ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    }
}

TEST_F(Drop, WhatIsDraggedAwayAgainLeavesNoHint) {
    frmMain &window = NewWindow();
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(SavedPicture(QStringLiteral("red.png")))});
    QDragEnterEvent enter({200, 200}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QDragMoveEvent move({200, 200}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &move);
    EXPECT_FALSE(Status(window).isEmpty());
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&window, &leave);
    EXPECT_EQ(Status(window), QString());
}

TEST_F(Drop, ATextThatIsBeingTypedIsKept) {
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 300, 300);
    node.SetSelected(true);
    Press(window, QStringLiteral("F2"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("typed"));
    DropAt(window, SavedPicture(QStringLiteral("red.png")), {6000, 4500});
    EXPECT_EQ(node.Text(), QStringLiteral("typed"));
    EXPECT_FALSE(window.CurrentView().IsEditing());
}

} // namespace mainwindow::testing
