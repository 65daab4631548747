#include "mainwindow/slices/RecentShapes.h"

#include "settings/GetSet.h"

#include <QStringList>

namespace mainwindow {

namespace {
const QString kShapes = QStringLiteral("RecentShapes");
constexpr std::size_t kMost = 6; // a row of the palette
} // namespace

std::vector<int> RecentShapes() {
    std::vector<int> shapes;
    for (const QString &word : settings::GetSet(kShapes).split(u',', Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const int shape = word.toInt(&isNumber);
        if (isNumber && shapes.size() < kMost) shapes.push_back(shape);
    }
    return shapes;
}

void RememberShape(int shape) {
    std::vector<int> shapes = RecentShapes();
    std::erase(shapes, shape);
    shapes.insert(shapes.begin(), shape);
    if (shapes.size() > kMost) shapes.resize(kMost);
    QStringList words;
    for (const int each : shapes) words << QString::number(each);
    settings::SaveSet(kShapes, words.join(u','));
}

} // namespace mainwindow
