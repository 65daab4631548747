// What the tests of the template bar share: folders with templates, and a user who clicks on them.
#pragma once

#include "mainwindow/templates/TemplateBar.h"
#include "settings/clsRB.h"
#include "tests/EnvironmentVariable.h"
#include "tests/mainwindow/WindowTest.h"

namespace mainwindow::testing {

void MakeFile(const QString &path, const QByteArray &content);
// Writes a template database with a node of each of those texts, an icon of that colour, and a background.
void MakeTemplate(const QString &path, const QStringList &texts, const QColor &icon = Qt::blue,
                  const QColor &background = Qt::white);
// Writes a surface file, which is the other form of a template.
void MakeFlat(const QString &path, const QStringList &texts);

class TemplateBarTest : public WindowTest {
protected:
    TemplateBarTest();

    // The path of a template in the folder beside the program.
    QString Beside(const QString &name) const { return ProgramFile(QStringLiteral("Templates/") + name); }
    // The path of one in the user's own folder, which is made.
    QString Own(const QString &name) const;
    static ListBar &RB(const frmMain &window) { return window.Templates().RB(); }
    static QStringList Bars(const frmMain &window);
    static QStringList Items(const frmMain &window, int bar);
    // A window whose first bar is filled.
    frmMain &FilledWindow();
    void WaitForFill(frmMain &window);
    void OpenBar(frmMain &window, int bar);
    // The place of the item with that caption, and what a user does there.
    static ListBar::Place PlaceOf(const frmMain &window, const QString &caption);
    void ClickOn(frmMain &window, const QString &caption);
    void DoubleClickOn(frmMain &window, const QString &caption);
    // Waits until what a click or a drop asks for is done.
    void Settle();
    // Answers the question that the next click asks.
    void Answer(std::int32_t choice, bool remember = false);
    // The texts of the nodes that are not hidden on the current slice.
    static QStringList Texts(frmMain &window);

private:
    QTemporaryDir data_;
    const tests::EnvironmentVariable dataHome_{"XDG_DATA_HOME", data_.path().toUtf8()};
};

} // namespace mainwindow::testing
