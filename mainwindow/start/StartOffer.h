// When a window shows the start page, and what comes of it.
#pragma once

#include <QTimer>
#include <vector>

class QRect;
class QWidget;

namespace mainwindow {

class frmMain;
struct RecentMap;
class StartPage;
class ThumbnailMaker;

class StartOffer {
public:
    // The page is a child of `place`, over the surface.
    StartOffer(frmMain &window, QWidget *place);
    ~StartOffer();
    StartOffer(const StartOffer &) = delete;
    StartOffer &operator=(const StartOffer &) = delete;

    // Shows the page as soon as nothing else goes on, if the user wants it and the window shows nothing and
    // nothing was done in it.
    void Offer();
    // Null while there is none.
    StartPage *Page() const { return page_; }
    void Place(const QRect &rectangle);
    // The page stays above a surface that has come to the top.
    void Raise();
    // Takes the page away once the window is used.
    void Update();
    // Takes it away for good.
    void Leave();
    // In step with the setting.
    void ShowSetting(bool shows);

private:
    void TryToShow();
    void Show();
    void Connect();
    void OrderMapPictures(const std::vector<RecentMap> &maps);
    void ShowTemplates();
    void Open(const QString &path);
    void Remove(const QString &path);
    void Load(const QString &file);

    frmMain &window_;
    QWidget *place_;
    StartPage *page_ = nullptr;
    ThumbnailMaker *pictures_ = nullptr; // goes with the page
    QTimer soon_;
};

// Whether the window shows no map, and nothing that a user would see; what was undone doesn't count.
bool ShowsNothing(frmMain &window);

} // namespace mainwindow
