// The page that an empty window shows over its surface: how to begin, recent maps, templates.
#pragma once

#include "mainwindow/start/RecentMaps.h"

#include <functional>
#include <QScrollArea>

class QBoxLayout;
class QCheckBox;
class QLabel;

namespace mainwindow {

class StartCard;
struct StartTemplate;
class TileLayout;

// Only emits what the user asks for. The object names of the cards are "startNew", "startOpen", "startMap"
// and "startTemplate".
class StartPage : public QScrollArea {
    Q_OBJECT
public:
    // `below` gives the widget that takes over a press beside the cards, or a drag that begins on one; the
    // page goes then.
    StartPage(std::function<QWidget *()> below, QWidget *parent);

    void SetRecent(const std::vector<RecentMap> &maps);
    // Shows as many as fit into a row, or two in a narrow window.
    void SetTemplates(const std::vector<StartTemplate> &templates);
    // Gives the cards of that map or template their picture.
    void SetPicture(const QString &file, const QImage &picture);
    void RemoveMap(const QString &path);
    void SetShowsAtStart(bool shows);
    void FocusFirst();
    // Whether a drag is being handed to the surface. The page is out of sight then, but must not be deleted
    // or hidden before it emits Dismissed.
    bool HandsOver() const { return handsOver_; }

    // The cards that are shown, in the order of Tab.
    std::vector<StartCard *> Cards() const;
    QCheckBox &ShowsAtStart() const { return *showsAtStart_; }

    // Pixels of the pictures of maps and of templates.
    static constexpr QSize kMapPicture{192, 120}, kTemplatePicture{144, 90};

Q_SIGNALS:
    void NewAsked();
    void OpenAsked();
    void MapAsked(const QString &path);
    void RemoveAsked(const QString &path);
    void TemplateAsked(const QString &file);
    void ShowsAtStartAsked(bool shows);
    // The user goes on without the page.
    void Dismissed();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Build();
    QLabel *AddHeading(QBoxLayout &layout, const QString &text, double size);
    StartCard *AddAction(QBoxLayout &layout, const QString &name, const QString &title, const QString &note,
                         const QString &icon);
    StartCard *AddMap(const RecentMap &map);
    void AddTile(StartCard &card, TileLayout &layout, const QString &name, const QString &file);
    void FitWidth();
    void FocusBeside(const StartCard &card, int key);
    void HandOver(QWidget &grabber, const QPoint &at, Qt::MouseButton button);
    void PassOn(const QMouseEvent &event);
    void ShowWhetherAnyMap();
    void OrderTabs();

    std::function<QWidget *()> below_;
    QWidget *content_;
    QBoxLayout *columns_ = nullptr;
    TileLayout *maps_ = nullptr, *templates_ = nullptr;
    QLabel *noMaps_ = nullptr, *templatesHeading_ = nullptr;
    QCheckBox *showsAtStart_ = nullptr;
    StartCard *new_ = nullptr, *open_ = nullptr;
    std::vector<StartCard *> mapCards_, templateCards_;
    QWidget *handsOver_ = nullptr; // receives the mouse events of the drag that are passed on
};

} // namespace mainwindow
