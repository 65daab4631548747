#include "dialogs/PlainTextBox.h"

#include <QTextDocument>

namespace dialogs {

namespace {

// The line end that the text uses; for a text of one line that of the platform that the maps came from.
QString LineEndOf(const QString &text) {
    for (const char *end : {"\r\n", "\n", "\r"})
        if (text.contains(QLatin1String(end))) return QLatin1String(end);
    return QStringLiteral("\r\n");
}

} // namespace

PlainTextBox::PlainTextBox(const QString &name, QWidget *parent) : QPlainTextEdit(parent) {
    setObjectName(name);
    setTabChangesFocus(true);
}

void PlainTextBox::SetText(const QString &text) {
    set_ = text;
    setPlainText(text);
    document()->setModified(false);
}

// The raw text, as toPlainText() turns hard blanks into plain ones.
QString PlainTextBox::Text() const {
    if (!document()->isModified()) return set_;
    const QString end = LineEndOf(set_);
    QString text = document()->toRawText();
    return text.replace(QChar::LineSeparator, end).replace(QChar::ParagraphSeparator, end);
}

std::optional<QString> PlainTextBox::Edited() const {
    if (!document()->isModified()) return std::nullopt;
    return Text();
}

void PlainTextBox::Keep() {
    set_ = Text();
    document()->setModified(false);
}

void PlainTextBox::focusInEvent(QFocusEvent *event) {
    QPlainTextEdit::focusInEvent(event);
    Q_EMIT FocusChanged(true);
}

void PlainTextBox::focusOutEvent(QFocusEvent *event) {
    QPlainTextEdit::focusOutEvent(event);
    Q_EMIT FocusChanged(false);
}

} // namespace dialogs
