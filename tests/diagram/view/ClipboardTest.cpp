#include "diagram/export/Export.h"
#include "diagram/format/SurfaceFile.h"
#include "diagram/view/PictureMime.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace diagram::testing {

class Clipboard : public ViewTest {
protected:
    Clipboard() : a(AddNode("a", 50, 50)), b(AddNode("b", 250, 50)), link(AddLink(a, b)) {
        a.SetText(QStringLiteral("first\r\nline"));
        b.SetText(QStringLiteral("second"));
        Settle();
    }
    void Hold(const char *type, const QByteArray &bytes) {
        auto *data = new QMimeData; // the clipboard takes it over
        data->setData(QLatin1String(type), bytes);
        QApplication::clipboard()->setMimeData(data);
    }
    // What the view tells in passing meanwhile.
    std::vector<Hint> HintsOf(const std::function<void()> &action) {
        std::vector<Hint> hints;
        const auto told =
            QObject::connect(view.get(), &SurfaceView::HintShown, [&](Hint hint) { hints.push_back(hint); });
        action();
        QObject::disconnect(told);
        return hints;
    }
    const QMimeData &Held() const { return *QApplication::clipboard()->mimeData(); }
    Node &a, &b;
    Link &link;
};

TEST_F(Clipboard, CopyAndPaste_GivesTheNodesWithTheLinkBetweenThem) {
    a.SetSelected(true);
    b.SetSelected(true);
    view->Copy();
    EXPECT_TRUE(view->CanPaste());
    EXPECT_FALSE(surface.CanUndo());
    view->Paste();
    EXPECT_EQ(surface.Nodes().Count(), 4);
    EXPECT_EQ(surface.Links().size(), 2U);
    ASSERT_EQ(surface.SelectedNodes().size(), 2U);
    EXPECT_FALSE(a.Selected());
    EXPECT_EQ(surface.SelectedNodes()[0]->Text(), a.Text());
    EXPECT_NE(surface.SelectedNodes()[0]->Bounds(), a.Bounds()) << "hides what it was copied from";
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(Clipboard, PastedTwice_StandsBesideItself) {
    a.SetSelected(true);
    view->Copy();
    view->Paste();
    const QRectF first = surface.SelectedNode()->Bounds();
    view->Paste();
    EXPECT_NE(surface.SelectedNode()->Bounds(), first);
}

TEST_F(Clipboard, Copy_CarriesPicturesAndText) {
    a.SetSelected(true);
    b.SetSelected(true);
    view->Copy();
    EXPECT_TRUE(Held().hasFormat(QString::fromLatin1(kSelectionMimeType)));
    EXPECT_EQ(Held().text(), QStringLiteral("first line\nsecond"));
    const QImage png = QImage::fromData(Held().data(QStringLiteral("image/png")), "png");
    EXPECT_GT(png.width(), 300);
    EXPECT_TRUE(Held().data(QStringLiteral("image/svg+xml")).contains("<svg"));
    EXPECT_EQ(qvariant_cast<QImage>(Held().imageData()).size(), png.size());
}

TEST_F(Clipboard, CopyOfNothing_LeavesTheClipboard) {
    QApplication::clipboard()->setText(QStringLiteral("kept"));
    view->Copy();
    EXPECT_EQ(Held().text(), QStringLiteral("kept"));
}

TEST_F(Clipboard, LinksAlone_LeaveTheClipboardAndThemselvesAndSayWhy) {
    QApplication::clipboard()->setText(QStringLiteral("kept"));
    AddLink(a, b).SetSelected(true);
    const std::size_t links = surface.Links().size();
    const std::vector<Hint> hints = HintsOf([&] {
        EXPECT_FALSE(view->Copy());
        EXPECT_FALSE(view->Cut());
    });
    EXPECT_EQ(Held().text(), QStringLiteral("kept"));
    EXPECT_EQ(surface.Links().size(), links);
    EXPECT_EQ(hints, std::vector<Hint>(2, Hint::CopyNeedsNode));
}

TEST_F(Clipboard, PasteThatCantBeDone_SaysWhy) {
    const auto paste = [&] { EXPECT_FALSE(view->Paste()); };
    QApplication::clipboard()->clear();
    EXPECT_EQ(HintsOf(paste), std::vector<Hint>{Hint::NothingToPaste});
    QApplication::clipboard()->setText(QStringLiteral(" \n "));
    EXPECT_EQ(HintsOf(paste), std::vector<Hint>{Hint::NothingToPaste});
    QApplication::clipboard()->setText(QStringLiteral("line\n").repeated(2001));
    EXPECT_EQ(HintsOf(paste), std::vector<Hint>{Hint::TooManyLines});
    Hold(kSelectionMimeType, "no nodes");
    EXPECT_EQ(HintsOf(paste), std::vector<Hint>{Hint::CantPaste});
    QApplication::clipboard()->setText(QStringLiteral("line"));
    EXPECT_EQ(HintsOf([&] { EXPECT_TRUE(view->Paste()); }), std::vector<Hint>());
}

TEST_F(Clipboard, Cut_IsOneStep) {
    a.SetSelected(true);
    view->Cut();
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(UndoSteps(), 1);
    view->Paste();
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_EQ(surface.SelectedNode()->Bounds(), QRectF(750, 750, 1500, 900));
}

TEST_F(Clipboard, PlainText_GivesOneNodeALine) {
    QApplication::clipboard()->setText(QStringLiteral("one\r\n\n  two \nthree"));
    view->Paste();
    ASSERT_EQ(surface.SelectedNodes().size(), 3U);
    EXPECT_EQ(surface.SelectedNodes()[0]->Text(), QStringLiteral("one"));
    EXPECT_EQ(surface.SelectedNodes()[1]->Text(), QStringLiteral("two"));
    EXPECT_EQ(surface.SelectedNodes()[2]->Text(), QStringLiteral("three"));
    EXPECT_GT(surface.SelectedNodes()[1]->Top(), surface.SelectedNodes()[0]->Top());
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterAddNode"), 3);
}

TEST_F(Clipboard, Image_GivesANodeWithThatPicture) {
    QImage image(64, 32, QImage::Format_RGB32);
    image.fill(Qt::green);
    QApplication::clipboard()->setImage(image);
    view->Paste();
    Node *node = surface.SelectedNode();
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->Picture().PixelSize(), QSize(64, 32));
    EXPECT_EQ(node->Shape(), 1) << "a rectangle cuts no corner off";
    EXPECT_NEAR(node->Width() / node->Height(), 2, 0.01);
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_EQ(events.Count("AfterAddNode"), 1);
}

