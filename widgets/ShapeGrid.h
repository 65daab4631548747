// A grid of all shapes to choose one from, with a line to search by name. It stands in a pop-up as well as
// beside the page.
#pragma once

#include "widgets/ShapeList.h"

#include <QWidget>

class QLabel;
class QLineEdit;

namespace widgets {

// Shapes that were used before stand first, under a heading; while words are typed only those stand there
// whose names have all of them. A click or Enter chooses a shape, and Down goes from the words to the
// pictures. The name of the shape that the pointer or the keys are at stands below.
class ShapeGrid : public QWidget {
    Q_OBJECT
public:
    explicit ShapeGrid(QWidget *parent = nullptr);

    // The last used one first. Values that are no shape are passed over.
    void SetRecent(const std::vector<int> &shapes);
    // Frames the shape that is in use; none at first.
    void SetChosen(std::optional<int> shape);
    // Clears the words, gives them the keyboard and goes to the shape that is in use.
    void Begin();

    QLineEdit &Words() const { return *words_; }
    ShapeList &List() const { return *list_; }
    QLabel &Name() const { return *name_; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void Chosen(int shape);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Fill();
    void Pick(int shape);
    void ShowName(std::optional<int> shape);

    QLineEdit *words_;
    ShapeList *list_;
    QLabel *name_;
    std::vector<int> recent_;
};

// Whether a name has each of the words in it, in any order; case and blanks within the name don't count.
bool HasWords(const QString &name, const QString &words);

} // namespace widgets
