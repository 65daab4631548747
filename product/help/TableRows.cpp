#include "product/help/TableRows.h"

#include "product/help/RichText.h"
#include "product/help/Style.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace product {

namespace {

using namespace style;

constexpr double kTableGap = Points(9);
constexpr double kPaddingAcross = Points(5);
constexpr double kPaddingDown = Points(3.2);

TextLook LookOf(int row) { return {kTextSize, row == 0 ? kHeading : kInk, row == 0}; }

RichText CellText(const QTextTable &table, int row, int column) {
    return TextOf(table.cellAt(row, column).firstCursorPosition().block(), LookOf(row));
}

std::vector<double> NaturalWidths(const QTextTable &table) {
    std::vector<double> widths(table.columns());
    for (int column = 0; column < table.columns(); ++column)
        for (int row = 0; row < table.rows(); ++row)
            widths[column] =
                std::max(widths[column], NaturalWidth(CellText(table, row, column), LookOf(row)) +
                                             2 * kPaddingAcross + Points(1));
    return widths;
}

struct Cell {
    Layout layout;
    double left = 0;
};

struct Row {
    std::vector<Cell> cells;
    double width = 0, height = 0;
    bool head = false;

    void Paint(QPainter &painter, QPointF at) const {
        const QRectF place(at, QSizeF(width, height));
        if (head) painter.fillRect(place, kTableHead);
        for (const Cell &cell : cells)
            PaintText(*cell.layout, painter, at + QPointF(cell.left + kPaddingAcross, kPaddingDown));
        painter.setPen(QPen(kRule, Points(0.6)));
        painter.drawLine(place.bottomLeft(), place.bottomRight());
    }
};

Row LaidOut(const QTextTable &table, int number, const std::vector<double> &widths) {
    Row row{{}, std::accumulate(widths.begin(), widths.end(), 0.0), 0, number == 0};
    double left = 0;
    for (int column = 0; column < table.columns(); ++column) {
        const Layout layout =
            LayOut(CellText(table, number, column), LookOf(number), widths[column] - 2 * kPaddingAcross);
        row.cells.push_back({layout, left});
        row.height = std::max(row.height, HeightOf(*layout) + 2 * kPaddingDown);
        left += widths[column];
    }
    return row;
}

} // namespace

std::vector<double> ColumnWidths(const std::vector<double> &natural, double width) {
    std::vector<int> order(natural.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](int a, int b) { return natural[a] < natural[b]; });
    std::vector<double> widths(natural.size());
    double left = width, weight = 0;
    for (const double each : natural) weight += std::sqrt(each);
    for (const int column : order) {
        const double share = left * std::sqrt(natural[column]) / weight;
        widths[column] = column == order.back() ? left : std::min(natural[column], share);
        left -= widths[column];
        weight -= std::sqrt(natural[column]);
    }
    return widths;
}

Flow RowsOf(const QTextTable &table, double width) {
    const std::vector<double> widths = ColumnWidths(NaturalWidths(table), width);
    Flow flow;
    for (int number = 0; number < table.rows(); ++number) {
        Part part;
        const Row row = LaidOut(table, number, widths);
        part.piece = {row.height, number == 0 ? kTableGap : 0, number == 0, false, number == 0 ? -1 : 0};
        part.paint = [row](QPainter &painter, QPointF at) { row.Paint(painter, at); };
        flow.push_back(part);
    }
    return flow;
}

} // namespace product
