// A drop-down list with a box to tick in each row. It stays open while the user ticks.
#pragma once

#include <QComboBox>
#include <vector>

class QStandardItemModel;

namespace mainwindow {

struct TickRow {
    bool ticked = false;
    QString name;
    QString key; // not shown
    friend bool operator==(const TickRow &, const TickRow &) = default;
};

class TickBox : public QComboBox {
    Q_OBJECT
public:
    // `tip` is also what a screen reader says.
    TickBox(const QString &name, const QString &tip, QWidget *parent);

    // An open list stays open, on the row where it was.
    void SetRows(const std::vector<TickRow> &rows);
    TickRow Row(int row) const;
    void SetTicked(int row, bool ticked);
    // What the closed box shows.
    void SetText(const QString &text);
    const QString &Text() const { return text_; }

    QSize sizeHint() const override; // the same for every row
    void showPopup() override;
    void hidePopup() override;

Q_SIGNALS:
    // The user clicked the row, or pressed the blank on it.
    void Click(int row);
    void CloseUp();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    // The list is made when the user first opens it: a window starts without it.
    void Prepare();
    bool TakesClick(QEvent *event);
    bool TakesKey(QEvent *event);

    QStandardItemModel *rows_;
    QString text_;
    bool prepared_ = false;
    bool open_ = false;
    int pressed_ = -1; // row under the press
};

} // namespace mainwindow
