// Widgets of one size in rows, as many beside each other as there is room for.
#pragma once

#include <QLayout>
#include <vector>

namespace mainwindow {

class TileLayout : public QLayout {
public:
    explicit TileLayout(int spacing) { setSpacing(spacing); }
    ~TileLayout() override;

    // How many stand beside each other in that width, in pixels; at least one.
    int ColumnsIn(int width) const;

    void addItem(QLayoutItem *item) override;
    int count() const override { return int(items_.size()); }
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override { return TileSize(); }
    void setGeometry(const QRect &rect) override;

private:
    QSize TileSize() const;
    int VisibleCount() const;

    std::vector<QLayoutItem *> items_;
};

} // namespace mainwindow
