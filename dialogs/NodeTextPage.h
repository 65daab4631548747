// The node dialog's page of the two texts, the font and the place of the first.
#pragma once

#include "dialogs/NodeEdit.h"

#include <array>
#include <QWidget>

class QAction;
class QComboBox;
class QGridLayout;
class QStackedWidget;
class QTabBar;

namespace support {
struct Desktop;
}

namespace widgets {
class SwatchButton;
}

namespace dialogs {

class PlainTextBox;

class NodeTextPage : public QWidget {
    Q_OBJECT
public:
    // The font dialog shows and sets the colour of `picForeColor` too.
    NodeTextPage(support::Desktop &desktop, widgets::SwatchButton &picForeColor, QWidget *parent);

    void Load(const NodeEdit &edit, const QString &text, const QString &event);
    void Store(NodeEdit &edit) const;
    // The text as it stands in the box, for the sample.
    QString Text() const;
    // To be told that what was typed has been stored.
    void Keep();

    PlainTextBox &txtText() { return *txtText_; }
    void cmdFont_Click();

Q_SIGNALS:
    void Changed();

private:
    void BuildTexts(QGridLayout &grid);
    void BuildToolbar(QGridLayout &grid);
    void tabText_Click(int tab);
    void tlbMain_ButtonClick(const QString &key, bool down);
    void ShowFont();

    support::Desktop &desktop_;
    widgets::SwatchButton &picForeColor_;
    diagram::Font font_; // that of txtText
    QTabBar *tabText_;
    QStackedWidget *front_;
    PlainTextBox *txtText_, *txtOther_;
    std::array<QAction *, 3> buttons_{}; // BOLD, ITALIC, ULINE
    QComboBox *cboTextAlign_, *cboXMargin_, *cboYMargin_;
};

} // namespace dialogs
