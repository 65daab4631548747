// The bar above the tabs in which texts are sought and replaced.
#pragma once

#include "document/FindText.h"

#include <QWidget>

class QBoxLayout;
class QCheckBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace mainwindow {

class FindBar : public QWidget {
    Q_OBJECT
public:
    explicit FindBar(QWidget *parent);

    // Shows the bar, with or without the row of the replacement, and puts the focus on what is sought.
    void Open(bool replacing);
    // The rest needs a bar that has been opened.
    QString Sought() const;
    QString Replacement() const;
    document::FindOptions Options() const;
    // "3 of 12", "Nothing found", or nothing while nothing is sought; `at` counts from 1.
    void SetCount(int at, int count);

Q_SIGNALS:
    // What is sought is another text, or other options hold.
    void Changed();
    void Next();
    void Previous();
    void Replace();
    void ReplaceAll();
    void Closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    // What stands in the bar is made when it is first opened: a window starts without it.
    void Prepare();
    void AddFinding(QBoxLayout &row);
    void AddReplacing(QBoxLayout &row);
    void AlignLabels();
    void OrderTabs();
    QLineEdit *AddField(const char *name, const QString &label, QLayout *row);
    QToolButton *AddButton(const char *name, const QString &text, const QString &image, const QString &tip,
                           QLayout *row);
    QCheckBox *AddOption(const char *name, const QString &text, QLayout *row);

    QLineEdit *txtFind_ = nullptr;
    QLineEdit *txtReplace_ = nullptr;
    QLabel *lblCount_ = nullptr;
    QCheckBox *chkCase_ = nullptr;
    QCheckBox *chkWords_ = nullptr;
    QWidget *replacing_ = nullptr;
};

} // namespace mainwindow
