// A date, with or without an end, that is typed in whatever form it is written, or chosen in a calendar.
#pragma once

#include "timeline/ReadSpan.h"

#include <optional>
#include <QDate>
#include <QWidget>

class QLineEdit;
class QToolButton;

namespace dialogs {

class DateBox : public QWidget {
    Q_OBJECT
public:
    // `view` is what relative dates such as "next Friday" are read by.
    DateBox(const QString &name, timeline::DateView view, QWidget *parent);

    // Shows the date in the text, or the text itself where it is none that can be read.
    void SetText(const QString &text);
    void SetDate(const QDate &date);
    void SetSpan(const timeline::Span &span);
    // The date in the box, alone and with its end; none where it can't be read.
    std::optional<QDate> Date() const;
    std::optional<timeline::Span> Span() const { return Read().span; }
    QString Text() const;
    // The date in full, or why it can't be read.
    QString Meaning() const;
    // Whether the user typed or chose anything.
    bool IsEdited() const { return edited_; }

    void ShowCalendar();

Q_SIGNALS:
    void Changed(); // by the user or by a call

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Choose(const QDate &date);
    void ShowEnabled();
    timeline::SpanRead Read() const;

    timeline::DateView view_;
    QLineEdit *text_;
    QToolButton *open_;
    bool edited_ = false;
};

} // namespace dialogs
