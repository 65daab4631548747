// A box of the format toolbar: a list to choose from, and a field to type into.
#pragma once

#include <QComboBox>

namespace mainwindow {

class PickBox : public QComboBox {
    Q_OBJECT
public:
    // `tip` is also what a screen reader says; `characters` is the width of the field.
    PickBox(const QString &name, const QString &tip, int characters, QWidget *parent);

    QSize sizeHint() const override; // the same for every entry
    // The list is as wide as its longest entry.
    void showPopup() override;

Q_SIGNALS:
    // The user has chosen an entry or confirmed what was typed: currentText(). Nothing that the program sets
    // raises it.
    void Click();
    // The user is through with the box: chosen from the open list, confirmed or given up.
    void Done();

protected:
    // What a text that the user typed and confirmed stands for.
    virtual QString Meant(const QString &typed) const { return typed; }
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void Chosen();
    void Confirmed();
    void GiveUpTyping();
    // Hides the list of entries that fit the text typed; false when it wasn't open.
    bool HideMatches();

    bool stepping_ = false; // while keys or wheel step through entries of the closed box: no Done
};

} // namespace mainwindow
