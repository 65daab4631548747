// The package holds together, whatever the map holds.
#include "tests/output/powerpoint/PptxTest.h"

#include <QSet>

namespace powerpoint::testing {

namespace {

QString FolderOf(const QString &name) { return name.left(name.lastIndexOf(u'/') + 1); }

// The part that relations of this name belong to; empty for the package.
QString OwnerOf(QString relations) {
    relations.remove(QStringLiteral("_rels/")).chop(5);
    return relations;
}

pugi::xml_document TreeOf(const Parts &parts, const QString &name) {
    pugi::xml_document tree;
    const QByteArray &bytes = parts.at(name);
    const auto result = tree.load_buffer(bytes.constData(), std::size_t(bytes.size()));
    EXPECT_TRUE(result) << qPrintable(name) << ": " << result.description();
    return tree;
}

// Every relation leads to a part, and every part but the list of kinds is led to.
void ExpectRelationsResolve(const Parts &parts) {
    QSet<QString> reached;
    for (const auto &[name, bytes] : parts) {
        if (!name.endsWith(QLatin1String(".rels"))) continue;
        const QString owner = OwnerOf(name);
        EXPECT_TRUE(owner.isEmpty() || parts.count(owner)) << qPrintable(name);
        const pugi::xml_document tree = TreeOf(parts, name);
        for (const QString &target : TextsAt(tree, "/Relationships/Relationship/@Target")) {
            const QString part = QDir::cleanPath(FolderOf(owner) + target);
            EXPECT_TRUE(parts.count(part)) << qPrintable(name) << " leads to " << qPrintable(part);
            reached << part;
        }
    }
    for (const auto &[name, bytes] : parts) {
        const bool isContent = !name.endsWith(QLatin1String(".rels")) && !name.startsWith(u'[');
        EXPECT_TRUE(!isContent || reached.contains(name)) << qPrintable(name);
    }
}

void ExpectKindsAreTold(const Parts &parts) {
    const pugi::xml_document types = TreeOf(parts, QStringLiteral("[Content_Types].xml"));
    QStringList named = TextsAt(types, "//Override/@PartName");
    const QStringList endings = TextsAt(types, "//Default/@Extension");
    for (const auto &[name, bytes] : parts) {
        if (name.startsWith(u'[')) continue;
        const bool isTold = name.endsWith(QLatin1String(".xml")) ? named.removeAll(u'/' + name) == 1
                                                                 : endings.contains(name.section(u'.', -1));
        EXPECT_TRUE(isTold) << qPrintable(name);
    }
    EXPECT_TRUE(named.isEmpty()) << qPrintable(named.join(u' '));
}

// Relations that elements name are there, and identities of shapes stand once a part.
void ExpectIdentities(const Parts &parts) {
    for (const auto &[name, bytes] : parts) {
        if (!name.endsWith(QLatin1String(".xml"))) continue;
        const pugi::xml_document tree = TreeOf(parts, name);
        const QString relations = FolderOf(name) + "_rels/" + name.mid(FolderOf(name).size()) + ".rels";
        QStringList known;
        if (parts.count(relations)) known = TextsAt(TreeOf(parts, relations), "//Relationship/@Id");
        for (const char *path : {"//@r:id", "//@r:embed"})
            for (const QString &id : TextsAt(tree, path))
                EXPECT_TRUE(known.contains(id)) << qPrintable(name) << " " << qPrintable(id);
        const QStringList ids = TextsAt(tree, "//p:cNvPr/@id");
        EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), ids.size()) << qPrintable(name);
        for (const char *path : {"//a:stCxn/@id", "//a:endCxn/@id"})
            for (const QString &id : TextsAt(tree, path)) EXPECT_TRUE(ids.contains(id)) << qPrintable(id);
    }
}

void ExpectWhole(const Parts &parts) {
    ASSERT_GT(parts.size(), 10u);
    ExpectRelationsResolve(parts);
    ExpectKindsAreTold(parts);
    ExpectIdentities(parts);
}

// Texts that break whoever doesn't expect them.
const QStringList &AwkwardTexts() {
    static const QStringList texts{
        QStringLiteral("<p:sp> & \"quotes\" ]]>"),
        QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D \xD8\xB3\xD9\x84\xD8\xA7\xD9\x85"),
        QString::fromUtf8(
            "\xE4\xB8\xAD\xE6\x96\x87 \xE0\xA4\xB9\xE0\xA4\xBF \xE0\xB9\x84\xE0\xB8\x97\xE0\xB8\xA2"),
        QString::fromUtf8("\xF0\x9F\x9A\xA2 \xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7"),
        QString(QChar(0)) + QStringLiteral("\x01\x1F\x0B\x0C") + QChar(0xD83D) + QChar(0xFFFF),
        QStringLiteral("_x0041_ \\ %1 %2"),
        QStringLiteral("\r\n\r\n"),
        QString(100000, u'w'),
    };
    return texts;
}

