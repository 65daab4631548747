// The date of a node.
#pragma once

#include <optional>
#include <QDate>
#include <QDialog>

class QCheckBox;
class QDateEdit;

namespace timeline {

// The name of the form for DialogHost, and its argument.
inline constexpr char kFormDate[] = "frmDate";
struct DateFormArgument {
    // In: what the node has. Out, after OK: what it shall have.
    std::optional<QDate> date;
    QDate today;
};

class frmDate : public QDialog {
    Q_OBJECT
public:
    frmDate(DateFormArgument &argument, QWidget *parent);

    void accept() override;

private:
    DateFormArgument &argument_;
    QCheckBox *chkDate_;
    QDateEdit *txtDate_;
};

} // namespace timeline
