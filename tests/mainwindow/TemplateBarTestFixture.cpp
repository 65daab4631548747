#include "tests/mainwindow/TemplateBarTest.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Surface.h"
#include "mainwindow/templates/BarFilling.h"
#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "support/Colour.h"
#include "templates/DiagramNode.h"
#include "templates/TemplateDb.h"

#include <algorithm>
#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QTest>

namespace mainwindow::testing {

namespace {

void FillSurface(diagram::Surface &surface, const QStringList &texts) {
    float left = 300;
    for (const QString &text : texts) {
        surface.Nodes().Add(left, 300, 1500, 900).SetText(text);
        left += 2000;
    }
}

} // namespace

TemplateBarTest::TemplateBarTest() {
    settings::ProductTerms terms = settings::Terms();
    terms.TEMPLATE = QStringLiteral("TEM");
    settings::SetTerms(terms);
    QDir().mkpath(ProgramFile(QStringLiteral("Templates")));
}

QString TemplateBarTest::Own(const QString &name) const {
    QDir().mkpath(settings::OwnTemplatesFolder());
    return settings::OwnTemplatesFolder() + name;
}

void MakeFile(const QString &path, const QByteArray &content) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

void MakeTemplate(const QString &path, const QStringList &texts, const QColor &icon,
                  const QColor &background) {
    QDir().mkpath(QFileInfo(path).path());
    const QTemporaryDir scratch;
    diagram::Surface surface;
    FillSurface(surface, texts);
    surface.SetBackColor(support::FromQColor(background));
    templates::PutDiagramNode(surface);
    diagram::SaveFile(surface, scratch.filePath(QStringLiteral("map")));
    QPixmap picture(32, 32);
    picture.fill(icon);
    ASSERT_TRUE(picture.save(scratch.filePath(QStringLiteral("a.ico")), "ICO"));
    templates::CreateTemplate(scratch.filePath(QStringLiteral("map")),
                              scratch.filePath(QStringLiteral("a.ico")), path);
}

void MakeFlat(const QString &path, const QStringList &texts) {
    diagram::Surface surface;
    FillSurface(surface, texts);
    diagram::SaveFile(surface, path);
}

QStringList TemplateBarTest::Bars(const frmMain &window) {
    QStringList captions;
    for (int bar = 0; bar < RB(window).BarCount(); ++bar) captions << RB(window).BarCaption(bar);
    return captions;
}

QStringList TemplateBarTest::Items(const frmMain &window, int bar) {
    QStringList captions;
    for (int item = 0; item < RB(window).ItemCount(bar); ++item)
        captions << RB(window).Item(bar, item).caption;
    captions.sort();
    return captions;
}

void TemplateBarTest::WaitForFill(frmMain &window) {
    const auto filled = [&] {
        const int bar = RB(window).CurrentBar();
        const QString note = RB(window).BarNote(bar);
        return !window.Templates().Filling().IsBusy() && !note.isEmpty();
    };
    EXPECT_TRUE(QTest::qWaitFor(filled));
}

frmMain &TemplateBarTest::FilledWindow() {
    frmMain &window = NewWindow();
    WaitForFill(window);
    return window;
}

void TemplateBarTest::OpenBar(frmMain &window, int bar) {
    ListBar &list = RB(window);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.BarRect(bar).center());
    EXPECT_EQ(list.CurrentBar(), bar);
    WaitForFill(window);
}

ListBar::Place TemplateBarTest::PlaceOf(const frmMain &window, const QString &caption) {
    const ListBar &list = RB(window);
    for (int bar = 0; bar < list.BarCount(); ++bar)
        for (int item = 0; item < list.ItemCount(bar); ++item)
            if (list.Item(bar, item).caption == caption) return {bar, item};
    ADD_FAILURE() << "no item " << caption.toStdString();
    return {0, 0};
}

void TemplateBarTest::ClickOn(frmMain &window, const QString &caption) {
    ListBar &list = RB(window);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.ItemRect(PlaceOf(window, caption)).center());
    Settle();
}

void TemplateBarTest::DoubleClickOn(frmMain &window, const QString &caption) {
    ListBar &list = RB(window);
    const QPoint at = list.ItemRect(PlaceOf(window, caption)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
    Settle();
}

// It is put off until the event of the click or the drop is over.
void TemplateBarTest::Settle() {
    bool reached = false;
    QTimer::singleShot(0, [&] { reached = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return reached; }));
    ProcessEvents();
}

void TemplateBarTest::Answer(std::int32_t choice, bool remember) {
    desktop.ExpectForm<settings::clsRB>([choice, remember](settings::clsRB &prompt) {
        prompt.Choice = choice;
        prompt.SaveValue = remember;
        return true;
    });
}

QStringList TemplateBarTest::Texts(frmMain &window) {
    QStringList texts;
    for (const diagram::Node &node : window.CurrentSurface().Nodes())
        if (!node.Hidden()) texts << node.Text();
    return texts;
}

} // namespace mainwindow::testing
