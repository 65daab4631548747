// The offer to open what can be read of a damaged map.
#include "document/DoSave.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "tests/mainwindow/WindowTest.h"

#include <QFile>

namespace mainwindow::testing {

using support::Answer;

namespace {

const QString kOffer = QStringLiteral("Open what can be read as a new map?");

class Salvage : public WindowTest {
protected:
    // A map of two nodes, one of which has a width that a load refuses.
    QString BadMap(int nodes = 2) {
        const QString path = SavedMap(QStringLiteral("bad.map"), nodes);
        storage::OpenDatabase(path).Execute(QStringLiteral("UPDATE [Nodes] SET [Width]=1e30 WHERE rowid=1"));
        return path;
    }
    void Open(frmMain &window, const QString &path) {
        desktop.ExpectOpenFile(path);
        window.SmartMenuXP1_Click(QStringLiteral("mnuFileOpen"));
    }
    QString Changes(const QString &path) {
        storage::Database database = storage::OpenDatabase(path);
        const QString key =
            database.OpenRecordset(QStringLiteral("SELECT [Key] FROM [Nodes] WHERE rowid=1")).Text(0);
        return QStringLiteral("Nodes %1, Width: 1e+30 is out of range; set to 100000000").arg(key);
    }
};

} // namespace

TEST_F(Salvage, TheOfferStandsBehindTheErrorAndNoLeavesTheWindow) {
    const QString path = BadMap();
    frmMain &window = NewWindow();
    desktop.ExpectMessage(QStringLiteral("Invalid property value\r\r(Error #380)"), Answer::Ok);
    desktop.ExpectMessage(kOffer, Answer::No);
    Open(window, path);
    EXPECT_EQ(desktop.Messages().back().enter, support::EnterPresses::No);
    EXPECT_EQ(frmMain::Forms().size(), 1U);
}

TEST_F(Salvage, YesOpensWhatCanBeReadAsAnUntitledMapThatIsNotSaved) {
    const QString path = BadMap();
    const QByteArray before = support::ReadWholeFile(path);
    frmMain &window = NewWindow();
    desktop.ExpectMessage(QStringLiteral("Invalid property value\r\r(Error #380)"), Answer::Ok);
    desktop.ExpectMessage(kOffer, Answer::Yes);
    desktop.ExpectMessage(Changes(path), Answer::Ok);
    Open(window, path);
    EXPECT_EQ(window.AddFlow1()[0].Nodes().Count(), 2);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Untitled - Velmora"));
    EXPECT_EQ(window.clsSettings().Database(), QString());
    EXPECT_TRUE(window.clsSettings().Dirty);
    // A save asks for a name and leaves the bad file as it is.
    desktop.ExpectSaveFile(MapFile(QStringLiteral("good.map")));
    EXPECT_TRUE(document::DoSave(window));
    EXPECT_EQ(support::ReadWholeFile(path), before);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Velmora - good.map"));
}

TEST_F(Salvage, AWindowThatHoldsSomethingKeepsIt) {
    const QString path = BadMap();
    frmMain &window = NewWindow();
    for (int node = 0; node < 5; ++node) AddNode(window, float(node), 0);
    window.clsSettings().Dirty = true;
    desktop.ExpectMessage(QStringLiteral("Invalid property value\r\r(Error #380)"), Answer::Ok);
    desktop.ExpectMessage(kOffer, Answer::Yes);
    desktop.ExpectMessage(Changes(path), Answer::Ok);
    Open(window, path);
    EXPECT_EQ(window.AddFlow1()[0].Nodes().Count(), 5);
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_EQ(frmMain::Forms().back()->AddFlow1()[0].Nodes().Count(), 2);
}

TEST_F(Salvage, AFileThatIsMissingOrNoMapIsNotOffered) {
    frmMain &window = NewWindow();
    const QString text = MapFile(QStringLiteral("text.map"));
    support::AtomicFile file(text);
    file.Write("no map at all");
    file.Commit();
    desktop.ExpectMessage(QStringLiteral("Unrecognized database format '%1'.\r\r(Error #3343)").arg(text),
                          Answer::Ok);
    Open(window, text);
}

} // namespace mainwindow::testing
