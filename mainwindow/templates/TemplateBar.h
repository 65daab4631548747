// The bar of templates at the left of a window. It reads no file before the bar is seen for the first time.
#pragma once

#include "mainwindow/templates/ListBar.h"

#include <memory>
#include <QStringList>
#include <QTimer>

class QMenu;
class QSplitter;

namespace mainwindow {

class BarFilling;
class BarPane;
class frmMain;
class TemplateDrops;
class TemplatePreviews;
class TemplateTip;

class TemplateBar : public QObject {
    Q_OBJECT
public:
    // In the left pane of the splitter.
    TemplateBar(frmMain &window, QSplitter &splitter);
    ~TemplateBar() override;

    ListBar &RB() const { return *rb_; }
    BarPane &Pane() const { return *pane_; }
    const BarFilling &Filling() const { return *filling_; }
    TemplateTip &Tip() const { return *tip_; }

    // Builds the bars anew: from the folders, without their items, or as a copy of the oldest window's bars
    // with the items that these have.
    void LoadRadBar();
    // Begins to fill the bar with those files of the folder; a few at a time are read between events.
    void LoadBarDetails(int Bar, const QString &Folder, const QStringList &Files);
    void RB_BarClick(int Bar);
    void tmrBar_Timer();
    void RB_ItemClick(int Item, int Bar);

    // Shows in all windows that the file has another path now, or is gone: an empty one.
    static void FollowFile(const QString &former, const QString &now);
    // Reads the folders anew, for all windows. What was open is open again.
    static void Refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Connect();
    void ReadBars();
    void CopyBars(const TemplateBar &other);
    void CopyItems(const TemplateBar &other, int bar);
    void ClickLater(int bar, int item);
    void Drag(int bar, int item);
    void ShowTip(int bar, int item, const QRect &place);
    void UpdateTip(const QString &file);
    void ShowMenu(int bar, int item, const QPoint &at);
    void AddItemEntries(QMenu &menu, int bar, int item);
    void AddListEntries(QMenu &menu, int bar);
    void AddToSlice(const QString &file);
    void Rename(int bar, int item);
    void Delete(int bar, int item);
    // Whether the item is a template that comes into the map, not a file for another program.
    bool IsTemplate(const ListBarItem &item) const;

    frmMain &window_;
    ListBar *rb_;
    std::unique_ptr<BarPane> pane_;
    std::unique_ptr<BarFilling> filling_;
    std::unique_ptr<TemplatePreviews> previews_;
    std::unique_ptr<TemplateDrops> drops_;
    TemplateTip *tip_;
    QTimer tmrBar_;
    QString tag_;     // of tmrBar: the folder of the bar that it fills
    QString clicked_; // the item whose click is still to be done
    ListBarItem tipped_;
    QRect tipPlace_;
    bool seen_ = false, waits_ = false; // tmrBar waits until the bar is seen
};

} // namespace mainwindow
