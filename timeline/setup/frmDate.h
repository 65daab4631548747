// The date of a node, or of several.
#pragma once

#include "timeline/DateStep.h"
#include "timeline/ReadSpan.h"

#include <optional>
#include <QDate>
#include <QDialog>
#include <vector>

class QCalendarWidget;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace timeline {

struct DateFormArgument {
    static constexpr char kForm[] = "frmDate";
    // In: what the node has, or the first of several. Out, after OK: what they shall have, unless there is a
    // step.
    std::optional<QDate> date;
    std::optional<QDate> last{}; // the same of the end; nothing for none
    bool lastsDiffer = false;    // several nodes have different ends
    DateView view{};
    std::vector<std::optional<QDate>> several{}; // what each of several nodes has
    std::optional<DateStep> step{};              // out: each moves from its own date
};

// The date is typed in whatever form ReadSpanAsWritten reads, and shown in full below, or chosen in the
// calendar, which moves an end along; OK waits for one. With several nodes of different dates the box begins
// empty; +2w and the like move each from its own date, where any of them has one.
class frmDate : public QDialog {
    Q_OBJECT
public:
    frmDate(DateFormArgument &argument, QWidget *parent);

    void accept() override;

private:
    void BuildText(const QDate &begin);
    void BuildCalendar(const QDate &begin);
    void BuildLayout();
    void Connect();
    bool BeginsEmpty() const; // the nodes have different dates
    void Read();
    bool ReadStep(); // false for what is none
    void Typed();
    void Chosen(const QDate &date);
    void UpdateButtons();
    void ShowMeaning(const QString &meaning);

    DateFormArgument &argument_;
    std::optional<Span> span_;     // that the text stands for
    std::optional<DateStep> step_; // the same; never both
    QCheckBox *chkDate_;
    QLineEdit *txtDate_;
    QLabel *lblMeaning_;
    QCalendarWidget *calDate_;
    QPushButton *ok_;
};

} // namespace timeline
