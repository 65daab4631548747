#include "mainwindow/controls/TextBox.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace mainwindow {

namespace {

const char *SlotOf(TextCommand command) {
    if (command == TextCommand::Cut) return "cut";
    return command == TextCommand::Copy ? "copy" : "paste";
}

} // namespace

QWidget *FocusedTextBox() {
    QWidget *focus = QApplication::focusWidget();
    // Its field is where one types, but the box itself has the focus.
    if (const auto *box = qobject_cast<QComboBox *>(focus)) focus = box->lineEdit();
    const bool isText = qobject_cast<QLineEdit *>(focus) || qobject_cast<QTextEdit *>(focus) ||
                        qobject_cast<QPlainTextEdit *>(focus);
    return isText ? focus : nullptr;
}

void SendToTextBox(QWidget &box, TextCommand command) {
    if (command != TextCommand::Delete) {
        QMetaObject::invokeMethod(&box, SlotOf(command));
        return;
    }
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &press);
}

} // namespace mainwindow
