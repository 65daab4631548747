// Writes two pictures of all icons at the sizes in which they are shown, on light and on dark ground.
//   velmora-icons [FOLDER]     (build/gallery when left out)
#include "mainwindow/controls/ShapeMenu.h"
#include "mainwindow/icons/Icons.h"

#include <cstdio>
#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPalette>

namespace {

constexpr int kSizes[] = {16, 20, 24, 32};
constexpr int kColumns = 4, kRowHeight = 40, kNameWidth = 130, kIconsWidth = 150; // pixels

struct Named {
    QString name;
    QIcon icon;
};

std::vector<Named> AllIcons() {
    std::vector<Named> icons;
    mainwindow::Icon(QStringLiteral("new")); // makes the resources known
    const QDir folder(QStringLiteral(":/icons"));
    for (const QString &file : folder.entryList()) {
        const QString name = QFileInfo(file).completeBaseName();
        icons.push_back({name, mainwindow::Icon(name)});
    }
    for (const mainwindow::ShapeEntry &shape : mainwindow::ShapeEntries())
        icons.push_back({shape.caption, mainwindow::ShapeIcon(shape.tag)});
    return icons;
}

QPalette Ground(bool dark) {
    QPalette palette;
    palette.setColor(QPalette::Window, dark ? QColor(0x2b2b2b) : QColor(0xf0f0f0));
    palette.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
    return palette;
}

void DrawRow(QPainter &painter, const QPoint &at, const Named &row) {
    painter.drawText(QRect(at, QSize(kNameWidth, kRowHeight)), Qt::AlignVCenter, row.name);
    int x = at.x() + kNameWidth;
    for (const int size : kSizes) {
        row.icon.paint(&painter, QRect(x, at.y() + (kRowHeight - size) / 2, size, size));
        x += size + 10;
    }
}

QImage Sheet(const std::vector<Named> &icons, bool dark) {
    const QPalette palette = Ground(dark);
    QApplication::setPalette(palette);
    const int rows = (int(icons.size()) + kColumns - 1) / kColumns;
    QImage image(kColumns * (kNameWidth + kIconsWidth), rows * kRowHeight, QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QPainter painter(&image);
    painter.setPen(palette.color(QPalette::WindowText));
    for (int i = 0; i < int(icons.size()); ++i)
        DrawRow(painter, {i / rows * (kNameWidth + kIconsWidth) + 6, i % rows * kRowHeight},
                icons[std::size_t(i)]);
    return image;
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QDir folder(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("build/gallery"));
    if (!QDir().mkpath(folder.path())) return 1;
    const std::vector<Named> icons = AllIcons();
    for (const auto &[name, dark] : {std::pair("icons.png", false), std::pair("icons-dark.png", true)}) {
        const QString path = folder.filePath(QLatin1String(name));
        if (!Sheet(icons, dark).save(path)) return 1;
        std::printf("%s\n", qPrintable(path));
    }
    return 0;
}
