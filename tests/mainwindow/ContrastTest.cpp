// Whether the texts of the window can be read: their contrast is measured from its pixels, on a light and on
// a dark desktop. Disabled texts are meant to be faint, and aren't measured.
#include "support/Contrast.h"
#include "mainwindow/find/FindBar.h"
#include "mainwindow/forms/frmSplash.h"
#include "mainwindow/menus/CommandSearch.h"
#include "mainwindow/start/StartOffer.h"
#include "mainwindow/start/StartPage.h"
#include "mainwindow/templates/ListBar.h"
#include "mainwindow/templates/TemplateBar.h"
#include "tests/document/Slices.h"
#include "tests/mainwindow/WindowTest.h"
#include "widgets/ProgramStyle.h"

#include <map>
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

namespace mainwindow::testing {

namespace {

constexpr double kReadable = 4.5; // as the guidelines for web content ask of normal text

QPalette Desktop(bool dark) {
    if (!dark) return QApplication::style()->standardPalette();
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::AlternateBase, QColor(53, 53, 53));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, QColor(235, 235, 235));
        palette.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
    }
    palette.setColor(QPalette::PlaceholderText, QColor(130, 130, 130)); // below kReadable
    palette.setColor(QPalette::ToolTipBase, QColor(60, 60, 50));
    palette.setColor(QPalette::ToolTipText, QColor(235, 235, 235));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

struct Place {
    QString name;
    QWidget *widget;
    QRect rect; // of the text alone, in the widget
};

// Where a text stands that is drawn into `rect` with that alignment.
QRect Drawn(const QWidget &widget, const QString &text, Qt::Alignment alignment, const QRect &rect) {
    const QString shown = QString(text).remove(u'&');
    const QSize size = widget.fontMetrics().size(0, shown).boundedTo(rect.size());
    return QStyle::alignedRect(widget.layoutDirection(), alignment, size, rect);
}

QRect InButton(const QAbstractButton &button) {
    if (const auto *check = qobject_cast<const QCheckBox *>(&button)) {
        QStyleOptionButton option;
        option.initFrom(check);
        return check->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, check);
    }
    return Drawn(button, button.text(), Qt::AlignCenter, button.rect());
}

bool ShowsText(const QAbstractButton &button) {
    const auto *tool = qobject_cast<const QToolButton *>(&button);
    const bool known =
        tool || qobject_cast<const QPushButton *>(&button) || qobject_cast<const QCheckBox *>(&button);
    if (!known || button.text().isEmpty()) return false;
    return !tool || tool->toolButtonStyle() == Qt::ToolButtonTextOnly;
}

void AddPlaces(QLabel &label, std::vector<Place> &places) {
    if (label.text().isEmpty() || !label.pixmap(Qt::ReturnByValue).isNull()) return;
    places.push_back({label.text(), &label, label.contentsRect()});
}

void AddPlaces(QLineEdit &line, std::vector<Place> &places) {
    const QString shown = line.text().isEmpty() ? line.placeholderText() : line.text();
    if (shown.isEmpty()) return;
    const QRect inside = line.rect().adjusted(6, 4, -6, -4);
    places.push_back({shown, &line, Drawn(line, shown, Qt::AlignLeft | Qt::AlignVCenter, inside)});
}

void AddPlaces(QTabBar &tabs, std::vector<Place> &places) {
    for (int tab = 0; tab < tabs.count(); ++tab)
        places.push_back({QStringLiteral("tab ") + tabs.tabText(tab), &tabs,
                          Drawn(tabs, tabs.tabText(tab), Qt::AlignCenter, tabs.tabRect(tab))});
}

void AddPlaces(QMenuBar &bar, std::vector<Place> &places) {
    for (QAction *menu : bar.actions())
        places.push_back(
            {menu->text(), &bar, Drawn(bar, menu->text(), Qt::AlignCenter, bar.actionGeometry(menu))});
}

void AddPlaces(QAbstractItemView &list, std::vector<Place> &places) {
    const QAbstractItemModel &model = *list.model();
    for (int row = 0; row < model.rowCount(list.rootIndex()); ++row) {
        const QModelIndex index = model.index(row, 0, list.rootIndex());
        const QRect rect = list.visualRect(index) & list.viewport()->rect();
        if (rect.isEmpty() || !(index.flags() & Qt::ItemIsEnabled)) continue;
        places.push_back({index.data().toString(), list.viewport(),
                          Drawn(list, index.data().toString(), Qt::AlignLeft | Qt::AlignVCenter,
                                rect.adjusted(rect.width() / 4, 0, 0, 0))});
    }
}

