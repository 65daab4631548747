// A drop-down list with a box to tick in each row. It stays open while the user ticks.
#pragma once

#include <QComboBox>
#include <vector>

class QStandardItemModel;

namespace mainwindow {

class TickList;

struct TickRow {
    bool ticked = false;
    QString name;
    QString key; // not shown
    friend bool operator==(const TickRow &, const TickRow &) = default;
};

class TickBox : public QComboBox {
    Q_OBJECT
public:
    // `tip` is also what a screen reader says; the tip that is shown tells what is ticked as well.
    TickBox(const QString &name, const QString &tip, QWidget *parent);

    // An open list stays open, on the row where it was.
    void SetRows(const std::vector<TickRow> &rows);
    TickRow Row(int row) const;
    void SetTicked(int row, bool ticked);
    // What the closed box shows.
    void SetText(const QString &text);
    const QString &Text() const { return text_; }
    bool IsOpen() const { return open_; }

    QSize sizeHint() const override; // the same for every row
    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    // The user clicked the row, or pressed the blank on it.
    void Click(int row);
    // All rows are to be ticked, or none.
    void ClickAll(bool ticked);
    void CloseUp();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    // The list is made when the user first opens it: a window starts without it.
    void Prepare();
    void ShowTip();
    bool TakesClick(QEvent *event);
    bool TakesKey(QEvent *event);

    QStandardItemModel *rows_;
    TickList *list_ = nullptr;
    QString text_;
    bool prepared_ = false;
    bool open_ = false;
    int pressed_ = -1; // row under the press
};

} // namespace mainwindow