TEST_F(Clipboard, DamagedData_ChangeNothingAndRaiseError) {
    a.SetSelected(true);
    QByteArray bytes = SaveSelection(surface);
    bytes.truncate(bytes.size() / 2);
    Hold(kSelectionMimeType, bytes);
    view->Paste();
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_TRUE(a.Selected());
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.details.filter(QStringLiteral("Error 321")).size(), 1);
}

TEST_F(Clipboard, PasteOutOfSight_ComesIntoSight) {
    a.SetSelected(true);
    view->Copy();
    AddNode("far", 4000, 4000);
    Settle();
    view->EnsureVisible(QRectF(4000 * 15, 4000 * 15, 1500, 900));
    Settle();
    view->Paste();
    const QRectF seen(view->ToSurface(QPointF(0, 0)), view->ToSurface(QPointF(800, 600)));
    EXPECT_TRUE(seen.intersects(surface.SelectedNode()->Bounds()));
}

TEST_F(Clipboard, Metafile_GivesANodeThatKeepsItsBytes) {
    for (const auto &[type, kind] :
         {std::pair("image/x-emf", vector::MetafileKind::Emf), {"image/x-wmf", vector::MetafileKind::Wmf}}) {
        const QByteArray bytes = ExportMetafile(surface, kind);
        Hold(type, bytes);
        view->Paste();
        Node *node = surface.SelectedNode();
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->Picture().Bytes(), bytes);
        EXPECT_NEAR(node->Width(), node->Picture().SizeInTwips().width(), 1);
    }
}

TEST_F(Clipboard, HostilePictures_ChangeNothingAndRaiseError) {
    for (const QByteArray &bytes : {QByteArray(), QByteArray("\x89PNG\r\n\x1A\n", 8), QByteArray("<svg")}) {
        Hold("image/png", bytes);
        view->Paste();
    }
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_FALSE(surface.CanUndo());
    EXPECT_EQ(events.details.filter(QStringLiteral("Error 481")).size(), 3);
}

TEST_F(Clipboard, TooManyLines_AreRefusedWithTheirNumber) {
    QApplication::clipboard()->setText(QStringLiteral("line\n").repeated(2001));
    view->Paste();
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_EQ(events.details.filter(QStringLiteral("Error 6")).size(), 1);
    QApplication::clipboard()->setText(QStringLiteral("line\n\n").repeated(2000));
    view->Paste();
    EXPECT_EQ(surface.Nodes().Count(), 2002);
}

TEST_F(Clipboard, ALineOfAMegabyte_IsOneNode) {
    QApplication::clipboard()->setText(QString(1 << 20, u'x'));
    view->Paste();
    ASSERT_EQ(surface.SelectedNodes().size(), 1U);
    EXPECT_EQ(surface.SelectedNode()->Text().size(), 1 << 20);
}

TEST_F(Clipboard, AnotherWindowPastesWhatThisOneCopied) {
    a.SetSelected(true);
    b.SetSelected(true);
    a.SetKey(QStringLiteral("key"));
    view->Copy();
    Surface other;
    SurfaceView otherView(other);
    otherView.resize(800, 600);
    otherView.Paste();
    EXPECT_EQ(other.Nodes().Count(), 2);
    EXPECT_EQ(other.Links().size(), 1U);
}

TEST_F(Clipboard, PictureOfTheSurface_IsOfferedInEveryForm) {
    surface.SetBackColor(support::Rgb(250, 240, 230));
    PictureToClipboard(surface);
    EXPECT_EQ(vector::ReadMetafileHead(Held().data(QStringLiteral("image/x-emf")))->kind,
              vector::MetafileKind::Emf);
    EXPECT_EQ(Held().data(QStringLiteral("image/emf")), Held().data(QStringLiteral("image/x-emf")));
    EXPECT_EQ(vector::ReadMetafileHead(Held().data(QStringLiteral("image/wmf")))->kind,
              vector::MetafileKind::Wmf);
    EXPECT_TRUE(Held().data(QStringLiteral("image/svg+xml")).contains("first"));
    const QImage image = qvariant_cast<QImage>(Held().imageData());
    EXPECT_EQ(image.size(), ExportImage(surface).size());
    EXPECT_EQ(image.pixel(0, 0), qRgb(250, 240, 230));
}

TEST_F(Clipboard, PictureOfTheSurface_ShowsWhatWasThereThen) {
    PictureToClipboard(surface);
    a.SetText(QStringLiteral("changed"));
    EXPECT_TRUE(Held().data(QStringLiteral("image/svg+xml")).contains("first"));
}

} // namespace diagram::testing
