#include "templates/SaveAsTemplate.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "settings/DeliveredFiles.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"
#include "templates/LoadTemplate.h"
#include "templates/TemplateDb.h"
#include "tests/templates/TemplatesTest.h"

#include <QBuffer>
#include <QImageReader>

namespace templates::testing {

namespace {

class SavingTemplate : public TemplatesTest {
protected:
    void Save(const QString &name = QStringLiteral("A.TEM")) {
        SaveAsTemplate(*window, Flow(), Write(MapFile(QStringLiteral("icon.ico")), Icon()),
                       InTemplates(name));
    }
};

} // namespace

TEST_F(SavingTemplate, HoldsTheSliceAndTheIcon) {
    AddNode(QStringLiteral("Idea"));
    Save();
    diagram::Surface read;
    diagram::LoadBytes(read, ReadMap(InTemplates(QStringLiteral("A.TEM"))).value());
    EXPECT_EQ(Texts(read), QStringList({"Idea"}));
    EXPECT_EQ(ReadImage(InTemplates(QStringLiteral("A.TEM"))), Icon());
    EXPECT_EQ(FilesIn(TempFolder()), QStringList());
}

TEST_F(SavingTemplate, CarriesTheBackgroundInAHiddenNodeThatStays) {
    Flow().SetPicture(OneColour(qRgb(1, 2, 3)));
    Flow().SetBackColor(0x00AABBCC);
    Save();
    const diagram::Node *node = DiagramNode(Flow());
    ASSERT_NE(node, nullptr);
    EXPECT_TRUE(node->Hidden());
    EXPECT_TRUE(node->Marked());
    EXPECT_FALSE(node->Selectable());
    EXPECT_EQ(document::GetTag(*node, document::tags::kTheDate), QStringLiteral("DIAGRAM"));
    EXPECT_TRUE(node->Picture() == Flow().Picture());
    EXPECT_EQ(node->FillColor(), 0x00AABBCCu);
}

TEST_F(SavingTemplate, ASecondTimeTheNodeIsBroughtUpToDate) {
    Save();
    Flow().SetBackColor(0x00112233);
    Save();
    EXPECT_EQ(Flow().Nodes().Count(), 1);
    EXPECT_EQ(DiagramNode(Flow())->FillColor(), 0x00112233u);
}

TEST_F(SavingTemplate, IsNoWorkThatTheMapMustBeSavedFor) {
    AddNode(QStringLiteral("Idea"));
    const diagram::Revision before = Flow().Actions().Revision();
    Save();
    EXPECT_EQ(Flow().Actions().Revision(), before);
    EXPECT_FALSE(Flow().CanUndo());
    EXPECT_FALSE(window->clsSettings().Dirty);
}

TEST_F(SavingTemplate, AnErrorWritesNothing) {
    const auto save = [this] {
        SaveAsTemplate(*window, Flow(), MapFile(QStringLiteral("none.ico")),
                       InTemplates(QStringLiteral("A.TEM")));
    };
    EXPECT_EQ(ErrorOf(save).Number(), support::kErrFileNotFound);
    EXPECT_EQ(FilesIn(InTemplates(QString())), QStringList());
    EXPECT_EQ(FilesIn(TempFolder()), QStringList());
}

TEST_F(SavingTemplate, TheProposedNameIsTheTabsMadeFitForAFile) {
    EXPECT_EQ(ProposedPath(QStringLiteral("Plan 'A' für Öl")),
              InTemplates(QStringLiteral("Plan 'A' für Öl.TEM")));
    const QString path = ProposedPath(QStringLiteral("../up/1:2"));
    EXPECT_TRUE(path.startsWith(InTemplates(QString())));
    EXPECT_TRUE(path.endsWith(QStringLiteral(".TEM")));
    EXPECT_FALSE(support::FileTitle(path).contains(QLatin1Char('/')));
    EXPECT_EQ(QFileInfo(path).absolutePath() + u'/', InTemplates(QString())) << path.toStdString();
    EXPECT_EQ(support::FileTitle(ProposedPath(QString(400, u'x'))).right(4), QStringLiteral(".TEM"));
    EXPECT_FALSE(support::FileTitle(ProposedPath(QString())).isEmpty());
}

TEST_F(SavingTemplate, TheFirstIconOfTheFolderIsProposed) {
    EXPECT_EQ(FirstIcon(), QString());
    const QString own = Write(settings::OwnTemplatesFolder() + QStringLiteral("a.ico"), Icon());
    EXPECT_EQ(FirstIcon(), own);
    Write(InTemplates(QStringLiteral("c.ico")), Icon());
    Write(InTemplates(QStringLiteral("B.ICO")), Icon());
    EXPECT_EQ(FirstIcon(), InTemplates(QStringLiteral("B.ICO")));
}

TEST_F(SavingTemplate, ADrawnIconShowsTheSlice) {
    AddNode(QStringLiteral("Idea")).SetFillColor(support::Rgb(0, 0, 255));
    const QByteArray icon = IconFromDrawing(Flow());
    ASSERT_TRUE(IsIcon(icon));
    QBuffer buffer;
    buffer.setData(icon);
    QImageReader reader(&buffer, "ico");
    QList<int> widths;
    bool showsBlue = false;
    do {
        const QImage image = reader.read();
        widths << image.width();
        const QColor middle = image.pixelColor(image.width() / 4, image.height() / 2);
        showsBlue = showsBlue || (middle.blue() > 150 && middle.red() < 120);
    } while (reader.jumpToNextImage());
    EXPECT_EQ(widths, QList<int>({16, 24, 32, 48, 64, 256}));
    EXPECT_TRUE(showsBlue);
}

TEST_F(SavingTemplate, AnEmptySliceHasAnIconToo) { EXPECT_TRUE(IsIcon(IconFromDrawing(Flow()))); }

TEST_F(SavingTemplate, AMapWithATemplatesHiddenNodeIsSavedAndLoadedAgain) {
    AddNode(QStringLiteral("Idea"));
    Flow().SetBackColor(0x00AABBCC);
    Flow().SetTag(QStringLiteral("|TM_ALIGN=0|MISSING=False")); // as every slice has that was loaded
    Save();
    LoadTemplate(*window, Flow(), InTemplates(QStringLiteral("A.TEM")));
    SaveAs(*window, MapFile(QStringLiteral("plan.map")));
    const auto again = Loaded(MapFile(QStringLiteral("plan.map")));
    document::testing::ExpectSameLines(document::testing::Describe(*again),
                                       document::testing::Describe(*window));
}

} // namespace templates::testing
