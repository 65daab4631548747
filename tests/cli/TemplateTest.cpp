// Templates: made of a slice, listed, applied.
#include "support/AtomicFile.h"
#include "support/Files.h"
#include "tests/cli/CliTest.h"
#include "tests/Paths.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

struct TemplateTest : cli::testing::CliTest {};

} // namespace

TEST_F(TemplateTest, ASliceMadeATemplateCanBeAppliedAndListed) {
    const QString map = Map("plan.map"), target = Map("target.map");
    support::CopyFileTo(tests::Source(QStringLiteral("product/velmora/Settings.nml")), Path("Settings.nml"));
    QDir(Path("")).mkdir(QStringLiteral("Templates"));
    const QString file = Path("Templates/Plan.TEM");
    ASSERT_EQ(Run({"template", "make", map, "--slice", "2", file}), cli::kGood) << err.toStdString();
    ASSERT_EQ(Run({"template", "list"}), cli::kGood) << err.toStdString();
    EXPECT_TRUE(out.contains(QStringLiteral("  template  Plan  "))) << out.toStdString();
    ASSERT_EQ(Run({"template", "apply", file, target, "--slice", "1"}), cli::kGood) << err.toStdString();
    const auto nodes = [this](const QString &path, int slice) {
        EXPECT_EQ(Run({"info", path, "--json"}), cli::kGood);
        const QJsonObject whole = QJsonDocument::fromJson(out.toUtf8()).object();
        return whole["slices"].toArray()[slice].toObject()["nodes"].toInt();
    };
    EXPECT_EQ(nodes(target, 0), nodes(map, 1)) << out.toStdString();
    EXPECT_EQ(nodes(target, 1), nodes(map, 1));
}

TEST_F(TemplateTest, ABadTemplateOrSliceLeavesTheMapAsItWas) {
    const QString map = Map("plan.map");
    const QByteArray before = support::ReadWholeFile(map);
    EXPECT_EQ(Run({"template", "apply", map, map}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("#3078"))) << err.toStdString();
    EXPECT_EQ(Run({"template", "apply", tests::Data(QStringLiteral("jet/template.mdb")), map}), cli::kFailed);
    EXPECT_TRUE(err.contains(QStringLiteral("#321"))) << err.toStdString();
    EXPECT_EQ(Run({"template", "make", map, "--slice", "9", Path("out.TEM")}), cli::kFailed);
    EXPECT_FALSE(support::FileExists(Path("out.TEM")));
    EXPECT_EQ(support::ReadWholeFile(map), before);
}
