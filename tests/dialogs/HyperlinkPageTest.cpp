#include "dialogs/HyperlinkPage.h"

#include "dialogs/clsCompactPath.h"
#include "settings/Settings.h"
#include "tests/dialogs/AttachTest.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

namespace dialogs::testing {

class HyperlinkPageTest : public AttachTest {
protected:
    HyperlinkPageTest() {
        window->TabStrip().SetTabCount(2);
        for (const int tab : {1, 0}) {
            window->TabStrip().SetTheTab(tab);
            window->TabStrip().SetCaption(QStringLiteral("Page %1").arg(tab));
        }
    }
    HyperlinkPage &Page() {
        page = std::make_unique<HyperlinkPage>(*window, Node(), nullptr);
        page->Load();
        return *page;
    }
    void Link(const QString &map, int slice, const char *tag = "Yes") {
        QString key = QStringLiteral("a");
        document::cHyperlink &hyperlink = Settings().Hyperlinks().add(key);
        hyperlink.Node = key;
        hyperlink.Map = map;
        hyperlink.Slice = std::int16_t(slice);
        hyperlink.DestNode = QStringLiteral("far");
        if (*tag) document::SetTag(Node(), document::tags::kHyper, QLatin1String(tag));
    }
    QString OtherMap(const QString &name = QStringLiteral("other.map")) {
        const QString path = EmptyMap(name);
        for (const int index : {0, 2})
            Run(path, document::testing::InsertSlice(index, QStringLiteral("Other %1").arg(index)));
        return path;
    }
    QStringList Entries() {
        QStringList entries;
        for (int row = 0; row < page->lstSlice().count(); ++row)
            entries << page->lstSlice().item(row)->text();
        return entries;
    }
    QString Current() {
        const QListWidgetItem *current = page->lstSlice().currentItem();
        return current ? current->text() : QString();
    }
    QList<bool> Enabled() {
        return {page->optLink(0).isEnabled(), page->optLink(1).isEnabled(), page->lblFilename().isEnabled(),
                page->cmdBrowseLink().isEnabled(), page->lstSlice().isEnabled()};
    }
    void Ok() { ApplyHyperlink(*window, Node(), page->Edit()); }

