// The dialog for look and text of links.
#pragma once

#include "dialogs/PropertyForms.h"

#include <array>
#include <QDialog>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QVBoxLayout;

namespace widgets {
class SwatchButton;
}

namespace dialogs {

class LinkSample;
class PlainTextBox;

// Shows one link, and writes all its values to every link that is edited with it.
class frmLinkDialog : public QDialog {
    Q_OBJECT
public:
    frmLinkDialog(LinkDialogArgument &argument, QWidget *parent);

    void cmdFont_Click();
    void cmdApply_Click();
    void OKButton_Click();

    // A list of choices and the field that it stands for.
    struct ListRow;
    static constexpr std::size_t kLists = 10;

    // What the controls show.
    diagram::LinkData Values() const;

private:
    static const std::array<ListRow, kLists> &Rows();
    void BuildControls();
    void BuildLists(QGridLayout &left, QGridLayout &right);
    void OrderTabs();
    void BuildText(QVBoxLayout &column);
    void BuildButtons(QVBoxLayout &column);
    void ShowLink();
    void ShowFont();
    void UpdateSample();
    void Apply();

    LinkDialogArgument &argument_;
    diagram::Font font_;
    std::array<QComboBox *, kLists> lists_{}; // in the order of Rows()
    widgets::SwatchButton *picFillColor_ = nullptr;
    widgets::SwatchButton *picForeColor_ = nullptr;
    PlainTextBox *txtText_ = nullptr;
    QCheckBox *chkOriented_ = nullptr;
    LinkSample *sample_ = nullptr;
};

} // namespace dialogs
