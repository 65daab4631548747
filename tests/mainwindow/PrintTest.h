// What the tests of printing share: a window whose slice takes 3 by 2 pages, and its preview.
#pragma once

#include "mainwindow/slices/WindowPrinting.h"
#include "output/print/form/frmPrint.h"
#include "settings/GetSet.h"
#include "support/Printers.h"
#include "tests/mainwindow/WindowTest.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QTest>

namespace mainwindow::testing {

class PrintTest : public WindowTest {
protected:
    PrintTest() {
        desktop.printers.names = {QStringLiteral("Office")};
        desktop.printers.defaultName = QStringLiteral("Office");
        desktop.printers.system.deviceName = QStringLiteral("Office");
        settings::SaveSet(QStringLiteral("FitToPage"), QStringLiteral("False"));
        settings::SaveSet(QStringLiteral("PagePaper"), QStringLiteral("A4"));
        window = &NewWindow();
        // 3 by 2 pages of A4, upright.
        AddNode(*window, 100, 100, QStringLiteral("First"));
        AddNode(*window, 26000, 25000, QStringLiteral("Last"));
        settings::SaveSet(QStringLiteral("Ori"), QStringLiteral("1"));
    }
    ~PrintTest() override { delete form; }

    print::frmPrint &Preview() {
        desktop.ExpectForm<print::PrintPreviewArgument>([this](print::PrintPreviewArgument &argument) {
            form = new print::frmPrint(argument);
            form->show();
            return true;
        });
        Run("mnuFilePrintPreview");
        EXPECT_TRUE(QTest::qWaitForWindowActive(form));
        return *form;
    }
    void Run(const char *key) { window->SmartMenuXP1_Click(QLatin1String(key)); }
    QString Panels() const {
        return form->Panel(QStringLiteral("PAGE")) + u'|' + form->Panel(QStringLiteral("VPAGE")) + u'|' +
               form->Panel(QStringLiteral("HPAGE"));
    }
    void Click(const char *key) { form->Button(QLatin1String(key))->trigger(); }
    void ChooseNumber(const char *key, int number) {
        form->Button(QLatin1String(key))->menu()->actions().at(number - 1)->trigger();
    }
    print::PageSetupArgument SetupArgument() {
        loaded = window->Printing().Loaded();
        return {
            desktop.Get(), *loaded, {QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")}};
    }

    frmMain *window;
    QPointer<print::frmPrint> form;
    std::shared_ptr<print::LoadedPrint> loaded;
};

} // namespace mainwindow::testing
