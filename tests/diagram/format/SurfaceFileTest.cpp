#include "diagram/format/SurfaceFile.h"

#include "diagram/edit/History.h"
#include "diagram/format/Content.h"
#include "diagram/format/ValueReader.h"
#include "diagram/format/ValueWriter.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "tests/diagram/model/RandomSurface.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>

using namespace diagram;
using namespace diagram::testing;

namespace {

// The whole surface as text, with picture and back colour, which a file doesn't keep, as in a new one.
QString StoredDump(Surface &surface) {
    SurfaceData data = surface.Data();
    data.picture = {};
    data.backColor = support::kWhite;
    surface.Overwrite(data);
    return Dump(surface, true);
}

QByteArray SmallFile() {
    Dice dice(3);
    Surface surface;
    surface.Nodes().Add(0, 0, 100, 100).SetText(QStringLiteral("one"));
    surface.Nodes().Add(900, 0, 100, 100).SetPicture(Picture::FromImage(QImage(2, 2, QImage::Format_RGB32)));
    surface.Nodes().Item(1).Links().Add(surface.Nodes().Item(2)).SetStyle(5);
    surface.Nodes().Item(1).SetKey(QStringLiteral("{A}"));
    return SaveBytes(surface);
}

// The content of one sound file, changed, as a file again.
template <typename Change>
QByteArray Changed(Change change) {
    Content content = Decode(SmallFile(), ContentKind::Surface);
    change(content);
    return Encode(content);
}

constexpr char kFirstVersion[] =
    "56656c6d6f72615375726661636501004fa5143d92ece0fa00010000000f000000540069006d006500730020004e00650077"
    "00200052006f006d0061006e000000000000002840050000000003010b0000007c0054004d005f0041006c00690067006e00"
    "3d003100044b000000060102000000010000000a01030000007b0041007d0002030000006f006e0065000500000000070000"
    "c84208000048430900007a440a0000fa430d56341200110000100000000000124d02000000050700803b4508000048430900"
    "007a440a0000fa4311000020000000000001000000030000000702050000006c006100620065006c00040400000000808944"
    "0000e143002000450000e143002000450000e14300803b450000e1430501000000060200000007000020400a000030000000"
    "00000b05";

constexpr char kFirstVersionDump[] =
    "surface Tag=|TM_Align=1 Picture= BackColor=16777215 xZoom=75 yZoom=100 GridLines=1 "
    "Defaults=1,0,0,0,0,16777215,Arial 8 0000,0,7,0,1,7 GrownLeft=0 GrownTop=0\n"
    "node 1 Key={A} Text=one Event= Tag= Font=Times New Roman 12 1010 Picture= Left=100 Top=200"
    " Width=1000 Height=500 DrawWidth=1 BorderColor=0 FillColor=1193046 ForeColor=0 "
    "xTextMargin=0 yTextMargin=0 Shape=77 ShapeOrientation=0 DrawStyle=0 Alignment=7 Shadow=0 "
    "PicturePos=7 AutoSize=0 Hidden=0 Selectable=1 Marked=0 Transparent=0\n"
    "  links 3\n"
    "node 2 Key= Text= Event= Tag= Font=Arial 8 0000 Picture= Left=3000 Top=200 Width=1000 "
    "Height=500 DrawWidth=1 BorderColor=0 FillColor=16777215 ForeColor=0 xTextMargin=0 "
    "yTextMargin=0 Shape=1 ShapeOrientation=0 DrawStyle=0 Alignment=7 Shadow=0 PicturePos=7 "
    "AutoSize=0 Hidden=0 Selectable=1 Marked=0 Transparent=0\n"
    "  links 3\n"
    "link 3 Key= Text=label Font=Arial 8 0000 Points=(1100 450)(2050 450)(2050 450)(3000 450) "
    "Source=1 Destination=2 DrawWidth=2.5 ForeColor=0 LineColor=0 Style=5 ArrowSource=0 "
    "ArrowDest=5 ArrowMiddle=0 ArrowSizeSource=1 ArrowSizeDest=1 ArrowSizeMiddle=1 DrawStyle=0 "
    "JumpStyle=0 Hidden=0 Selectable=1 Marked=0 Rigid=0 Oriented=1 AddPointsMode=0 "
    "MovePointsMode=0 OwnBends=0\n"
    "order 1 2 3";

// What a file of the surface holds, read back, so that identities don't count.
QString FiledDump(const Surface &surface) {
    Surface copy;
    LoadBytes(copy, SaveBytes(surface));
    return StoredDump(copy);
}

void ExpectRefused(const QByteArray &bytes) {
    Surface surface;
    surface.Nodes().Add(1, 2, 3, 4);
    const QString before = Dump(surface);
    EXPECT_EQ(tests::NumberOf([&] { LoadBytes(surface, bytes); }), 321);
    EXPECT_EQ(Dump(surface), before);
}

} // namespace

