#include "mainwindow/commands/Exchange.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/view/SurfaceView.h"
#include "document/DoSave.h"
#include "document/LastPath.h"
#include "document/UnsavedWork.h"
#include "mainwindow/controls/cStatusBar.h"
#include "output/csv/ExportMap.h"
#include "output/export/clsExport.h"
#include "output/powerpoint/PowerPointForm.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "tests/mainwindow/WindowTest.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>

namespace mainwindow::testing {

namespace {

const QString kQuestion =
    QStringLiteral("Would you like to REPLACE the existing map or create a NEW Map to import into?\r\rYES to "
                   "REPLACE\rNO to import into a NEW Map\rCANCEL to Cancel");

// The bytes of the surface file, the same whatever identities the items have.
QByteArray ContentOf(const diagram::Surface &surface) {
    diagram::Surface copy;
    diagram::LoadBytes(copy, diagram::SaveBytes(surface));
    return diagram::SaveBytes(copy);
}

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
    // Writes a text file with the node "New" to the path "in"; the window's node is "Idea" afterwards.
    void MakeTable() {
        diagram::Node &node = AddNode(window, 0, 0, QStringLiteral("New"));
        window.clsSettings().SetDatabase(MapFile(QStringLiteral("plan.map")));
        document::DoSave(window);
        output::ExportMap(window, window.CurrentSurface(), MapFile(QStringLiteral("in")));
        node.SetText(QStringLiteral("Idea"));
    }
    void AppendToTable(const QByteArray &rows) {
        const QByteArray bytes = support::ReadWholeFile(MapFile(QStringLiteral("in")));
        support::AtomicFile file(MapFile(QStringLiteral("in")));
        file.Write(bytes + rows);
        file.Commit();
    }
    // The texts of the nodes that are not hidden.
    QStringList Texts(int slice) {
        QStringList texts;
        for (const diagram::Node &node : window.AddFlow1()[slice].Nodes())
            if (!node.Hidden()) texts.append(node.Text());
        return texts;
    }

    frmMain &window = NewWindow();
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
                             "Files|*.htm;*.html|Microsoft PowerPoint Presentation|*.ppt;*.pptx"));
    EXPECT_EQ(shown.filterRow, 5);
    EXPECT_EQ(shown.flags, 2050);
}

TEST_F(Exchange, WhatIsNotThereYetIsToldAndNothingIsAskedOrEmptied) {
    AddNode(window, 0, 0);
    desktop.dialogHost.Miss<powerpoint::PowerPointArgument>();
    desktop.dialogHost.Miss<output::clsExport>();
    const std::pair<int, const char *> exports[] = {
        {3, "Exporting reports"}, {4, "Exporting reports"}, {5, "Exporting presentations"}};
    for (const auto &[row, what] : exports) {
        Export(row);
        EXPECT_EQ(Status(window), QLatin1String(what) + QStringLiteral(" is not there yet."));
    }
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Exchange, RichTextAndPagesAreReportsOfTheCurrentSlice) {
    for (const int row : {3, 4}) {
        bool shown = false;
        desktop.ExpectForm<output::clsExport>([&](output::clsExport &report) {
            shown = true;
            EXPECT_EQ(&report.Frm, &window);
            EXPECT_EQ(&report.AF, &window.CurrentSurface());
            EXPECT_EQ(report.Filename, MapFile(QStringLiteral("out.flt")));
            return true;
        });
        Export(row);
        EXPECT_TRUE(shown);
    }
}

TEST_F(Exchange, ExportRemembersItsFolderAndItsRow) {
    AddNode(window, 0, 0);
    window.clsSettings().SetDatabase(MapFile(QStringLiteral("plan.map")));
    const QString folder = MapFile(QStringLiteral("exports"));
    QDir().mkpath(folder);
    desktop.ExpectSaveFile(folder + QStringLiteral("/a.flt"), 1);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileExport"));
    desktop.ExpectSaveFile(QString());
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileExport"));
    EXPECT_EQ(desktop.dialogs.shownFiles.back().filterRow, 1);
    EXPECT_EQ(desktop.dialogs.shownFiles.back().startFolder, folder + QStringLiteral("/plan"));
    QDir(folder).removeRecursively();
    desktop.ExpectSaveFile(QString());
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileExport"));
    EXPECT_EQ(desktop.dialogs.shownFiles.back().startFolder, MapFile(QStringLiteral("plan")));
}

