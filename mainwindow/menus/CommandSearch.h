// The box at the right end of the menu bar that finds a command by its words.
#pragma once

#include <functional>
#include <QIcon>
#include <QLineEdit>
#include <vector>

class QCompleter;
class QStandardItemModel;

namespace mainwindow {

struct SearchEntry {
    QString caption;
    QString place; // the menu that holds it; empty for a command in no menu
    QString words; // by which it is found besides
    QString keys;  // as the user reads them
    QIcon icon;
    bool enabled = true;
    std::function<void()> run;
};

class CommandSearch : public QLineEdit {
    Q_OBJECT
public:
    using Source = std::function<std::vector<SearchEntry>()>;
    // `source` is asked each time the user comes to the box.
    CommandSearch(Source source, QWidget *parent);

    QSize sizeHint() const override; // the menu bar asks for nothing else
    // The captions that the list offers for what is typed.
    QStringList Offered() const;
    // Takes the keyboard, with its old words selected.
    void Begin();

Q_SIGNALS:
    // The user is through with the box: a command was chosen, or Escape pressed.
    void Done();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // Made when it is first needed: a window starts without it.
    QCompleter &List();
    void Offer();
    void Choose(const QModelIndex &index);
    // Runs the command in that row of the list, unless it is disabled.
    void Run(int row);
    void Leave();

    Source source_;
    std::vector<SearchEntry> entries_;
    QStandardItemModel *offered_;
    QCompleter *list_ = nullptr;
    bool clickedInto_ = false; // between the press that brought the focus and its release
    mutable QSize hint_;       // invalid until it is measured
};

} // namespace mainwindow
