// Slices as native shapes.
#include "diagram/model/Calendar.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/Shapes.h"
#include "tests/output/powerpoint/PptxTest.h"

#include <gmock/gmock.h>

namespace powerpoint::testing {

using ::testing::ElementsAre;

namespace {

// EMU a twip on a slide whose picture is as wide as PlacePicture makes it.
double EmuPerTwip(diagram::Surface &surface) {
    const QSizeF size = diagram::PictureSize(surface);
    return PlacePicture(PictureRoom(kLayoutBlank, kWideSlide), size).width() * 12700 / size.width();
}

} // namespace

TEST_F(PptxTest, ANodeIsAShapeWithItsText) {
    diagram::Node &node = AddNode(0, 0, QStringLiteral("Plan\r\nmore"));
    node.SetFillColor(support::Rgb(1, 2, 3)), node.SetBorderColor(support::Rgb(4, 5, 6));
    node.SetForeColor(support::Rgb(7, 8, 9)), node.SetAlignment(3);
    node.SetFont(diagram::Font(QStringLiteral("Georgia"), 12, true, true, true, true));
    const pugi::xml_document &slide = Part(kAllShapes);
    EXPECT_EQ(TextsAt(slide, "//p:sp//a:t"), (QStringList{"Plan", "more"}));
    EXPECT_EQ(TextsAt(slide, "//p:sp/p:spPr/a:solidFill/a:srgbClr/@val"), QStringList("010203"));
    EXPECT_EQ(TextsAt(slide, "//p:sp/p:spPr/a:ln/a:solidFill/a:srgbClr/@val"), QStringList("040506"));
    EXPECT_EQ(TextsAt(slide, "//a:rPr/a:solidFill/a:srgbClr/@val"), (QStringList{"070809", "070809"}));
    EXPECT_EQ(TextsAt(slide, "//a:pPr/@algn"), (QStringList{"r", "r"}));
    EXPECT_EQ(TextsAt(slide, "//a:bodyPr/@anchor"), QStringList("t"));
    EXPECT_EQ(TextsAt(slide, "//a:rPr/a:latin/@typeface").value(0), "Georgia");
    for (const char *look : {"b", "i"})
        EXPECT_EQ(TextsAt(slide, qPrintable(QStringLiteral("//a:rPr/@%1").arg(look))).value(0), "1") << look;
    EXPECT_EQ(TextsAt(slide, "//a:rPr/@u").value(0), "sng");
    EXPECT_EQ(TextsAt(slide, "//a:rPr/@strike").value(0), "sngStrike");
    const double points = 12 * 20 * EmuPerTwip(Slice()) / 12700;
    EXPECT_NEAR(TextsAt(slide, "//a:rPr/@sz").value(0).toInt(), points * 100, 1);
}

struct ToldCalendar {
    ToldCalendar() {
        diagram::SetCalendarSource([](const diagram::Surface &) { return It(); });
    }
    ~ToldCalendar() {
        It() = {};
        diagram::SetCalendarSource(nullptr);
    }
    static diagram::Calendar &It() {
        static diagram::Calendar calendar;
        return calendar;
    }
};

TEST_F(PptxTest, WhatIsDrawnBesideATimelineIsPlainShapesBehindTheNodes) {
    const ToldCalendar told;
    diagram::Calendar &calendar = told.It();
    calendar.strip = QRectF(0, 2000, 9000, 500);
    calendar.fontName = QStringLiteral("Arial");
    calendar.quarters = {{0, 4500, QStringLiteral("Q1")}, {4500, 9000, QStringLiteral("Q2")}};
    calendar.years = {{0, 9000, QStringLiteral("2027")}};
    calendar.lanes = {{4000, 5000, QStringLiteral("Market")}};
    calendar.weekends = {{100, 200, QString()}};
    calendar.today = QLineF(700, 2000, 700, 2500);
    AddNode(0, 4000, QStringLiteral("plan"));
    const QStringList pieces{"Q1", "Q2", "2027", "Market"};
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//p:sp//a:t"), pieces + QStringList("plan"));
    const QStringList names = TextsAt(Part(kAllShapes), "//p:sp/p:nvSpPr/p:cNvPr/@name");
    EXPECT_EQ(names.count(QStringLiteral("Weekend")), 1);
    EXPECT_EQ(names.count(QStringLiteral("Today")), 0);
    calendar.todayEverywhere = true;
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//p:sp/p:nvSpPr/p:cNvPr/@name").count(QStringLiteral("Today")), 1);
    calendar.bands = false;
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//p:sp//a:t"), QStringList({"Market", "plan"}));
}

TEST_F(PptxTest, AFoldIsOneSliverWithItsCount) {
    const ToldCalendar told;
    told.It().strip = QRectF(0, 2000, 450, 500);
    told.It().bands = false;
    std::vector<diagram::ItemId> months;
    for (int i = 0; i < 2; ++i) {
        diagram::Node &month = AddNode(0, 2000, QStringLiteral("May 2027"));
        month.SetSelectable(false);
        months.push_back(month.Id());
    }
    told.It().folds = {{QStringLiteral("2027"), QStringLiteral("3"), months}};
    AddNode(0, 4000, QStringLiteral("plan"));
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//p:sp//a:t"), QStringList({"3", "plan"}));
}

TEST_F(PptxTest, ALinkToADayIsAsQuietAsOnTheScreen) {
    diagram::Node &node = AddNode(0, 4000, QStringLiteral("plan")), &day = AddNode(300, 2000, QString());
    diagram::Link &link = node.Links().Add(day);
    link.SetLineColor(0);
    link.SetMovePointsMode(true);
    link.Points().Assign({{500, 4000}, {500, 4000}, {500, 2900}});
    const char *ink = "//p:cxnSp/p:spPr/a:ln/a:solidFill/a:srgbClr/@val";
    EXPECT_EQ(TextsAt(Part(kAllShapes), ink), QStringList("000000"));
    link.SetSelectable(false);
    link.SetMarked(true);
    link.SetStyle(3);
    link.Points().Assign({{500, 4000}, {500, 4000}, {500, 2900}});
    EXPECT_EQ(TextsAt(Part(kAllShapes), ink), QStringList("B3B3B3"));
}

TEST_F(PptxTest, AShapeStandsWhereThePictureWouldShowIt) {
    AddNode(1000, 2000, QString());
    const pugi::xml_document &slide = Part(kAllShapes);
    const double scale = EmuPerTwip(Slice());
    EXPECT_NEAR(TextsAt(slide, "//p:sp/p:spPr/a:xfrm/a:ext/@cx").value(0).toDouble(), 1500 * scale, 1);
    EXPECT_NEAR(TextsAt(slide, "//p:sp/p:spPr/a:xfrm/a:ext/@cy").value(0).toDouble(), 900 * scale, 1);
    EXPECT_GT(TextsAt(slide, "//p:sp/p:spPr/a:xfrm/a:off/@x").value(0).toDouble(), 0);
}

// Whatever is taken off the box for a line inside of it, text stands in the same place.
TEST_F(PptxTest, ALineInsideMovesNoText) {
    diagram::Node &node = AddNode(0, 0, QStringLiteral("text"));
    node.SetDrawWidth(10);
    const auto left = [&] {
        const pugi::xml_document &slide = Part(kAllShapes);
        return TextsAt(slide, "//p:sp/p:spPr/a:xfrm/a:off/@x").value(0).toDouble() +
               TextsAt(slide, "//a:bodyPr/@lIns").value(0).toDouble();
    };
    const double twips = EmuPerTwip(Slice());
    const double outside = left() / twips;
    node.SetDrawStyle(6);
    EXPECT_NEAR(left() / EmuPerTwip(Slice()), outside, 20);
}

TEST_F(PptxTest, LinesKeepWidthAndDashes) {
    diagram::Node &dashed = AddNode(0, 0, QString());
    dashed.SetDrawStyle(1), dashed.SetDrawWidth(3);
    AddNode(3000, 0, QString()).SetDrawStyle(5);
    const pugi::xml_document &slide = Part(kAllShapes);
    EXPECT_NEAR(TextsAt(slide, "//a:ln/@w").value(0).toDouble(), 45 * EmuPerTwip(Slice()), 1);
    EXPECT_EQ(TextsAt(slide, "//a:ln/a:custDash/a:ds/@d"), QStringList("400000"));
    EXPECT_EQ(TextsAt(slide, "//a:ln/a:custDash/a:ds/@sp"), QStringList("200000"));
    EXPECT_EQ(TextsAt(slide, "//a:ln[a:noFill]").size(), 1);
}

TEST_F(PptxTest, ShadowsFallWhereTheyDo) {
    for (int shadow = 0; shadow <= 4; ++shadow) AddNode(shadow * 3000, 0, QString()).SetShadow(shadow);
    EXPECT_THAT(TextsAt(Part(kAllShapes), "//a:outerShdw/@dir"),
                ElementsAre("2700000", "18900000", "13500000", "8100000"));
}

TEST_F(PptxTest, ATransparentNodeHasNoFill) {
    AddNode(0, 0, QStringLiteral("text")).SetTransparent(true);
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//p:sp/p:spPr/a:noFill").size(), 1);
}

// A rectangle and an ellipse are what PowerPoint has too; each other shape has the outline of its row.
TEST_F(PptxTest, EachOfTheShapesHasAForm) {
    for (const diagram::ShapeRow &row : diagram::ShapeTable())
        AddNode(row.value * 2000, 0, QString()).SetShape(row.value);
    const pugi::xml_document &slide = Part(kAllShapes);
    const QStringList presets = TextsAt(slide, "//p:sp/p:spPr/a:prstGeom/@prst");
    EXPECT_EQ(presets.count("rect"), 6);
    EXPECT_EQ(presets.count("ellipse"), 2);
    EXPECT_EQ(TextsAt(slide, "//p:sp/p:spPr/a:custGeom/a:pathLst/a:path[1]/a:moveTo").size(), 44 - 8);
}

TEST_F(PptxTest, TurnedShapesAreBuiltTurned) {
    AddNode(0, 0, QString()).SetShape(4);
    const QByteArray plain = Made(kAllShapes)[SlideName(1)];
    Slice().Nodes().Item(1).SetShapeOrientation(1);
    EXPECT_NE(Made(kAllShapes)[SlideName(1)], plain);
}

TEST_F(PptxTest, ALinkIsAConnectorGluedToBothShapes) {
    diagram::Node &a = AddNode(0, 0, QStringLiteral("a")), &b = AddNode(6000, 5000, QStringLiteral("b"));
    Connect(a, b);
    const pugi::xml_document &slide = Part(kAllShapes);
    EXPECT_EQ(TextsAt(slide, "//p:cxnSp/p:spPr/a:prstGeom/@prst"), QStringList("straightConnector1"));
    const QStringList shapes = TextsAt(slide, "//p:sp/p:nvSpPr/p:cNvPr/@id");
    EXPECT_EQ(TextsAt(slide, "//a:stCxn/@id") + TextsAt(slide, "//a:endCxn/@id"), shapes);
    EXPECT_EQ(TextsAt(slide, "//a:tailEnd/@type"), QStringList("triangle"));
    EXPECT_TRUE(TextsAt(slide, "//a:headEnd/@type").isEmpty());
}

// The site that the connector is glued to by its number stands where the link ends.
TEST_F(PptxTest, GlueLiesAtTheEndsOfTheLink) {
    diagram::Node &a = AddNode(0, 0, QString()), &b = AddNode(6000, 5000, QString());
    const diagram::Link &link = Connect(a, b);
    const pugi::xml_document &slide = Part(kAllShapes);
    const int site = TextsAt(slide, "//a:stCxn/@idx").value(0).toInt();
    const pugi::xml_node shape = slide.select_node("//p:sp[1]").node();
    const auto position = shape.select_nodes(".//a:cxnLst/a:cxn/a:pos")[std::size_t(site)].node();
    const auto part = [&](const char *which) {
        const QString name = QString::fromUtf8(position.attribute(which).value());
        const QString path = QStringLiteral(".//a:gd[@name='%1']/@fmla").arg(name);
        // "*/ PLACE SIDE LENGTH": PLACE times SIDE, divided by LENGTH.
        const QStringList formula = TextsAt(shape, qPrintable(path)).value(0).split(u' ');
        return formula.value(1).toDouble() / formula.value(3).toDouble();
    };
    EXPECT_NEAR(part("x") * 1500, link.Route().front().x, 2);
    EXPECT_NEAR(part("y") * 900, link.Route().front().y, 2);
}

TEST_F(PptxTest, EndsInTheMiddleOfSidesAreGluedToThePresetsSites) {
    diagram::Node &a = AddNode(0, 0, QString()), &b = AddNode(6000, 0, QString());
    Connect(a, b);
    const pugi::xml_document &slide = Part(kAllShapes);
    EXPECT_EQ(TextsAt(slide, "//p:sp/p:spPr/a:prstGeom/@prst"), (QStringList{"rect", "rect"}));
    EXPECT_EQ(TextsAt(slide, "//a:stCxn/@idx"), QStringList("3"));
    EXPECT_EQ(TextsAt(slide, "//a:endCxn/@idx"), QStringList("1"));
}

TEST_F(PptxTest, ALinkToAHiddenNodeIsNotGluedThere) {
    diagram::Node &a = AddNode(0, 0, QString()), &b = AddNode(6000, 5000, QString());
    Connect(a, b);
    b.SetHidden(true);
    const pugi::xml_document &slide = Part(kAllShapes);
    EXPECT_EQ(TextsAt(slide, "//p:cxnSp").size(), TextsAt(slide, "//a:stCxn").size());
    EXPECT_TRUE(TextsAt(slide, "//a:endCxn").isEmpty());
}

TEST_F(PptxTest, RightAngledLinksAreBentConnectorsAndCurvesFreeforms) {
    diagram::Node &a = AddNode(0, 0, QString()), &b = AddNode(6000, 5000, QString());
    Connect(a, b).SetStyle(5);
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//p:cxnSp/p:spPr/a:prstGeom/@prst"), QStringList("bentConnector3"));
    Slice().Links()[0]->SetStyle(1);
    const pugi::xml_document &slide = Part(kAllShapes);
    EXPECT_EQ(TextsAt(slide, "//p:cxnSp").size(), 0);
    EXPECT_EQ(TextsAt(slide, "//a:pathLst/a:path[@fill='none']/a:cubicBezTo").size(), 1);
    EXPECT_EQ(TextsAt(slide, "//a:tailEnd/@type"), QStringList("triangle"));
}

// A head is PowerPoint's own or drawn, never both and never none.
TEST_F(PptxTest, EachOfTheHeadsIsShown) {
    diagram::Node &a = AddNode(0, 0, QString()), &b = AddNode(6000, 0, QString());
    diagram::Link &link = Connect(a, b);
    for (const diagram::ArrowRow &row : diagram::ArrowTable()) {
        link.SetArrowDest(row.value);
        const pugi::xml_document &slide = Part(kAllShapes);
        const auto drawn = TextsAt(slide, "//p:sp[p:nvSpPr/p:cNvPr/@name='Arrow head']").size();
        EXPECT_EQ(TextsAt(slide, "//a:tailEnd").size() + drawn, row.value ? 1 : 0) << row.name;
    }
    link.SetArrowDest(0), link.SetArrowMiddle(5);
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//p:sp[p:nvSpPr/p:cNvPr/@name='Arrow head']").size(), 1);
}

TEST_F(PptxTest, TheTextOfALinkIsATextBox) {
    diagram::Node &a = AddNode(0, 0, QString()), &b = AddNode(6000, 0, QString());
    Connect(a, b).SetText(QStringLiteral("feeds"));
    const pugi::xml_document &slide = Part(kAllShapes);
    EXPECT_EQ(TextsAt(slide, "//p:sp[p:nvSpPr/p:cNvSpPr/@txBox='1']//a:t"), QStringList("feeds"));
}

TEST_F(PptxTest, APictureLiesBetweenFillAndText) {
    diagram::Node &node = AddNode(0, 0, QStringLiteral("text"));
    node.SetPicture(document::testing::OneColour(qRgb(1, 2, 3), 16));
    const pugi::xml_document &slide = Part(kAllShapes);
    QStringList order;
    for (const pugi::xml_node &child : slide.select_node("//p:grpSp").node().children())
        order << QString::fromUtf8(child.name());
    EXPECT_EQ(order, (QStringList{"p:nvGrpSpPr", "p:grpSpPr", "p:sp", "p:pic", "p:sp"}));
    EXPECT_EQ(TextsAt(slide, "//p:grpSp/p:sp[2]//a:t"), QStringList("text"));
    EXPECT_EQ(TextsAt(slide, "//p:pic/p:nvPicPr/p:cNvPr/@descr"), QStringList("text"));
}

TEST_F(PptxTest, TextsFromTheRightAreToldToBe) {
    AddNode(0, 0, QString::fromUtf8("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D\nabc"));
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//a:pPr/@rtl"), (QStringList{"1", "0"}));
}

TEST_F(PptxTest, ATextThatIsTooHighIsMadeSmaller) {
    AddNode(0, 0, QStringLiteral("word ").repeated(100));
    AddNode(0, 3000, QStringLiteral("word"));
    const QStringList scales = TextsAt(Part(kAllShapes), "//a:normAutofit/@fontScale");
    ASSERT_EQ(scales.size(), 1);
    EXPECT_LT(scales[0].toInt(), 100000);
    EXPECT_GE(scales[0].toInt(), 25000);
}

TEST_F(PptxTest, ATextBesideAPictureIsMadeSmallerToo) {
    diagram::Node &node = AddNode(0, 0, QStringLiteral("word ").repeated(50));
    node.SetPicture(document::testing::OneColour(qRgb(1, 2, 3), 16)), node.SetPicturePos(9);
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//a:normAutofit/@fontScale").size(), 1);
}

TEST_F(PptxTest, TheBackColourGoesAlong) {
    AddNode(0, 0, QString());
    EXPECT_TRUE(TextsAt(Part(kAllShapes), "//p:sp[p:nvSpPr/p:cNvPr/@name='Background']").isEmpty());
    Slice().SetBackColor(support::Rgb(16, 32, 48));
    EXPECT_EQ(TextsAt(Part(kAllShapes), "//p:sp[1]/p:spPr/a:solidFill/a:srgbClr/@val"),
              QStringList("102030"));
}

TEST_F(PptxTest, ThePictureBehindTheSliceGoesAlongAsFarAsItIsSeen) {
    AddNode(1000, 1000, QString());
    Slice().SetPicture(document::testing::OneColour(qRgb(1, 2, 3), 1000)); // 15000 twips
    const pugi::xml_document &slide = Part(kAllShapes);
    ASSERT_EQ(TextsAt(slide, "//p:pic").size(), 1);
    const double right = TextsAt(slide, "//a:srcRect/@r").value(0).toDouble() / 100000;
    const QRectF seen = QRectF(1000, 1000, 1500, 900).adjusted(-200, -200, 200, 200);
    EXPECT_NEAR((1 - right) * 15000, seen.right(), 60);
    EXPECT_GT(TextsAt(slide, "//a:srcRect/@l").value(0).toInt(), 0);
}

TEST_F(PptxTest, APictureThatSticksOutIsCutOffAtTheOutline) {
    diagram::Node &node = AddNode(0, 0, QString());
    node.SetShape(0), node.SetPicture(document::testing::OneColour(qRgb(1, 2, 3), 300)); // 4500 twips
    EXPECT_GT(TextsAt(Part(kAllShapes), "//p:pic//a:cubicBezTo").size(), 2);
    const QStringList right = TextsAt(Part(kAllShapes), "//a:srcRect/@r");
    EXPECT_NEAR(right.value(0).toDouble() / 100000, 1 - 1500.0 / 4500, 0.02);
}

} // namespace powerpoint::testing
