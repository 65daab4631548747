// The menu of shapes for a new element.
#pragma once

#include <QMenu>
#include <QString>
#include <vector>

namespace mainwindow {

// An entry of the menu: the stored value of the shape and the caption that the user reads.
struct ShapeEntry {
    int tag;
    QString caption;
};
std::vector<ShapeEntry> ShapeEntries();

// Filled when it is opened for the first time; in columns where it would be too long.
class ShapeMenu : public QMenu {
    Q_OBJECT
public:
    explicit ShapeMenu(QWidget *parent = nullptr);

Q_SIGNALS:
    void Chosen(int tag);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void Fill();
};

} // namespace mainwindow
