// Maps of early versions, compared with the rows that another reader found in them (the .json beside each).
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/document/MapTest.h"
#include "tests/Paths.h"

#include <functional>
#include <map>
#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace document;
using namespace document::testing;

namespace {

// The rows of a table, with column names in upper case.
std::vector<QJsonObject> RowsOf(const QString &json, const QString &table) {
    QFile file(json);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QJsonObject tables = QJsonDocument::fromJson(file.readAll()).object().value("tables").toObject();
    std::vector<QJsonObject> rows;
    for (const QJsonValue value : tables.value(table).toObject().value("rows").toArray()) {
        QJsonObject row;
        const QJsonObject read = value.toObject();
        for (auto cell = read.begin(); cell != read.end(); ++cell)
            row.insert(cell.key().toUpper(), cell.value());
        rows.push_back(row);
    }
    return rows;
}

template <typename Item>
using Getters = std::map<QString, std::function<QVariant(const Item &)>>;

Getters<diagram::Node> NodeGetters() {
    using diagram::Node;
    return {
        {"KEY", &Node::Key},
        {"SHAPE", &Node::Shape},
        {"SHAPEORIENTATION", &Node::ShapeOrientation},
        {"DRAWSTYLE", &Node::DrawStyle},
        {"DRAWWIDTH", &Node::DrawWidth},
        {"XTEXTMARGIN", &Node::xTextMargin},
        {"YTEXTMARGIN", &Node::yTextMargin},
        {"SHADOW", &Node::Shadow},
        {"PICTUREPOS", &Node::PicturePos},
        {"DESCRIPTION", &Node::Text},
        {"BORDERCOLOR", &Node::BorderColor},
        {"FILLCOLOR", &Node::FillColor},
        {"FORECOLOR", &Node::ForeColor},
        {"HIDDEN", &Node::Hidden},
        {"SELECTABLE", &Node::Selectable},
        {"MARKED", &Node::Marked},
        {"AUTOSIZE", &Node::AutoSize},
        {"EVENT", &Node::Event},
        {"TRANSPARENT", &Node::Transparent},
        {"ALIGNMENT", &Node::Alignment},
        {"LEFT", &Node::Left},
        {"TOP", &Node::Top},
        {"WIDTH", &Node::Width},
        {"HEIGHT", &Node::Height},
    };
}

Getters<diagram::Link> LinkGetters() {
    using diagram::Link;
    return {
        {"STYLE", &Link::Style},
        {"ARROWSOURCE", &Link::ArrowSource},
        {"ARROWDEST", &Link::ArrowDest},
        {"ARROWMIDDLE", &Link::ArrowMiddle},
        {"ARROWSIZESOURCE", &Link::ArrowSizeSource},
        {"ARROWSIZEDEST", &Link::ArrowSizeDest},
        {"ARROWSIZEMIDDLE", &Link::ArrowSizeMiddle},
        {"DRAWSTYLE", &Link::DrawStyle},
        {"DRAWWIDTH", &Link::DrawWidth},
        {"JUMPSTYLE", &Link::JumpStyle},
        {"TEXT", &Link::Text},
        {"FORECOLOR", &Link::ForeColor},
        {"LINECOLOR", &Link::LineColor},
        {"HIDDEN", &Link::Hidden},
        {"SELECTABLE", &Link::Selectable},
        {"ORIENTED", &Link::Oriented},
        {"MARKED", &Link::Marked},
        {"KEYSOURCE", [](const Link &link) { return link.Source().Key(); }},
        {"KEYDEST", [](const Link &link) { return link.Destination().Key(); }},
    };
}

bool IsSame(const QJsonValue &expected, const QVariant &actual) {
    if (expected.isNull()) return actual.toString().isEmpty();
    if (expected.isDouble()) return static_cast<float>(expected.toDouble()) == actual.toFloat();
    return expected.toVariant() == actual;
}

template <typename Item>
void ExpectRow(const Getters<Item> &getters, const QJsonObject &row, const Item &item) {
    for (const auto &[column, get] : getters) {
        // A map without alignments has them all in the middle.
        const QJsonValue expected = row.contains(column) ? row.value(column) : QJsonValue(7);
        EXPECT_TRUE(IsSame(expected, get(item)))
            << column.toStdString() << " of " << row["KEY"].toString().toStdString();
    }
}

void ExpectFont(const std::vector<QJsonObject> &fonts, const QString &key, const diagram::Font &font) {
    for (const QJsonObject &row : fonts) {
        if (row["KEY"].toString() != key) continue;
        EXPECT_EQ(font,
                  diagram::Font(row["NAME"].toString(), row["SIZE"].toDouble(), row["BOLD"].toBool(),
                                row["ITALIC"].toBool(), row["UNDERLINE"].toBool(), row["STRIKE"].toBool()));
        return;
    }
    ADD_FAILURE() << "no font " << key.toStdString();
}

void ExpectPicture(const std::vector<QJsonObject> &pictures, const QString &key,
                   const diagram::Picture &picture) {
    EXPECT_EQ(picture.IsNull(), key.isEmpty());
    for (const QJsonObject &row : pictures) {
        if (row["KEY"].toString() != key || key.isEmpty()) continue;
        EXPECT_EQ(QCryptographicHash::hash(picture.Bytes(), QCryptographicHash::Sha256).toHex(),
                  row["PICTURE"].toObject()["sha256"].toString().toLatin1());
    }
}

} // namespace