template <typename Widget>
void AddAll(QWidget &window, std::vector<Place> &places) {
    for (Widget *widget : window.findChildren<Widget *>())
        if (widget->isVisible() && widget->isEnabled()) AddPlaces(*widget, places);
}

std::vector<Place> PlacesOf(QWidget &window) {
    std::vector<Place> places;
    AddAll<QLabel>(window, places);
    AddAll<QLineEdit>(window, places);
    AddAll<QTabBar>(window, places);
    AddAll<QMenuBar>(window, places);
    AddAll<QAbstractItemView>(window, places);
    for (QAbstractButton *button : window.findChildren<QAbstractButton *>())
        if (button->isVisible() && button->isEnabled() && ShowsText(*button))
            places.push_back({button->text(), button, InButton(*button)});
    return places;
}

// The colour of most pixels.
QColor Ground(const QImage &image) {
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto &a, const auto &b) { return a.second < b.second; })
        ->first;
}

// That of the pixel that differs most from the ground: the edges of letters are blended with it.
double ContrastOf(const QImage &image) {
    const QColor ground = Ground(image);
    double best = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            best = std::max(best, support::Contrast(image.pixelColor(x, y), ground));
    return best;
}

class Contrasts : public WindowTest, public ::testing::WithParamInterface<bool> {
protected:
    Contrasts() {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
        QApplication::setStyle(new widgets::ProgramStyle);
        QApplication::setPalette(Desktop(GetParam()));
    }
    ~Contrasts() override {
        for (frmMain *form : frmMain::Forms()) delete form;
        QApplication::setPalette(QPalette());
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("fusion")));
    }
    // Measures all texts, and gives how many they are.
    int Measure(QWidget &window) {
        int measured = 0;
        for (const Place &place : PlacesOf(window)) {
            const QImage image =
                place.widget->grab(place.rect).toImage().convertToFormat(QImage::Format_RGB32);
            if (image.isNull()) continue;
            EXPECT_GE(ContrastOf(image), kReadable)
                << qPrintable(place.name) << " of " << place.widget->metaObject()->className() << " "
                << qPrintable(place.widget->objectName());
            ++measured;
        }
        return measured;
    }
};

} // namespace

TEST_P(Contrasts, TextsOfTheWindowCanBeRead) {
    frmMain &window = NewWindow();
    window.resize(1200, 800);
    window.TabStrip().SetCaption(QStringLiteral("Chosen"));
    document::testing::AddSlice(window, QStringLiteral("Another"));
    AddNode(window, 900, 900).SetSelected(true);
    window.DoStatus(QStringLiteral("Doing something"));
    ProcessEvents();
    EXPECT_GE(Measure(window), 12);
    EXPECT_TRUE(window.Search().text().isEmpty()) << "its placeholder was measured";
    window.Search().setText(QStringLiteral("typed"));
    Measure(window);
}

TEST_P(Contrasts, TheBarThatFindsCanBeRead) {
    frmMain &window = NewWindow();
    window.resize(1200, 800);
    Press(window, QStringLiteral("Ctrl+H"));
    window.setFocus();
    ProcessEvents();
    auto *bar = window.findChild<FindBar *>();
    ASSERT_TRUE(bar->isVisible());
    EXPECT_GE(Measure(*bar), 4);
}

TEST_P(Contrasts, TheStartPageCanBeRead) {
    frmMain &window = NewWindow();
    window.Start().Offer();
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.Start().Page() != nullptr; }));
    EXPECT_GE(Measure(*window.Start().Page()), 3);
}

TEST_P(Contrasts, MenusCanBeRead) {
    frmMain &window = NewWindow();
    for (QAction *action : window.menuBar()->actions()) {
        QMenu &menu = *action->menu();
        menu.ensurePolished();
        menu.adjustSize();
        for (QAction *entry : menu.actions()) {
            if (entry->isSeparator() || !entry->isEnabled()) continue;
            const QRect rect = menu.actionGeometry(entry).adjusted(30, 2, -60, -2);
            const QImage image = menu.grab(rect).toImage().convertToFormat(QImage::Format_RGB32);
            EXPECT_GE(ContrastOf(image), kReadable) << qPrintable(entry->text());
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Contrasts, ::testing::Bool(),
                         [](const auto &dark) { return dark.param ? "Dark" : "Light"; });

} // namespace mainwindow::testing