class SurfaceFileAtRandom : public ::testing::TestWithParam<unsigned> {};

TEST_P(SurfaceFileAtRandom, EverythingComesBack) {
    Dice dice(GetParam());
    Surface surface;
    Fill(surface, dice, 600);
    const QByteArray bytes = SaveBytes(surface);
    Surface loaded;
    LoadBytes(loaded, bytes);
    EXPECT_EQ(Differing(StoredDump(surface), StoredDump(loaded)), "");
    EXPECT_EQ(SaveBytes(loaded).size(), bytes.size());
}

TEST_P(SurfaceFileAtRandom, DamageBehindTheCheckSumIsRefusedOrRead) {
    Dice dice(GetParam());
    Surface surface;
    Fill(surface, dice, 80);
    const QByteArray body = SaveBytes(surface).sliced(SealSize());
    for (int round = 0; round < 400; ++round) {
        QByteArray damaged = body;
        for (int flips = dice.Roll(1, 4); flips > 0; --flips) {
            damaged[dice.Roll(0, int(damaged.size()) - 1)] = char(dice.Roll(0, 255));
        }
        Surface loaded;
        const long number = tests::NumberOf([&] { LoadBytes(loaded, Seal(damaged)); });
        EXPECT_TRUE(number == 0 || number == 321) << number;
        EXPECT_EQ(tests::NumberOf([&] { Dump(loaded); }), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SurfaceFileAtRandom, ::testing::Range(1U, 16U));

TEST_P(SurfaceFileAtRandom, ReplacingIsLoadingAsOneStep) {
    Dice dice(GetParam());
    Surface other, surface;
    Fill(other, dice, 300);
    Fill(surface, dice, 300);
    AttachHistory(surface);
    const QString before = Dump(surface, true);
    const Revision revision = surface.Actions().Revision();
    ReplaceBytes(surface, SaveBytes(other));
    EXPECT_EQ(Differing(FiledDump(surface), FiledDump(other)), "");
    surface.Undo();
    EXPECT_EQ(Differing(Dump(surface, true), before), "");
    EXPECT_EQ(surface.Actions().Revision(), revision);
    EXPECT_FALSE(surface.CanUndo());
    surface.Redo();
    EXPECT_EQ(Differing(FiledDump(surface), FiledDump(other)), "");
}

TEST(SurfaceFile, ReplacingByADamagedOneChangesNothing) {
    Surface surface;
    AttachHistory(surface);
    surface.Nodes().Add(0, 0, 100, 100);
    EXPECT_EQ(tests::NumberOf([&] { ReplaceBytes(surface, SmallFile().chopped(1)); }), 321);
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_FALSE(surface.CanUndo());
}

// A file leaves out what is at its default: another default, like another number of a property, would change
// what existing files say.
TEST(SurfaceFile, AFileOfTheFirstVersionReadsAsItWasWritten) {
    Surface surface;
    LoadBytes(surface, QByteArray::fromHex(kFirstVersion));
    EXPECT_EQ(Differing(Dump(surface, true), QString::fromUtf8(kFirstVersionDump)), "");
}

// Whole numbers of the defaults have four bytes, unlike those of nodes.
TEST(SurfaceFile, DefaultsOfTheFirstVersionReadAsTheyWereWritten) {
    Surface surface;
    NodeLook defaults;
    defaults.shape = 50;
    defaults.alignment = 2;
    surface.SetDefaults(defaults);
    const QByteArray stored = QByteArray::fromHex("07020132000000"
                                                  "0902000000"); // Shape and Alignment
    EXPECT_TRUE(SaveBytes(surface).contains(stored));
    Surface loaded;
    LoadBytes(loaded, SaveBytes(surface));
    EXPECT_EQ(loaded.Defaults(), defaults);
}

TEST(SurfaceFile, ADefaultThatWrapsRoundIntoItsRangeIsRefused) {
    NodeLook defaults;
    defaults.shape = 50;
    ValueWriter writer;
    writer.PutValues(defaults);
    QByteArray body = writer.TakeBody();
    const auto read = [&body] {
        ValueReader reader;
        reader.SetBody(body);
        NodeLook look;
        reader.GetValues(look);
        return int(look.shape);
    };
    EXPECT_EQ(read(), 50);
    body[3] = 1; // 306
    EXPECT_EQ(tests::NumberOf([&] { (void)read(); }), 321);
}

TEST(SurfaceFile, KeepsPictureAndBackColourOfTheSurface) {
    Surface surface;
    surface.SetBackColor(0x123456);
    const Picture picture = Picture::FromImage(QImage(3, 3, QImage::Format_RGB32));
    surface.SetPicture(picture);
    LoadBytes(surface, SmallFile());
    EXPECT_EQ(surface.BackColor(), 0x123456);
    EXPECT_EQ(surface.Picture(), picture);
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST(SurfaceFile, LoadingForgetsTheHistory) {
    Surface surface;
    AttachHistory(surface);
    {
        ActionGroup group(surface);
        surface.Nodes().Add(1, 2, 3, 4);
    }
    LoadBytes(surface, SmallFile());
    EXPECT_FALSE(surface.CanUndo());
}

TEST(SurfaceFile, FontsAndPicturesStandOnceAndAreShared) {
    Surface surface;
    const QImage image(50, 50, QImage::Format_RGB32);
    for (int i = 0; i < 20; ++i) {
        Node &node = surface.Nodes().Add(0, 0, 10, 10);
        node.SetPicture(Picture::FromImage(image));
        node.SetFont(Font(QStringLiteral("A font with a rather long name"), 9));
    }
    const QByteArray bytes = SaveBytes(surface);
    EXPECT_LT(bytes.size(), 20 * 60 + 400);
    Surface loaded;
    LoadBytes(loaded, bytes);
    EXPECT_EQ(loaded.Nodes().Item(1).Picture().Identity(), loaded.Nodes().Item(20).Picture().Identity());
}

TEST(SurfaceFile, AFileCutOffAtAnyLengthIsRefused) {
    const QByteArray bytes = SmallFile();
    for (qsizetype size = 0; size < bytes.size(); ++size) ExpectRefused(bytes.first(size));
    const QByteArray body = bytes.sliced(SealSize());
    for (qsizetype size = 0; size < body.size(); ++size) ExpectRefused(Seal(body.first(size)));
}

TEST(SurfaceFile, AnyChangedByteIsRefused) {
    const QByteArray bytes = SmallFile();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        QByteArray changed = bytes;
        changed[i] = char(changed[i] ^ 0x10);
        ExpectRefused(changed);
    }
}

TEST(SurfaceFile, BytesBehindTheEndAreRefused) {
    ExpectRefused(SmallFile() + 'x');
    ExpectRefused(Seal(SmallFile().sliced(SealSize()) + 'x'));
}

TEST(SurfaceFile, UnsoundContentIsRefused) {
    ExpectRefused(Changed([](Content &c) { c.nodes[0].data.shape = 20; }));
    ExpectRefused(Changed([](Content &c) { c.nodes[0].data.width = -1; }));
    ExpectRefused(
        Changed([](Content &c) { c.nodes[0].data.left = std::numeric_limits<float>::quiet_NaN(); }));
    ExpectRefused(Changed([](Content &c) { c.nodes[0].data.stack = std::numeric_limits<StackKey>::max(); }));
    ExpectRefused(Changed([](Content &c) { c.nodes[1].data.key = c.nodes[0].data.key; }));
    ExpectRefused(Changed([](Content &c) { c.nodes[1].id = c.nodes[0].id; }));
    ExpectRefused(Changed([](Content &c) { c.nodes[0].id = 0; }));
    ExpectRefused(Changed([](Content &c) { c.links[0].id = c.nodes[0].id; }));
    ExpectRefused(Changed([](Content &c) { c.links[0].data.destination = 99; }));
    ExpectRefused(Changed([](Content &c) { c.links[0].data.points.resize(1); }));
    ExpectRefused(Changed([](Content &c) { c.links[0].data.style = 15; }));
    ExpectRefused(Changed([](Content &c) { c.surface.xZoom = -1; }));
    ExpectRefused(Changed([](Content &c) { c.surface.defaults.shape = 49; }));
    Surface surface;
    LoadBytes(surface, Changed([](Content &) {}));
    EXPECT_EQ(surface.Links().size(), 1U);
}

TEST(SurfaceFile, FarOffIdentitiesAreDrawnTogether) {
    Surface surface;
    LoadBytes(surface, Changed([](Content &c) {
                  c.nodes[1].id = c.links[0].data.destination = 0xFFFFFFF0U;
                  c.links[0].id = 0xFFFFFFFFU;
              }));
    EXPECT_LE(surface.NextId(), 4U);
}

TEST(SurfaceFile, LoadFileReadsWhatSaveFileWrote) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Plän 'x' 日本.nd"));
    Surface surface;
    LoadBytes(surface, SmallFile());
    SaveFile(surface, path);
    Surface loaded;
    LoadFile(loaded, path);
    EXPECT_EQ(Differing(Dump(surface, true), Dump(loaded, true)), "");
    EXPECT_EQ(tests::NumberOf([&] { LoadFile(loaded, folder.filePath(QStringLiteral("none.nd"))); }), 53);
    QFile other(folder.filePath(QStringLiteral("other.nd")));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("something else");
    other.close();
    EXPECT_EQ(tests::NumberOf([&] { LoadFile(loaded, other.fileName()); }), 321);
    EXPECT_EQ(tests::NumberOf([&] { LoadFile(loaded, folder.path()); }), 75);
    EXPECT_EQ(tests::NumberOf([&] { SaveFile(loaded, folder.path()); }), 75);
    EXPECT_EQ(tests::NumberOf([&] { SaveFile(loaded, folder.filePath(QStringLiteral("none/x.nd"))); }), 76);
    EXPECT_EQ(loaded.Nodes().Count(), 2);
}

TEST(Selection, TakesNodesAndTheLinksBetweenThem) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 100, 100), &b = surface.Nodes().Add(900, 0, 100, 100);
    Node &c = surface.Nodes().Add(900, 900, 100, 100);
    a.Links().Add(b).SetText(QStringLiteral("in"));
    b.Links().Add(c).SetSelected(true);
    a.SetSelected(true);
    b.SetSelected(true);
    const QByteArray bytes = SaveSelection(surface);
    Surface target;
    PasteBytes(target, bytes, 50, 70);
    ASSERT_EQ(target.Nodes().Count(), 2);
    ASSERT_EQ(target.Links().size(), 1U);
    EXPECT_EQ(target.Links()[0]->Text(), QStringLiteral("in"));
    EXPECT_EQ(target.Nodes().Item(2).Left(), 950);
    EXPECT_EQ(target.Nodes().Item(2).Top(), 70);
    EXPECT_EQ(target.Links()[0]->Route()[0].y, a.Links().Item(1).Route()[0].y + 70);
}

