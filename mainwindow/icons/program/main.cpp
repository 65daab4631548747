// Writes the table of the icons that are painted beforehand: velmora-ready-icons LIST FOLDER TABLE.cpp, where
// each line of LIST has the name of a drawing in FOLDER and the sides in pixels.
#include "mainwindow/icons/IconDrawing.h"

#include <cstdio>
#include <QFile>
#include <QGuiApplication>
#include <QStringList>

namespace {

using mainwindow::IconLook;

struct Line {
    QByteArray name, svg;
    QList<int> sides;
};

QByteArray ContentOf(const QString &path) {
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) return file.readAll();
    std::fprintf(stderr, "velmora-ready-icons: no file %s\n", qPrintable(path));
    std::exit(1);
}

std::vector<Line> ReadList(const QString &list, const QString &folder) {
    std::vector<Line> lines;
    for (const QByteArray &text : ContentOf(list).split('\n')) {
        const QList<QByteArray> words = text.simplified().split(' ');
        if (words.first().isEmpty() || words.first().startsWith('#')) continue;
        Line line{words.first(),
                  ContentOf(folder + QStringLiteral("/%1.svg").arg(QLatin1String(words.first()))),
                  {}};
        for (const QByteArray &side : words.mid(1)) line.sides << side.toInt();
        lines.push_back(line);
    }
    return lines;
}

QByteArray PixelsOf(const QImage &image) {
    QByteArray text;
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) text += "0x" + QByteArray::number(row[x], 16) + ',';
        text += '\n';
    }
    return text;
}

// The pictures, and the rows that name them.
struct Table {
    QByteArray pixels, rows;
    int count = 0;

    void Add(const Line &line, const IconLook &look) {
        const QByteArray name = "kPixels" + QByteArray::number(count++);
        pixels += "constexpr std::uint32_t " + name + "[] = {\n" +
                  PixelsOf(mainwindow::PaintedIcon(line.svg, look)) + "};\n";
        rows += "{\"" + line.name + "\", {" + QByteArray::number(look.side) + ", " +
                (look.dark ? "true" : "false") + ", " + (look.faded ? "true" : "false") + "}, " + name +
                "},\n";
    }
};

QByteArray TextOf(const std::vector<Line> &lines) {
    Table table;
    for (const Line &line : lines)
        for (const int side : line.sides)
            for (const auto &[dark, faded] :
                 {std::pair(false, false), {false, true}, {true, false}, {true, true}})
                table.Add(line, {side, dark, faded});
    return "#include \"mainwindow/icons/ReadyIcons.h\"\n\nnamespace mainwindow {\n\nnamespace {\n\n" +
           table.pixels + "\nconstexpr ReadyIcon kReady[] = {\n" + table.rows +
           "};\n\n} // namespace\n\nstd::span<const ReadyIcon> ReadyIcons() { return kReady; }\n\n"
           "} // namespace mainwindow\n";
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fprintf(stderr, "usage: velmora-ready-icons LIST FOLDER TABLE.cpp\n");
        return 2;
    }
    const QByteArray text = TextOf(ReadList(arguments[1], arguments[2]));
    QFile table(arguments[3]);
    if (table.open(QIODevice::WriteOnly) && table.write(text) == text.size()) return 0;
    std::fprintf(stderr, "velmora-ready-icons: %s can't be written\n", qPrintable(arguments[3]));
    return 1;
}
