#include "mainwindow/Exchange.h"

#include "app/settings/Settings.h"
#include "diagram/format/SurfaceFile.h"
#include "document/LastPath.h"
#include "tests/mainwindow/WindowTest.h"

#include <QFile>

namespace mainwindow::testing {

namespace {

const QString kQuestion =
    QStringLiteral("Would you like to REPLACE the existing map or create a NEW Map to import into?\r\rYES to "
                   "REPLACE\rNO to import into a NEW Map\rCANCEL to Cancel");

class Exchange : public WindowTest {
protected:
    Exchange() {
        settings::ProductTerms terms = settings::Terms();
        terms.FLAT = QStringLiteral("Flat File");
        terms.FLATEXT = QStringLiteral("flt");
        settings::SetTerms(terms);
        document::SetLastPath(MapFile(QString()));
    }
    void Import(int row) {
        desktop.ExpectOpenFile(MapFile(QStringLiteral("in")), row);
        window.SmartMenuXP1_Click(QStringLiteral("mnuFileImport"));
    }
    void Export(int row) {
        desktop.ExpectSaveFile(MapFile(QStringLiteral("out.flt")), row);
        window.SmartMenuXP1_Click(QStringLiteral("mnuFileExport"));
    }
    // Text files are read by this.
    void TakeImports() {
        window.Exchange().ImportMap = [this](diagram::Surface &flow, const QString &file) {
            imported = file;
            into = flow.Index();
        };
    }

    frmMain &window = NewWindow();
    QString imported;
    int into = -1;
};

} // namespace

TEST_F(Exchange, ImportOffersMapsFlatFilesAndTextFiles) {
    desktop.ExpectOpenFile(QString());
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileImport"));
    const auto &shown = desktop.dialogs.shownFiles.at(0);
    EXPECT_EQ(shown.filter, QStringLiteral("Map Files|*.map|Flat File|*.flt|Text File (CSV)|*.csv"));
    EXPECT_EQ(shown.defaultExtension, QStringLiteral("flt"));
    EXPECT_EQ(shown.startFolder, MapFile(QString()));
    EXPECT_EQ(shown.flags, 528388);
    EXPECT_TRUE(Status(window).isEmpty());
}

TEST_F(Exchange, ExportOffersFiveFormsTheLastOneFirst) {
    desktop.ExpectSaveFile(QString());
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileExport"));
    const auto &shown = desktop.dialogs.shownFiles.at(0);
    EXPECT_EQ(shown.filter,
              QStringLiteral("Flat File|*.flt|Text File (CSV)|*.csv|Rich Text Format|*.rtf|HTML "
                             "Files|*.htm;*.html|Microsoft PowerPoint Presentation|*.ppt"));
    EXPECT_EQ(shown.filterRow, 5);
    EXPECT_EQ(shown.flags, 2050);
}

TEST_F(Exchange, WhatIsNotThereYetIsToldAndNothingIsAskedOrEmptied) {
    AddNode(window, 0, 0);
    desktop.dialogHost.Miss(QStringLiteral("frmPowerPoint"));
    const std::pair<int, const char *> imports[] = {
        {1, "Importing maps"}, {2, "Importing flat files"}, {3, "Importing text files"}};
    for (const auto &[row, what] : imports) {
        Import(row);
        EXPECT_EQ(Status(window), QLatin1String(what) + QStringLiteral(" is not there yet."));
    }
    const std::pair<int, const char *> exports[] = {{2, "Exporting text files"},
                                                    {3, "Exporting reports"},
                                                    {4, "Exporting reports"},
                                                    {5, "Exporting presentations"}};
    for (const auto &[row, what] : exports) {
        Export(row);
        EXPECT_EQ(Status(window), QLatin1String(what) + QStringLiteral(" is not there yet."));
    }
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Exchange, AFlatFileIsTheSurfaceInItsOwnForm) {
    AddNode(window, 0, 0, QStringLiteral("Idea"));
    Export(1);
    diagram::Surface read;
    diagram::LoadFile(read, MapFile(QStringLiteral("out.flt")));
    ASSERT_EQ(read.Nodes().Count(), 1);
    EXPECT_EQ(read.Nodes().Item(1).Text(), QStringLiteral("Idea"));
}

TEST_F(Exchange, ReplacingEmptiesTheCurrentSliceFirst) {
    TakeImports();
    AddNode(window, 0, 0);
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    Import(3);
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 0);
    EXPECT_EQ(imported, MapFile(QStringLiteral("in")));
    EXPECT_EQ(into, 0);
}

TEST_F(Exchange, NoImportsIntoANewSliceThatIsThenSelected) {
    TakeImports();
    AddNode(window, 0, 0);
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Imported"));
    Import(3);
    EXPECT_EQ(into, 1);
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    EXPECT_EQ(window.AddFlow1()[0].Nodes().Count(), 1);
}

TEST_F(Exchange, WithoutANameForTheNewSliceNothingIsImported) {
    TakeImports();
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QString());
    Import(3);
    EXPECT_EQ(into, -1);
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
}

TEST_F(Exchange, CancelImportsNothing) {
    TakeImports();
    AddNode(window, 0, 0);
    desktop.ExpectMessage(kQuestion, support::Answer::Cancel);
    Import(3);
    EXPECT_EQ(into, -1);
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Exchange, AFlatFileIsMadeToFitLoadedAndMarksTheMap) {
    AddNode(window, 0, 0, QStringLiteral("Idea"));
    diagram::SaveFile(window.CurrentSurface(), MapFile(QStringLiteral("in")));
    window.CurrentSurface().Nodes().Item(1).SetText(QStringLiteral("Other"));
    int prepared = 0;
    window.Exchange().PrepFileForImport = [&](diagram::Surface &, const QString &) { ++prepared; };
    window.clsSettings().Dirty = false;
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    Import(2);
    EXPECT_EQ(prepared, 1);
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(1).Text(), QStringLiteral("Idea"));
    EXPECT_TRUE(window.clsSettings().Dirty);
}

} // namespace mainwindow::testing