    std::unique_ptr<HyperlinkPage> page;
    const QStringList kTabs{"Page 0", "Page 1"}, kOther{"Other 0", "Other 2"};
};

TEST_F(HyperlinkPageTest, CaptionsHaveTheTermsInThem) {
    settings::ProductTerms terms = settings::Terms();
    terms.MAP = "Plan";
    terms.SLICE = "Scene";
    settings::SetTerms(terms);
    Page();
    EXPECT_EQ(page->optLink(0).text(), "This Plan");
    EXPECT_EQ(page->optLink(1).text(), "Specified Plan");
    EXPECT_EQ(page->findChild<QGroupBox *>("fraSlice")->title(), "Link to this Scene");
    for (const char *name : {"chkHyperlink", "optLink(0)", "optLink(1)", "lblFilename", "cmdBrowseLink",
                             "lstSlice", "fraHyperlink"})
        EXPECT_NE(page->findChild<QWidget *>(name), nullptr) << name;
}

TEST_F(HyperlinkPageTest, ANodeWithoutAHyperlinkShowsThisMapsSlicesAndNothingIsEnabled) {
    Page();
    EXPECT_FALSE(page->chkHyperlink().isChecked());
    EXPECT_TRUE(page->optLink(0).isChecked());
    EXPECT_EQ(Entries(), kTabs);
    EXPECT_EQ(Current(), "Page 0");
    EXPECT_EQ(Enabled(), QList<bool>(5, false));
    EXPECT_EQ(page->Edit().Slice, 1);
    page->chkHyperlink().click();
    EXPECT_EQ(Enabled(), QList<bool>(5, true)) << "the button too, whichever option is on";
    page->chkHyperlink().click();
    EXPECT_EQ(Enabled(), QList<bool>(5, false));
}

TEST_F(HyperlinkPageTest, OneInThisMapShowsItsSlice) {
    Link(QString(), 2);
    Page();
    EXPECT_TRUE(page->chkHyperlink().isChecked());
    EXPECT_TRUE(page->optLink(0).isChecked());
    EXPECT_EQ(Current(), "Page 1");
    EXPECT_EQ(page->Edit().Slice, 2);
    EXPECT_EQ(page->Edit().Map, "");
    EXPECT_TRUE(page->lblNotFound().isHidden());
}

TEST_F(HyperlinkPageTest, OneToASliceThatWasMovedShowsItWhereItStandsNow) {
    Link(QString(), 2);
    Settings().Hyperlinks().Item(1).SliceKey = window->TabStrip().TabKey(0);
    Page();
    EXPECT_EQ(Current(), "Page 0");
    Ok();
    EXPECT_EQ(Settings().Hyperlinks().Item(1).Slice, 1);
    EXPECT_EQ(Settings().Hyperlinks().Item(1).SliceKey, window->TabStrip().TabKey(0));
}

TEST_F(HyperlinkPageTest, OneToAnotherMapShowsItsPathAndSlice) {
    const QString other = OtherMap();
    Link(other, 2);
    Page();
    EXPECT_TRUE(page->optLink(1).isChecked());
    EXPECT_EQ(page->lblFilename().Tag(), other);
    EXPECT_EQ(Entries(), kOther);
    EXPECT_EQ(Current(), "Other 2");
    EXPECT_EQ(page->Edit().Map, other);
    EXPECT_EQ(page->Edit().Slice, 2);
}

TEST_F(HyperlinkPageTest, ARecordWithoutTheTagFillsThePageWithoutTheTick) {
    Link(QString(), 2, "No");
    Page();
    EXPECT_FALSE(page->chkHyperlink().isChecked());
    EXPECT_EQ(Current(), "Page 1");
    EXPECT_EQ(Enabled(), QList<bool>(5, false));
}

TEST_F(HyperlinkPageTest, ATagWithoutARecordHasNoSliceAndOkWritesNo) {
    document::SetTag(Node(), document::tags::kHyper, "Yes");
    Page();
    EXPECT_TRUE(page->chkHyperlink().isChecked());
    EXPECT_TRUE(Entries().isEmpty());
    Ok();
    EXPECT_EQ(document::GetTag(Node(), document::tags::kHyper), "No");
    EXPECT_EQ(Settings().Hyperlinks().count(), 0);
}

TEST_F(HyperlinkPageTest, TheOptionsFillTheListAndTheLabelStays) {
    const QString other = OtherMap();
    Link(other, 2);
    Page();
    page->optLink(0).click();
    EXPECT_FALSE(page->cmdBrowseLink().isEnabled());
    EXPECT_EQ(Entries(), kTabs);
    EXPECT_EQ(Current(), "Page 0");
    EXPECT_EQ(page->Edit().Map, other) << "whichever option is on";
    EXPECT_EQ(page->Edit().Slice, 1);
    page->optLink(1).click();
    EXPECT_TRUE(page->cmdBrowseLink().isEnabled());
    EXPECT_EQ(Entries(), kOther);
    EXPECT_EQ(Current(), "Other 0");
}

TEST_F(HyperlinkPageTest, TheOtherOptionAsksForAMapWhenThereIsNone) {
    const QString other = OtherMap();
    Page();
    page->chkHyperlink().click();
    desktop.ExpectOpenFile("");
    page->optLink(1).click();
    EXPECT_TRUE(Entries().isEmpty());
    EXPECT_EQ(page->Edit().Slice, std::nullopt);
    desktop.ExpectOpenFile(other);
    page->optLink(1).click();
    EXPECT_EQ(desktop.dialogs.shownFiles.back().filter, "Map Files|*.map|All Files|*.*");
    EXPECT_EQ(page->lblFilename().Tag(), other);
    EXPECT_EQ(Entries(), kOther);
    Ok();
    EXPECT_EQ(Settings().Hyperlinks().Item(1).Map, other);
    EXPECT_EQ(Settings().Hyperlinks().Item(1).Slice, 0);
}

TEST_F(HyperlinkPageTest, BrowsingTakesAnotherMapAndLeavesEverythingForWhatIsNone) {
    const QString other = OtherMap(), more = OtherMap("more.map");
    Link(other, 2);
    Page();
    desktop.ExpectOpenFile(more);
    page->cmdBrowseLink().click();
    EXPECT_EQ(page->lblFilename().Tag(), more);
    EXPECT_EQ(Current(), "Other 0");
    desktop.ExpectOpenFile(Saved("text.map", "no map"));
    desktop.ExpectMessageContaining("Unrecognized database format");
    page->cmdBrowseLink().click();
    EXPECT_EQ(page->lblFilename().Tag(), more);
    EXPECT_EQ(Entries(), kOther);
    desktop.ExpectOpenFile("");
    page->cmdBrowseLink().click();
    EXPECT_EQ(page->lblFilename().Tag(), more);
}

TEST_F(HyperlinkPageTest, AMapThatCantBeReadNowStaysListedAndSurvivesOk) {
    for (const QString &gone : {MapFile("gone.map"), Saved("text.map", "no map"), EmptyMap("empty.map"),
                                QStringLiteral("Q:\\gone.map")}) {
        Settings().Hyperlinks().Clear();
        Link(gone, 3);
        Page();
        EXPECT_TRUE(page->optLink(1).isChecked());
        EXPECT_EQ(Entries(), QStringList("Slice 3 (not found)"));
        EXPECT_EQ(Current(), "Slice 3 (not found)");
        EXPECT_FALSE(page->lblNotFound().isHidden());
        Ok();
        ASSERT_EQ(Settings().Hyperlinks().count(), 1);
        const document::cHyperlink &kept = Settings().Hyperlinks().Item(1);
        EXPECT_EQ(kept.Map, gone);
        EXPECT_EQ(kept.Slice, 3);
        EXPECT_EQ(kept.DestNode, "far");
        EXPECT_EQ(document::GetTag(Node(), document::tags::kHyper), "Yes");
    }
    EXPECT_TRUE(desktop.Messages().empty()) << "the page opens without a box";
}

TEST_F(HyperlinkPageTest, ALongPathDoesntWidenThePage) {
    Page();
    const int width = page->minimumSizeHint().width();
    Link("/gone/" + QString(200, 'x') + "/" + QString(200, 'y') + ".map", 3);
    Page();
    EXPECT_LE(page->minimumSizeHint().width(), width + 20);
}

TEST_F(HyperlinkPageTest, GoingToThisMapAndBackKeepsWhatCantBeRead) {
    Link(MapFile("gone.map"), 3);
    Page();
    page->optLink(0).click();
    EXPECT_EQ(Entries(), kTabs);
    EXPECT_TRUE(page->lblNotFound().isHidden());
    page->optLink(1).click();
    EXPECT_EQ(Entries(), QStringList("Slice 3 (not found)"));
    EXPECT_FALSE(page->lblNotFound().isHidden());
}

TEST_F(HyperlinkPageTest, ASliceThatIsNotThereIsListedBehindTheOthers) {
    const QString other = OtherMap();
    Link(other, 7);
    Page();
    EXPECT_EQ(Entries(), kOther + QStringList("Slice 7 (not found)"));
    EXPECT_EQ(page->Edit().Slice, 7);
    page->lstSlice().setCurrentRow(0);
    EXPECT_EQ(page->Edit().Slice, 0);
    Settings().Hyperlinks().Clear();
    Link(QString(), 0); // as that to a slice that was deleted
    Page();
    EXPECT_EQ(Entries(), kTabs + QStringList("Slice 0 (not found)"));
    Ok();
    EXPECT_EQ(Settings().Hyperlinks().Item(1).Slice, 0);
}

TEST_F(HyperlinkPageTest, OneToThisMapItselfIsReadFromItsFile) {
    SaveAndOpen();
    Link(Settings().Database(), 1);
    Page();
    EXPECT_EQ(Entries(), QStringList({"Page 0", "Slice 1 (not found)"}))
        << "only the first slice has a surface";
}

TEST_F(HyperlinkPageTest, ALockedMapIsToldAndReadWhenItIsFree) {
    const QString other = OtherMap();
    Link(other, 2);
    {
        storage::Database locked = storage::OpenDatabase(other);
        locked.Execute("PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE");
        Page();
        EXPECT_EQ(Entries(), QStringList("Slice 2 (not found)"));
        EXPECT_TRUE(page->lblNotFound().text().contains("in use"))
            << page->lblNotFound().text().toStdString();
    }
    Page();
    EXPECT_EQ(Current(), "Other 2");
}

} // namespace dialogs::testing
