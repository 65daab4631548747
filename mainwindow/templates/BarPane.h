// The pane of the template bar: how wide it is and whether it is there at all, as the user last had it.
#pragma once

#include <QObject>
#include <QTimer>

class QSplitter;
class QWidget;

namespace mainwindow {

class BarPane : public QObject {
    Q_OBJECT
public:
    // Puts the widget into the left pane of the splitter.
    BarPane(QSplitter &splitter, QWidget &bar);
    // Stores what is still to be stored.
    ~BarPane() override;

    bool IsShown() const;
    // The room goes to the other pane.
    void SetShown(bool shown);

private:
    void StoreWidth();

    QSplitter &splitter_;
    QWidget &bar_;
    QTimer store_; // a border that is dragged is stored once
};

} // namespace mainwindow
