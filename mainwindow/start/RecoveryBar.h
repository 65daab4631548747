// The bar above the surface that offers maps which a former run of the program left.
#pragma once

#include "recovery/LostMaps.h"

#include <QFrame>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace mainwindow {

enum class OfferAnswer { Restore, Later, Discard };

class RecoveryBar : public QFrame {
    Q_OBJECT
public:
    explicit RecoveryBar(QWidget *parent);

    // Further maps, a row each.
    void Add(std::vector<recovery::LostMap> lost);
    int Count() const { return int(rows_.size()); }
    const recovery::LostMap &Map(int row) const { return rows_[std::size_t(row)].lost; }
    // Takes the map and its row away.
    recovery::LostMap Take(int row);
    // What stands in the row, and its buttons, for tests.
    QString Text(int row) const;
    QPushButton *Button(int row, OfferAnswer answer) const;

    // The height that it wants, in pixels; of many maps the first rows are seen.
    int WantedHeight() const;
    // Puts the keyboard on the first button.
    void TakeFocus();

Q_SIGNALS:
    // The bar does nothing by itself.
    void Answered(int row, mainwindow::OfferAnswer answer);
    // Escape was pressed.
    void Left();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Row {
        recovery::LostMap lost;
        QWidget *widget;
        QLabel *text;
        std::vector<QPushButton *> buttons; // by answer
    };
    void AddRow(recovery::LostMap lost);
    QPushButton *AddButton(OfferAnswer answer, const QString &title, QWidget &row);
    int RowOf(const QWidget *widget) const;

    QLabel *heading_;
    QWidget *list_;
    QVBoxLayout *layout_;
    std::vector<Row> rows_;
};

// "Plan.map: 12 changes, 5 May 2026 14:02", and that some of it is damaged.
QString OfferText(const recovery::LostMap &lost);

} // namespace mainwindow
