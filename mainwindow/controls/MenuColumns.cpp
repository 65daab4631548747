#include "mainwindow/controls/MenuColumns.h"

#include <algorithm>
#include <QMenu>
#include <QScreen>
#include <QStyleOptionMenuItem>

namespace mainwindow {

namespace {

constexpr double kShare = 0.6; // of the screen's height that the menu takes up

int DividedUp(int a, int b) { return (a + b - 1) / b; }

// The largest entry, as the platform's style sees it. The menu knows its texts and the room for its icons
// only once it is laid out, so these are measured here.
QSize EntrySize(const ColumnStyle &style, const QMenu &menu) {
    QSize largest;
    QStyleOptionMenuItem option;
    option.initFrom(&menu);
    option.font = menu.font();
    option.menuHasCheckableItems = false;
    option.maxIconWidth = style.pixelMetric(QStyle::PM_SmallIconSize, nullptr, &menu) + 4;
    for (const QAction *action : menu.actions()) {
        option.text = action->text();
        option.icon = action->icon();
        const QFontMetrics metrics(option.font);
        const QSize text(metrics.horizontalAdvance(option.text), metrics.height());
        largest = largest.expandedTo(
            style.QProxyStyle::sizeFromContents(QStyle::CT_MenuItem, &option, text, &menu));
    }
    return largest;
}

// What is left of the screen beside the frame of the menu.
QSize RoomOf(const QStyle &style, const QMenu &menu) {
    const int frame = 2 * style.pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, &menu);
    const QSize margins(2 * style.pixelMetric(QStyle::PM_MenuHMargin, nullptr, &menu) + frame,
                        2 * style.pixelMetric(QStyle::PM_MenuVMargin, nullptr, &menu) + frame);
    return menu.screen()->availableSize() - margins;
}

ColumnPlan PlanOf(const ColumnStyle &style, const QMenu &menu) {
    const int least = QFontMetrics(menu.font()).height() + 1;
    return PlanColumns(int(menu.actions().size()), EntrySize(style, menu), least, RoomOf(style, menu));
}

} // namespace

ColumnPlan PlanColumns(int count, const QSize &entry, int leastHeight, const QSize &screen) {
    if (count <= 0 || entry.isEmpty()) return {std::max(count, 1), std::max(entry.height(), 1)};
    const int most = std::max(1, screen.width() / entry.width());
    const int wanted = std::max(1, int(kShare * screen.height()) / entry.height());
    const int columns = std::clamp(DividedUp(count, wanted), 1, most);
    const int rows = DividedUp(count, columns);
    const int height = std::min(entry.height(), screen.height() / rows);
    return {rows, std::max(height, leastHeight)};
}

int ColumnStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                           QStyleHintReturn *result) const {
    return hint == SH_Menu_Scrollable ? 0 : ProgramStyle::styleHint(hint, option, widget, result);
}

// A menu breaks its columns where this margin of the screen begins, if it asks with an option; without one it
// asks how far to keep from the edges.
int ColumnStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const {
    const auto *menu = qobject_cast<const QMenu *>(widget);
    if (metric != PM_MenuDesktopFrameWidth || !option || !menu)
        return QProxyStyle::pixelMetric(metric, option, widget);
    const ColumnPlan plan = PlanOf(*this, *menu);
    return std::max(0, (RoomOf(*this, *menu).height() - plan.rows * plan.height) / 2);
}

QSize ColumnStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                    const QWidget *widget) const {
    const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
    const auto *menu = qobject_cast<const QMenu *>(widget);
    if (type != CT_MenuItem || !menu) return usual;
    return {usual.width(), std::min(usual.height(), PlanOf(*this, *menu).height)};
}

} // namespace mainwindow