TEST(Selection, PastedItemsComeOnTopSelectedAndAsOneStep) {
    Surface surface;
    AttachHistory(surface);
    Node &a = surface.Nodes().Add(0, 0, 100, 100), &b = surface.Nodes().Add(900, 0, 100, 100);
    a.BringToFront();
    a.SetSelected(true);
    b.SetSelected(true);
    PasteBytes(surface, SaveSelection(surface), 0, 0);
    EXPECT_EQ(surface.Nodes().Count(), 4);
    EXPECT_FALSE(a.Selected());
    EXPECT_EQ(surface.SelectedNodes().size(), 2U);
    EXPECT_EQ(surface.Nodes().Item(4).ZOrder(), 2);
    EXPECT_EQ(surface.Nodes().Item(3).ZOrder(), 3); // the copy of the one in front
    surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_FALSE(surface.CanUndo());
}

TEST(Selection, KeysAreKeptUnlessTheyAreTaken) {
    Surface surface;
    Node &a = surface.Nodes().Add(0, 0, 100, 100);
    a.SetKey(QStringLiteral("{A}"));
    a.SetSelected(true);
    const QByteArray bytes = SaveSelection(surface);
    PasteBytes(surface, bytes, 0, 0);
    EXPECT_EQ(surface.Nodes().Item(2).Key(), QString());
    Surface other;
    PasteBytes(other, bytes, 0, 0);
    EXPECT_EQ(other.Nodes().Item(1).Key(), QStringLiteral("{A}"));
}

TEST(Selection, AFileIsNoSelectionAndTheOtherWayRound) {
    Surface surface;
    EXPECT_EQ(tests::NumberOf([&] { PasteBytes(surface, SmallFile(), 0, 0); }), 321);
    EXPECT_EQ(tests::NumberOf([&] { LoadBytes(surface, SaveSelection(surface)); }), 321);
}
