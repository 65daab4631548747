// The date of a node.
#pragma once

#include <optional>
#include <QDate>
#include <QDialog>

class QCalendarWidget;
class QCheckBox;
class QLineEdit;
class QPushButton;

namespace timeline {

struct DateFormArgument {
    static constexpr char kForm[] = "frmDate";
    // In: what the node has. Out, after OK: what it shall have.
    std::optional<QDate> date;
    QDate today;
};

// The date is typed in whatever form ParseDate reads, or chosen in the calendar; OK waits for one.
class frmDate : public QDialog {
    Q_OBJECT
public:
    frmDate(DateFormArgument &argument, QWidget *parent);

    void accept() override;

private:
    void Connect();
    void Typed();
    void Chosen(const QDate &date);
    void UpdateButtons();

    DateFormArgument &argument_;
    std::optional<QDate> date_; // that of the text
    QCheckBox *chkDate_;
    QLineEdit *txtDate_;
    QCalendarWidget *calDate_;
    QPushButton *ok_;
};

} // namespace timeline
