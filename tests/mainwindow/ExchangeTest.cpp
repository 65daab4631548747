#include "mainwindow/Exchange.h"

#include "app/settings/Settings.h"
#include "diagram/format/SurfaceFile.h"
#include "document/LastPath.h"
#include "document/UnsavedWork.h"
#include "output/powerpoint/PowerPointForm.h"
#include "support/Error.h"
#include "tests/mainwindow/WindowTest.h"

#include <QFile>

namespace mainwindow::testing {

namespace {

const QString kQuestion =
    QStringLiteral("Would you like to REPLACE the existing map or create a NEW Map to import into?\r\rYES to "
                   "REPLACE\rNO to import into a NEW Map\rCANCEL to Cancel");

// Of items with other identities the same.
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
                             "Files|*.htm;*.html|Microsoft PowerPoint Presentation|*.ppt;*.pptx"));
    EXPECT_EQ(shown.filterRow, 5);
    EXPECT_EQ(shown.flags, 2050);
}

TEST_F(Exchange, WhatIsNotThereYetIsToldAndNothingIsAskedOrEmptied) {
    AddNode(window, 0, 0);
    desktop.dialogHost.Miss<powerpoint::PowerPointArgument>();
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

// Three ways to fail: before anything is read, in the middle of the rows, and after the file was loaded.
TEST_F(Exchange, AReplacingImportThatFailsLeavesTheSliceAsItWas) {
    AddNode(window, 0, 0, QStringLiteral("Idea")).Links().Add(AddNode(window, 3000, 0));
    window.tlbFormat_ButtonClick(QStringLiteral("NEW"));
    window.clsSettings().Dirty = false;
    document::MarkSaved(window);
    diagram::Surface &surface = window.CurrentSurface();
    const QByteArray before = ContentOf(surface);
    const auto fail = [](diagram::Surface &, const QString &) {
        throw support::Error(321, QStringLiteral("Import"), QStringLiteral("Invalid file format"));
    };
    const auto failLate = [&](diagram::Surface &flow, const QString &file) {
        flow.Nodes().Add(0, 0, 10, 10);
        window.clsSettings().Dirty = true;
        fail(flow, file);
    };
    const auto failAfterLoad = [&](diagram::Surface &flow, const QString &file) {
        diagram::LoadBytes(flow, diagram::SaveBytes(diagram::Surface()));
        fail(flow, file);
    };
    const auto import = [&](const decltype(window.Exchange().ImportMap) &routine, int row) {
        window.Exchange().ImportMap = window.Exchange().PrepFileForImport = routine;
        desktop.ExpectMessage(kQuestion, support::Answer::Yes);
        desktop.ExpectMessageContaining(QStringLiteral("Invalid file format"));
        Import(row);
        EXPECT_TRUE(ContentOf(surface) == before);
        EXPECT_FALSE(document::MustAskBeforeLosing(window));
    };
    import(fail, 2);
    import(fail, 3);
    import(failLate, 3);
    EXPECT_TRUE(surface.CanUndo()) << "the history goes on";
    import(failAfterLoad, 2);
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(surface.Links().size(), 1u);
}

TEST_F(Exchange, AReplacingImportOfTextIsOneStepOfUndo) {
    window.Exchange().ImportMap = [](diagram::Surface &flow, const QString &) {
        flow.Nodes().Add(0, 0, 10, 10).SetText(QStringLiteral("New"));
    };
    AddNode(window, 0, 0, QStringLiteral("Idea"));
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    Import(3);
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(1).Text(), QStringLiteral("New"));
    window.CurrentSurface().Undo();
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 1);
    EXPECT_EQ(window.CurrentSurface().Nodes().Item(1).Text(), QStringLiteral("Idea"));
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
