#include "mainwindow/Placement.h"

#include "settings/GetSet.h"
#include "support/cRegistry.h"

#include <initializer_list>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace mainwindow {

namespace {

const QString kWindowState = QStringLiteral("WindowState");
const QString kLeft = QStringLiteral("Left");
const QString kTop = QStringLiteral("Top");
const QString kHeight = QStringLiteral("Height");
const QString kWidth = QStringLiteral("Width");

// Of the screen, for a window that was never placed.
constexpr double kFirstShare = 0.8;
constexpr int kLeastSide = 200; // pixels

class PlacementKey {
public:
    explicit PlacementKey(support::RegistryStore &registry) : key_(registry) {
        key_.SectionKey = settings::WindowPath();
        key_.ValueType = support::RegistryType::Number;
    }
    int Read(const QString &name, int absent) {
        key_.ValueKey = name;
        key_.Default = quint32(absent);
        bool isNumber = false;
        const quint32 number = key_.Value().toUInt(&isNumber);
        return isNumber ? int(number) : absent;
    }
    // All of them at once: a window that closes waits for the disk one time.
    void Write(std::initializer_list<std::pair<QString, int>> numbers) {
        std::map<QString, QVariant> values;
        for (const auto &[name, number] : numbers) values[name] = quint32(number);
        key_.SetValues(values);
    }

private:
    support::cRegistry key_;
};

QRect ScreenFor(const QRect &place) {
    const QScreen *screen = QGuiApplication::screenAt(place.center());
    if (!screen) screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : place;
}

QRect FirstPlace() {
    const QRect screen = ScreenFor(QRect(0, 0, 1280, 800));
    QRect place(QPoint(), screen.size() * kFirstShare);
    place.moveCenter(screen.center());
    return place;
}

void Place(QWidget &window, const QRect &place) {
    const QRect fitted = FitOnScreen(place, ScreenFor(place));
    window.move(fitted.topLeft());
    window.resize(fitted.size());
}

} // namespace

QRect FitOnScreen(QRect wanted, const QRect &screen) {
    wanted.setSize(wanted.size().expandedTo(QSize(kLeastSide, kLeastSide)).boundedTo(screen.size()));
    wanted.moveLeft(qBound(screen.left(), wanted.left(), screen.right() + 1 - wanted.width()));
    wanted.moveTop(qBound(screen.top(), wanted.top(), screen.bottom() + 1 - wanted.height()));
    return wanted;
}

void ReadPlacement(support::RegistryStore &registry, QWidget &window) {
    PlacementKey key(registry);
    const int state = key.Read(kWindowState, kStateMaximised);
    QRect place = FirstPlace();
    if (state == kStateNormal)
        place = QRect(key.Read(kLeft, place.left()), key.Read(kTop, place.top()),
                      key.Read(kWidth, place.width()), key.Read(kHeight, place.height()));
    Place(window, place);
    if (state == kStateMaximised) window.setWindowState(Qt::WindowMaximized);
    if (state == kStateMinimised) window.setWindowState(Qt::WindowMinimized);
}

void WritePlacement(support::RegistryStore &registry, const QWidget &window) {
    PlacementKey key(registry);
    const QRect inner = window.isMaximized() ? window.normalGeometry() : window.geometry();
    const QPoint corner = window.isMaximized() ? inner.topLeft() : window.pos();
    key.Write({{kWindowState, window.isMaximized() ? kStateMaximised : kStateNormal},
               {kLeft, corner.x()},
               {kTop, corner.y()},
               {kHeight, inner.height()},
               {kWidth, inner.width()}});
}

} // namespace mainwindow