class JetMapTest : public MapTest, public ::testing::WithParamInterface<const char *> {
protected:
    QString Source(const char *ending) const {
        return tests::Data(QStringLiteral("jet/%1%2")).arg(QLatin1String(GetParam()), QLatin1String(ending));
    }
    // A copy of the map in a folder of the test.
    QString Copy() {
        const QString path = MapFile(QStringLiteral("%1.mdb").arg(QLatin1String(GetParam())));
        support::CopyFileTo(Source(".mdb"), path);
        return path;
    }
    std::vector<QJsonObject> Rows(const char *table) { return RowsOf(Source(".json"), QLatin1String(table)); }
};

TEST_P(JetMapTest, NodesAreThoseOfTheFile) {
    const auto window = Loaded(Copy());
    const auto fonts = Rows("Fonts"), pictures = Rows("Pictures");
    const auto getters = NodeGetters();
    int count = 0;
    for (const QJsonObject &row : Rows("Nodes")) {
        diagram::Surface &surface = window->AddFlow1()[row["SLICE"].toInt()];
        const diagram::Node &node = surface.Nodes().Item(row["KEY"].toString());
        ExpectRow(getters, row, node);
        ExpectFont(fonts, row["FONT"].toString(), node.Font());
        ExpectPicture(pictures, row["PICTURE"].toString(), node.Picture());
        clsfrmMain &settings = window->clsSettings();
        EXPECT_EQ(settings.Groups().GroupNameForKey(GetTag(node, tags::kGroup)), row["GROUP"].toString());
        ++count;
    }
    int loaded = 0;
    for (const int index : window->AddFlow1().Indices()) loaded += window->AddFlow1()[index].Nodes().Count();
    EXPECT_EQ(loaded, count);
    EXPECT_GT(count, 0);
}

TEST_P(JetMapTest, LinksAndTheirPointsAreThoseOfTheFile) {
    const auto window = Loaded(Copy());
    const auto fonts = Rows("Fonts"), points = Rows("LinkPoints");
    const auto getters = LinkGetters();
    std::map<int, std::size_t> next; // links of a slice come in the order of the table
    for (const QJsonObject &row : Rows("Links")) {
        diagram::Surface &surface = window->AddFlow1()[row["SLICE"].toInt()];
        const diagram::Link &link = *surface.Links()[next[surface.Index()]++];
        ExpectRow(getters, row, link);
        ExpectFont(fonts, row["FONT"].toString(), link.Font());
        std::map<int, diagram::Point> expected;
        for (const QJsonObject &point : points)
            if (point["LINK"] == row["KEY"])
                expected[point["INDEX"].toInt()] = {static_cast<float>(point["X"].toDouble()),
                                                    static_cast<float>(point["Y"].toDouble())};
        std::vector<diagram::Point> route;
        for (const auto &[index, point] : expected) route.push_back(point);
        EXPECT_TRUE(route.empty() || link.Route() == route) << row["KEY"].toString().toStdString();
        EXPECT_GE(link.Route().size(), 2U);
    }
}

