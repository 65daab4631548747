// The picture of a node, from a file, the clipboard or a drag.
#include "dialogs/PictureField.h"
#include "document/LastPath.h"
#include "tests/dialogs/NodeDialogTest.h"

#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>

namespace dialogs::testing {

namespace {
const QByteArray kSvg =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20\" height=\"10\"><rect width=\"20\" "
    "height=\"10\" fill=\"red\"/></svg>";
} // namespace

class NodePictures : public NodeDialogTest {
protected:
    void OpenPictures() {
        Open(*node);
        GoTo(kPicturePage);
        Settle();
    }
    QString File(const QString &name, const QByteArray &bytes) {
        QFile file(MapFile(name));
        if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no file");
        file.write(bytes);
        return file.fileName();
    }
    void Browse(const QString &file) {
        desktop.ExpectOpenFile(file);
        Click("cmdBrowse");
    }
    void Drop(const QMimeData &data) {
        QWidget &page = *form->SSIndexTab1()->currentWidget();
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&page, &enter);
        if (!enter.isAccepted()) return;
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&page, &drop);
    }
    void ExpectRefusal(const QString &name) {
        desktop.ExpectMessage(QStringLiteral("%1 holds no picture that can be shown.").arg(name));
    }
    const diagram::Picture &Shown() { return Control<PictureField>("picPicture").Picture(); }
    const diagram::Picture red = document::testing::OneColour(qRgb(255, 0, 0));
};

TEST_F(NodePictures, AreChosenFromFilesOfTheToldKindsAndTodays) {
    document::SetLastPath(QStringLiteral("/maps/"));
    OpenPictures();
    Browse(QString());
    const support::testing::ShownFileDialog &shown = desktop.dialogs.shownFiles.front();
    EXPECT_EQ(
        shown.filter,
        QStringLiteral("All Picture Types|*.bmp;*.wmf;*.emf;*.gif;*.jpg;*.jpeg|Bitmaps|*.bmp|Metafiles|*.wmf|"
                       "Enhanced Metafiles|*.emf|GIF|*.gif|JPEG|*.jpg;*.jpeg|All Pictures with PNG and SVG|"
                       "*.png;*.svg;*.bmp;*.wmf;*.emf;*.gif;*.jpg;*.jpeg"));
    EXPECT_EQ(shown.filterRow, 7);
    EXPECT_EQ(shown.flags, 2052 + support::fileflags::kExplorer);
    EXPECT_EQ(shown.startFolder, QStringLiteral("/maps/"));
    EXPECT_TRUE(Shown().IsNull());
}

TEST_F(NodePictures, AFileIsTakenAsItIs) {
    OpenPictures();
    Browse(File(QStringLiteral("a.svg"), kSvg));
    EXPECT_EQ(Shown().Bytes(), kSvg);
    EXPECT_TRUE(node->Picture().IsNull());
    Click("OKButton");
    EXPECT_EQ(node->Picture().Bytes(), kSvg);
}

TEST_F(NodePictures, WhatIsNoPictureIsRefusedAndTheFormerStays) {
    node->SetPicture(red);
    OpenPictures();
    ExpectRefusal(QStringLiteral("text.png"));
    Browse(File(QStringLiteral("text.png"), "plain text"));
    ExpectRefusal(QStringLiteral("missing.png"));
    Browse(MapFile(QStringLiteral("missing.png")));
    ExpectRefusal(QStringLiteral("cut.png"));
    QByteArray whole = document::testing::OneColour(qRgb(1, 2, 3), 300).Bytes();
    Browse(File(QStringLiteral("cut.png"), whole.left(60)));
    EXPECT_EQ(Shown(), red);
}

TEST_F(NodePictures, APictureOfTooManyPixelsIsRefused) {
    OpenPictures();
    ExpectRefusal(QStringLiteral("huge.svg"));
    Browse(
        File(QStringLiteral("huge.svg"), QByteArray(kSvg).replace("width=\"20\" height=\"10\"><",
                                                                  "width=\"200000\" height=\"100000\"><")));
    EXPECT_TRUE(Shown().IsNull());
}

TEST_F(NodePictures, CanBeClearedAndGoToAllSelectedNodes) {
    diagram::Node &other = AddNode();
    other.SetSelected(true);
    node->SetPicture(red);
    other.SetPicture(red);
    OpenPictures();
    Click("cmdClear");
    EXPECT_TRUE(Shown().IsNull());
    EXPECT_FALSE(Control<QPushButton>("cmdClear").isEnabled());
    Click("OKButton");
    EXPECT_TRUE(node->Picture().IsNull());
    EXPECT_TRUE(other.Picture().IsNull());
}

TEST_F(NodePictures, ArePasted) {
    OpenPictures();
    QApplication::clipboard()->setImage(red.Image());
    form->activateWindow();
    Control<QPushButton>("cmdBrowse").setFocus();
    Settle();
    QTest::keySequence(&Control<QPushButton>("cmdBrowse"), QKeySequence::Paste);
    EXPECT_EQ(Shown().PixelSize(), QSize(4, 4));
    QApplication::clipboard()->setText(QStringLiteral("words"));
    ExpectRefusal(QStringLiteral("The clipboard"));
    Click("cmdPaste");
    EXPECT_EQ(Shown().PixelSize(), QSize(4, 4));
}

TEST_F(NodePictures, AFileOfADrawingIsPastedAsItIs) {
    OpenPictures();
    auto *data = new QMimeData;
    data->setData(QStringLiteral("image/svg+xml"), kSvg);
    data->setImageData(red.Image());
    QApplication::clipboard()->setMimeData(data);
    Click("cmdPaste");
    EXPECT_EQ(Shown().Bytes(), kSvg);
}

TEST_F(NodePictures, AreDropped) {
    OpenPictures();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(File(QStringLiteral("a.svg"), kSvg))});
    Drop(data);
    EXPECT_EQ(Shown().Bytes(), kSvg);
    QMimeData words;
    words.setText(QStringLiteral("words"));
    Drop(words);
    QMimeData address;
    address.setUrls({QUrl(QStringLiteral("http://example.com/a.png"))});
    Drop(address);
    EXPECT_EQ(Shown().Bytes(), kSvg);
    QMimeData noPicture;
    noPicture.setUrls({QUrl::fromLocalFile(File(QStringLiteral("a.txt"), "x"))});
    ExpectRefusal(QStringLiteral("a.txt"));
    Drop(noPicture);
}

TEST_F(NodePictures, AreShownInTheSampleBeforeTheyAreApplied) {
    OpenPictures();
    Browse(File(QStringLiteral("a.svg"), kSvg));
    EXPECT_EQ(form->Sample()->Node().Picture().Bytes(), kSvg);
}

} // namespace dialogs::testing