TEST_F(Exchange, APresentationIsChosenInItsForm) {
    QString file;
    const document::MapWindow *of = nullptr;
    desktop.ExpectForm<powerpoint::PowerPointArgument>([&](powerpoint::PowerPointArgument &argument) {
        file = argument.Filename, of = &argument.frmForm;
        return true;
    });
    Export(5);
    EXPECT_EQ(file, MapFile(QStringLiteral("out.flt")));
    EXPECT_EQ(of, &window);
}

TEST_F(Exchange, AFlatFileIsTheSurfaceInItsOwnForm) {
    AddNode(window, 0, 0, QStringLiteral("Idea"));
    Export(1);
    diagram::Surface read;
    diagram::LoadFile(read, MapFile(QStringLiteral("out.flt")));
    ASSERT_EQ(read.Nodes().Count(), 1);
    EXPECT_EQ(read.Nodes().Item(1).Text(), QStringLiteral("Idea"));
}

TEST_F(Exchange, ATextFileIsTheSliceAsATable) {
    AddNode(window, 0, 0, QStringLiteral("Idea"));
    desktop.ExpectMessageContaining(QStringLiteral("This operation requirers the Map to be saved."),
                                    support::Answer::Yes);
    desktop.ExpectSaveFile(MapFile(QStringLiteral("out.csv")), 2);
    desktop.ExpectSaveFile(MapFile(QStringLiteral("plan.map")));
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileExport"));
    EXPECT_TRUE(support::ReadWholeFile(MapFile(QStringLiteral("out.csv"))).contains("\"Idea\""));
    EXPECT_EQ(Status(window), output::NotInTextFiles());
}

TEST_F(Exchange, ReplacingEmptiesTheCurrentSliceFirst) {
    MakeTable();
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    Import(3);
    EXPECT_EQ(Texts(0), QStringList{"New"});
    EXPECT_TRUE(window.clsSettings().Dirty);
}

TEST_F(Exchange, NoImportsIntoANewSliceThatIsThenSelected) {
    MakeTable();
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Imported"));
    Import(3);
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    EXPECT_EQ(Texts(1), QStringList{"New"});
    EXPECT_EQ(Texts(0), QStringList{"Idea"});
}

TEST_F(Exchange, WithoutANameForTheNewSliceNothingIsImported) {
    MakeTable();
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QString());
    Import(3);
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
    EXPECT_EQ(Texts(0), QStringList{"Idea"});
}

TEST_F(Exchange, CancelImportsNothing) {
    MakeTable();
    desktop.ExpectMessage(kQuestion, support::Answer::Cancel);
    Import(3);
    EXPECT_EQ(Texts(0), QStringList{"Idea"});
    EXPECT_TRUE(Status(window).isEmpty());
}

// A file of another format fails before anything is read, one with a bad row at that row.
TEST_F(Exchange, AReplacingImportThatFailsLeavesTheSliceAsItWas) {
    MakeTable();
    diagram::Surface &surface = window.CurrentSurface();
    surface.Nodes().Item(1).Links().Add(AddNode(window, 3000, 0));
    window.tlbFormat_ButtonClick(QStringLiteral("NEW"));
    window.clsSettings().Dirty = false;
    document::MarkSaved(window);
    const QByteArray before = ContentOf(surface);
    AppendToTable("\"Link\"\r\n");
    for (const auto &[row, text] :
         {std::pair(2, "Invalid file format"), std::pair(3, "Invalid procedure call or argument")}) {
        desktop.ExpectMessage(kQuestion, support::Answer::Yes);
        desktop.ExpectMessageContaining(QLatin1String(text));
        Import(row);
        EXPECT_TRUE(ContentOf(surface) == before);
        EXPECT_FALSE(document::MustAskBeforeLosing(window));
    }
    EXPECT_TRUE(surface.CanUndo()) << "the history goes on";
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(surface.Links().size(), 1u);
}

TEST_F(Exchange, AnImportIntoANewSliceThatFailsLeavesNoSliceBehind) {
    MakeTable();
    AppendToTable("\"Link\"\r\n");
    window.clsSettings().Dirty = false;
    document::MarkSaved(window);
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Imported"));
    desktop.ExpectMessageContaining(QStringLiteral("Row 3, column"));
    Import(3);
    EXPECT_EQ(window.TabStrip().TabCount(), 1);
    EXPECT_EQ(window.AddFlow1().Count(), 1);
    EXPECT_EQ(window.TabStrip().TheTab(), 0);
    EXPECT_EQ(Texts(0), QStringList{"Idea"});
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_FALSE(document::MustAskBeforeLosing(window)) << "nothing has changed";
}