TEST_P(JetMapTest, StackingIsThatOfTheFile) {
    const auto window = Loaded(Copy());
    std::map<int, std::map<int, QString>> expected;
    for (const QJsonObject &row : Rows("Nodes"))
        expected[row["SLICE"].toInt()][row["ZORDER"].toInt()] = row["KEY"].toString();
    for (const auto &[slice, byPosition] : expected) {
        QStringList wanted, found;
        for (const auto &[position, key] : byPosition) wanted.append(key);
        for (diagram::Item *item : window->AddFlow1()[slice].Stacking().Order())
            if (item->AsNode()) found.append(item->AsNode()->Key());
        EXPECT_EQ(found, wanted);
    }
}

TEST_P(JetMapTest, IsSavedAsAMapThatReadsTheSame) {
    const QString path = Copy();
    const auto window = Loaded(path);
    const QStringList before = Describe(*window);
    EXPECT_TRUE(DoSave(*window));
    EXPECT_EQ(support::ReadWholeFile(path + ".bak"), support::ReadWholeFile(Source(".mdb")));
    EXPECT_TRUE(window->statuses.back().contains(QStringLiteral(".mdb.bak")));
    EXPECT_TRUE(support::ReadWholeFile(path).startsWith("SQLite format 3"));
    const auto again = Loaded(path);
    ExpectSameLines(Describe(*again), before);
}

TEST_P(JetMapTest, PoolsAreThoseOfTheFile) {
    const auto window = Loaded(Copy());
    clsfrmMain &settings = window->clsSettings();
    int position = 0;
    for (const QJsonObject &row : Rows("Levels")) {
        const cLevel &level = settings.Levels().Item(++position);
        EXPECT_EQ(level.LevelName, row["LEVEL"].toString());
        EXPECT_EQ(level.Selected, row["SELECTED"].toBool());
        EXPECT_EQ(level.Color, row["COLOUR"].toInt());
    }
    for (const QJsonObject &row : Rows("Hyperlinks")) {
        const cHyperlink &link = settings.Hyperlinks().Item(row["NODEKEY"].toString());
        EXPECT_EQ(link.Map, row["FILENAME"].toString());
        EXPECT_EQ(link.Slice, row["SLICE"].toInt());
    }
    position = 0;
    for (const QJsonObject &row : Rows("Attachments")) {
        const cAttachment &attachment = settings.Attachments().Item(++position);
        EXPECT_EQ(attachment.Embed, row["EMBED"].toBool());
        if (!attachment.Embed) continue;
        EXPECT_EQ(
            QCryptographicHash::hash(support::ReadWholeFile(attachment.Filename), QCryptographicHash::Sha256)
                .toHex(),
            row["DATA"].toObject()["sha256"].toString().toLatin1());
    }
    for (const QJsonObject &row : Rows("Slices"))
        EXPECT_EQ(window->TabStrip().TabCaption(row["INDEX"].toInt()), row["TEXT"].toString());
}

INSTANTIATE_TEST_SUITE_P(Maps, JetMapTest, ::testing::Values("plan", "plan97", "old"),
                         [](const auto &map) { return std::string(map.param); });

class NotJetTest : public MapTest {};

TEST_F(NotJetTest, BytesThatAreNoMapDontOpen) {
    const QString path = MapFile(QStringLiteral("notjet.mdb"));
    support::CopyFileTo(tests::Data(QStringLiteral("jet/notjet.mdb")), path);
    const auto window = NewWindow();
    window->clsSettings().SetDatabase(path);
    EXPECT_EQ(ErrorOf([&] { DoLoad(*window); }).Number(), storage::kErrUnrecognizedFormat);
}
