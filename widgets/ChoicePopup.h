// A popup of pictures to choose one from, in sections of rows.
#pragma once

#include <functional>
#include <QFrame>
#include <QIcon>
#include <QSize>
#include <QString>
#include <vector>

class QGridLayout;
class QToolButton;

namespace widgets {

struct Choice {
    QString name; // beside the picture, or in its tip; what a screen reader says
    QIcon icon;
    bool current = false; // marked; the keys begin at the first one that is
    std::function<void()> choose;
    bool isValue = true; // else the way to one that isn't listed
};

struct ChoiceSection {
    QString title; // empty for none
    std::vector<Choice> choices;
    int columns = 1;
    bool named = false; // the names stand beside the pictures
    QSize iconSize{18, 18};
};

// Goes when something is chosen, by Escape and by a press elsewhere. The arrows go from choice to choice, Tab
// from section to section, a letter to the next name that begins with it.
class ChoicePopup : public QFrame {
    Q_OBJECT
public:
    // `title` is what a screen reader says of the whole.
    ChoicePopup(const QString &title, const std::vector<ChoiceSection> &sections, QWidget *parent);

    // Below the place on the screen, or above where there is no room; whole on that screen.
    void OpenAt(const QRect &place);
    const std::vector<QToolButton *> &Buttons() const { return buttons_; }

Q_SIGNALS:
    // The popup is gone.
    void Closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void hideEvent(QHideEvent *event) override;

private:
    void AddSection(QGridLayout &rows, const ChoiceSection &section);
    QToolButton *AddChoice(const Choice &choice, const ChoiceSection &section);
    void Step(int rows, int columns);
    void GoTo(int position);
    void GoToLetter(const QString &letter);
    int Position() const; // of the choice that has the focus

    struct Place {
        int section, row, column;
    };
    std::vector<QToolButton *> buttons_;
    std::vector<Place> places_; // of the buttons; rows count through all sections
    int rows_ = 0, sections_ = 0;
    int begin_ = -1; // where the keys begin
};

} // namespace widgets
