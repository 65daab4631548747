// The bar with the look of what is selected.
#pragma once

#include "mainwindow/look/Look.h"
#include "widgets/ChoicePopup.h"

#include <QObject>
#include <vector>

namespace widgets {
class ShapePopup;
}

namespace mainwindow {

class frmMain;
class LookButton;
class SmartMenu;
class Toolbar;

class LookBar : public QObject {
    Q_OBJECT
public:
    // The bar stands behind the format toolbar, or below it where the window has no room for both. Menus and
    // toolbar must outlive the object.
    LookBar(frmMain &window, const SmartMenu &menus, Toolbar &format);

    bool IsShown() const;
    // Also for windows to come.
    void SetShown(bool shown);
    // Gives the keyboard to its first button that can be used.
    void TakeFocus();

    // To be told when the selection or its look may have changed.
    void MayDiffer();
    // Shows the selection's look on the buttons and on those of the format toolbar, if it may have changed or
    // another surface is current.
    void Update();

    // As last shown.
    const LookState &State(LookOf what) const;
    // Opens the popup of the property, below its button or, where that isn't seen, at the surface. Nothing
    // where nothing selected has the property.
    void Open(LookOf what);
    std::vector<widgets::ChoiceSection> Choices(LookOf what);
    // Gives the value to what is selected: one step of undo, and the map is dirty, unless all have it
    // already.
    void Choose(LookOf what, double value);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Place();
    void AddButton(const LookRow &row);
    void ChooseOther(LookOf what);
    void OpenChoices(LookOf what, const QRect &place);
    void OpenShapes(const QRect &place);
    // Where the popup of the button opens, on the screen.
    QRect PlaceOf(const LookButton &button) const;
    void ShowFormats(const diagram::Surface &surface) const;
    void StepFrom(const LookButton &button, int step);

    frmMain &window_;
    const SmartMenu &menus_;
    Toolbar &format_;
    Toolbar *bar_;
    std::vector<LookButton *> buttons_;     // in the order of LookOf
    widgets::ShapePopup *shapes_ = nullptr; // made when it is first opened
    const diagram::Surface *shown_ = nullptr;
    bool mayDiffer_ = true;
};

} // namespace mainwindow
