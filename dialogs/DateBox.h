// A date that is typed in whatever form it is written, or chosen in a calendar.
#pragma once

#include <optional>
#include <QDate>
#include <QWidget>

class QLineEdit;
class QToolButton;

namespace dialogs {

class DateBox : public QWidget {
    Q_OBJECT
public:
    DateBox(const QString &name, QWidget *parent);

    // Shows the date in the text, or the text itself where it is none that can be read.
    void SetText(const QString &text);
    void SetDate(const QDate &date);
    // The date that stands in the box; nothing for what can't be read.
    std::optional<QDate> Date() const;
    QString Text() const;
    // Whether the user typed or chose anything.
    bool IsEdited() const { return edited_; }

    void ShowCalendar();

Q_SIGNALS:
    void Changed();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Choose(const QDate &date);
    void ShowEnabled();

    QLineEdit *text_;
    QToolButton *open_;
    bool edited_ = false;
};

} // namespace dialogs
