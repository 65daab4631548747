// A box for a text that is kept to the letter: line ends and hard blanks stay, and it comes back as it was
// unless the user edits it.
#pragma once

#include <optional>
#include <QPlainTextEdit>

namespace dialogs {

class PlainTextBox : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit PlainTextBox(const QString &name, QWidget *parent);

    // Forgets what was typed and what can be undone.
    void SetText(const QString &text);
    // What stands in the box, with line ends as the text that was set had them.
    QString Text() const;
    // The same, if the user changed anything.
    std::optional<QString> Edited() const;
    // Takes what stands in the box for the text that was set: it counts as not edited.
    void Keep();

Q_SIGNALS:
    void FocusChanged(bool has);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    QString set_;
};

} // namespace dialogs
