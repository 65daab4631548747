// The date of a node.
#pragma once

#include "timeline/ReadDateAsWritten.h"

#include <optional>
#include <QDate>
#include <QDialog>

class QCalendarWidget;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace timeline {

struct DateFormArgument {
    static constexpr char kForm[] = "frmDate";
    // In: what the node has. Out, after OK: what it shall have.
    std::optional<QDate> date;
    DateView view{};
};

// The date is typed in whatever form ReadDateAsWritten reads, and shown in full below, or chosen in the
// calendar; OK waits for one.
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
    void ShowMeaning(const QString &meaning);

    DateFormArgument &argument_;
    std::optional<QDate> date_; // that of the text
    QCheckBox *chkDate_;
    QLineEdit *txtDate_;
    QLabel *lblMeaning_;
    QCalendarWidget *calDate_;
    QPushButton *ok_;
};

} // namespace timeline