// Recognised by its beginning, and broken behind it.
diagram::Picture DamagedPicture() {
    QByteArray bytes = document::testing::OneColour(qRgb(9, 9, 9), 64).Bytes();
    return diagram::Picture::FromBytes(bytes.left(bytes.size() / 2));
}

} // namespace

TEST_F(PptxTest, APackageWithoutNodesHoldsTogether) {
    ExpectWhole(Made(kAllBlank));
    ExpectWhole(Made(kAllTitled));
    ExpectWhole(Made(kAllShapes));
}

TEST_F(PptxTest, APackageOfAwkwardTextsHoldsTogether) {
    window->TabStrip().SetCaption(AwkwardTexts().join(u' ').left(500));
    AddSlice(QString()), AddSlice(QString());
    diagram::Node *former = nullptr;
    for (const QString &text : AwkwardTexts()) {
        diagram::Node &node = AddNode(former ? former->Left() + 3000 : 0, 0, text);
        node.SetFont(diagram::Font(QStringLiteral("<\"\x01>"), 8));
        if (former) Connect(*former, node).SetText(text.left(1000));
        former = &node;
    }
    ExpectWhole(Made(kAllTitled));
    ExpectWhole(Made({kLayoutTitle, false, true}));
}

// The numbers of the format are whole and have bounds.
TEST_F(PptxTest, APackageOfAbsurdSizesHoldsTogether) {
    diagram::Node &dot = AddNode(0, 0, QStringLiteral("dot")),
                  &far = AddNode(1e7, -1e7, QStringLiteral("far"));
    dot.SetBounds(0, 0, 0, 0);
    far.SetDrawWidth(32767), far.SetFont(diagram::Font(QStringLiteral("Arial"), diagram::kLargestFontSize));
    Connect(dot, far).SetArrowDest(16), Connect(far, far).SetStyle(13), Connect(dot, dot);
    for (const PowerpointOptions &options : {kAllBlank, kAllShapes}) {
        const Parts made = Made(options);
        ExpectWhole(made);
        const pugi::xml_document slide = TreeOf(made, SlideName(1));
        for (const char *path :
             {"//@x", "//@y", "//@cx", "//@cy", "//a:path/@w", "//a:ln/@w", "//@h", "//@sz"})
            for (const QString &number : TextsAt(slide, path)) {
                bool whole = number.startsWith(u'x') || number.startsWith(u'y'); // a guide
                if (!whole) std::ignore = number.toInt(&whole);
                EXPECT_TRUE(whole) << path << " " << qPrintable(number);
            }
    }
}

TEST_F(PptxTest, DamagedPicturesAreLeftOut) {
    AddNode(0, 0, QStringLiteral("damaged")).SetPicture(DamagedPicture());
    AddNode(0, 3000, QStringLiteral("whole")).SetPicture(document::testing::OneColour(qRgb(1, 2, 3), 16));
    const Parts made = Made(kAllShapes);
    ExpectWhole(made);
    const pugi::xml_document &slide = Part(kAllShapes);
    EXPECT_EQ(TextsAt(slide, "//p:pic").size(), 1);
    EXPECT_EQ(TextsAt(slide, "//a:t"), (QStringList{"damaged", "whole"}));
}

TEST_F(PptxTest, APictureThatManyNodesHaveStandsOnceInTheFile) {
    for (int i = 0; i < 5; ++i)
        AddNode(i * 3000, 0, QString()).SetPicture(document::testing::OneColour(qRgb(1, 2, 3), 16));
    const Parts made = Made(kAllShapes);
    int pictures = 0;
    for (const auto &[name, bytes] : made) pictures += name.startsWith(QLatin1String("ppt/media/"));
    EXPECT_EQ(pictures, 1);
}

TEST_F(PptxTest, PicturesOfSlicesAreSvgWithPngBehind) {
    AddNode(0, 0, QStringLiteral("idea"));
    const pugi::xml_document &slide = Part(kAllBlank);
    EXPECT_EQ(TextsAt(slide, "//a:blip/@r:embed").size(), 1);
    EXPECT_EQ(TextsAt(slide, "//a:blip/a:extLst/a:ext/asvg:svgBlip/@r:embed").size(), 1);
    EXPECT_TRUE(parts["ppt/media/image1.png"].startsWith("\x89PNG"));
    EXPECT_TRUE(parts["ppt/media/image2.svg"].contains("<svg"));
}

TEST_F(PptxTest, TwoHundredSlicesHoldTogether) {
    for (int i = 1; i < 200; ++i) AddSlice(QStringLiteral("Same")), AddNode(0, 0, QStringLiteral("idea"), i);
    int last = 0;
    ASSERT_TRUE(Create(kAllTitled, [&](int done, int all) {
        EXPECT_EQ(all, 200);
        EXPECT_EQ(done, last + 1);
        return last = done, true;
    }));
    EXPECT_EQ(last, 200);
    const Parts made = PartsOf(support::ReadWholeFile(Target()));
    ExpectWhole(made);
    EXPECT_TRUE(made.count(SlideName(200)));
    EXPECT_FALSE(made.count(SlideName(201)));
}

} // namespace powerpoint::testing