TEST_F(Exchange, AnImportThatFailsLeavesUnsavedWorkUnsaved) {
    MakeTable();
    AppendToTable("\"Link\"\r\n");
    window.clsSettings().Dirty = true;
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Imported"));
    desktop.ExpectMessageContaining(QStringLiteral("Row 3, column"));
    Import(3);
    EXPECT_TRUE(window.clsSettings().Dirty);
}

// So many rows that the import cannot end before Escape arrives.
TEST_F(Exchange, EscapeGivesALongImportUpWithNothingChanged) {
    MakeTable();
    AppendToTable(QByteArray(",\r\n").repeated(20'000'000));
    window.clsSettings().Dirty = false;
    document::MarkSaved(window);
    const bool couldUndo = window.CurrentSurface().CanUndo();
    auto *bar = window.findChild<cStatusBar *>(QStringLiteral("staMain"));
    const EscapeWhenOffered escape(window);
    for (const support::Answer where : {support::Answer::Yes, support::Answer::No}) {
        desktop.ExpectMessage(kQuestion, where);
        if (where == support::Answer::No)
            desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Imported"));
        Import(3);
        EXPECT_EQ(bar->Doing(), QStringLiteral("Importing was given up."));
        EXPECT_EQ(window.TabStrip().TabCount(), 1);
        EXPECT_EQ(Texts(0), QStringList{"Idea"});
        EXPECT_FALSE(document::MustAskBeforeLosing(window));
        EXPECT_EQ(window.CurrentSurface().CanUndo(), couldUndo);
        EXPECT_EQ(window.MousePointer(), document::pointer::kNormal);
    }
}

TEST_F(Exchange, AReplacingImportOfTextIsOneStepOfUndo) {
    MakeTable();
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    Import(3);
    EXPECT_EQ(Texts(0), QStringList{"New"});
    window.CurrentSurface().Undo();
    EXPECT_EQ(Texts(0), QStringList{"Idea"});
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 1);
}

TEST_F(Exchange, AnotherMapComesBehindTheSlicesOfThisOne) {
    MakeTable();
    desktop.ExpectOpenFile(MapFile(QStringLiteral("plan.map")), 1);
    window.SmartMenuXP1_Click(QStringLiteral("mnuFileImport"));
    ASSERT_EQ(window.TabStrip().TabCount(), 2);
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    EXPECT_EQ(Texts(1), QStringList{"New"});
    EXPECT_EQ(Texts(0), QStringList{"Idea"});
    EXPECT_EQ(window.CurrentSurface().Index(), 1);
}

TEST_F(Exchange, AFlatFileIsMadeToFitInACopyAndIsOneStepOfUndo) {
    AddNode(window, 0, 0, QStringLiteral("Idea"));
    const QString file = MapFile(QStringLiteral("in"));
    diagram::SaveFile(window.CurrentSurface(), file);
    const QByteArray bytes = support::ReadWholeFile(file);
    const QString key = window.CurrentSurface().Nodes().Item(1).Key();
    window.CurrentSurface().Nodes().Item(1).SetText(QStringLiteral("Other"));
    window.clsSettings().Dirty = false;
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    Import(2);
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(1).Text(), QStringLiteral("Idea"));
    EXPECT_NE(window.CurrentSurface().Nodes().Item(1).Key(), key);
    EXPECT_TRUE(window.clsSettings().Dirty);
    EXPECT_EQ(support::ReadWholeFile(file), bytes) << "the user's file is only read";
    window.CurrentSurface().Undo();
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(1).Text(), QStringLiteral("Other"));
}

TEST_F(Exchange, AFlatFileCanComeIntoANewSlice) {
    AddNode(window, 0, 0, QStringLiteral("Idea"));
    diagram::SaveFile(window.CurrentSurface(), MapFile(QStringLiteral("in")));
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Imported"));
    Import(2);
    EXPECT_EQ(window.TabStrip().TheTab(), 1);
    EXPECT_EQ(window.AddFlow1()[1].Nodes().Count(), 1);
    EXPECT_EQ(window.AddFlow1()[0].Nodes().Count(), 1);
}

} // namespace mainwindow::testing
