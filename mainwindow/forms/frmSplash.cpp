#include "mainwindow/forms/frmSplash.h"

#include "mainwindow/forms/Version.h"
#include "mainwindow/icons/Icons.h"
#include "support/Files.h"

#include <QApplication>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace mainwindow {

namespace {

constexpr QSize kOwnSize(480, 280);
constexpr int kMargin = 32;
const QColor kDeep(0x17, 0x3b, 0x84);
const QColor kBright(0x2f, 0x6f, 0xde);

QPixmap Delivered(const QString &name) {
    const QString path = support::AddBackslash(support::ProgramPath()) + name;
    return support::FileExists(path) ? QPixmap(path) : QPixmap();
}

// A few boxes and links, faint, to the right.
void PaintMotif(QPainter &painter) {
    painter.setPen(QPen(QColor(255, 255, 255, 70), 2));
    painter.setBrush(QColor(255, 255, 255, 28));
    QPainterPath links;
    links.moveTo(352, 62);
    links.cubicTo(352, 110, 420, 90, 420, 132);
    links.moveTo(352, 62);
    links.cubicTo(352, 110, 306, 100, 306, 140);
    links.moveTo(420, 168);
    links.cubicTo(420, 210, 380, 196, 380, 224);
    painter.strokePath(links, painter.pen());
    painter.drawRoundedRect(QRectF(312, 26, 80, 36), 8, 8);
    painter.drawRoundedRect(QRectF(384, 132, 72, 36), 18, 18);
    painter.drawEllipse(QRectF(274, 140, 64, 40));
    painter.drawPolygon(QPolygonF({{380, 222}, {416, 244}, {380, 266}, {344, 244}}));
}

} // namespace

frmSplash::frmSplash(const QString &title, QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint),
      title_(title),
      picture_(Delivered(QStringLiteral("Splash.jpg"))),
      twomen_(Delivered(QStringLiteral("images/twomen.jpg"))),
      logo_(Delivered(QStringLiteral("images/LOGO.jpg"))),
      lblDoing_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmSplash"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setFixedSize(sizeHint());
    lblDoing_->setObjectName(QStringLiteral("lblDoing"));
    QPalette white = lblDoing_->palette();
    white.setColor(QPalette::WindowText, QColor(255, 255, 255, 200));
    lblDoing_->setPalette(white);
    lblDoing_->setGeometry(kMargin, height() - 44, width() - 2 * kMargin, 24);
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

QSize frmSplash::sizeHint() const { return picture_.isNull() ? kOwnSize : picture_.size(); }

void frmSplash::SetDoing(const QString &text) {
    lblDoing_->setText(text);
    if (isVisible()) repaint();
}

QString frmSplash::Doing() const { return lblDoing_->text(); }

frmSplash *frmSplash::Current() {
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *splash = qobject_cast<frmSplash *>(widget)) return splash;
    return nullptr;
}

void frmSplash::ShowDoing(const QString &text) {
    frmSplash *splash = Current();
    if (!splash) return;
    splash->SetDoing(text);
    if (text.isEmpty() && !splash->isVisible()) Unload();
}

void frmSplash::Unload() { delete Current(); }

void frmSplash::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!twomen_.isNull()) painter.drawPixmap(0, 0, twomen_);
    if (!logo_.isNull()) painter.drawPixmap(width() - logo_.width(), 0, logo_);
    if (!picture_.isNull())
        painter.drawPixmap(0, 0, picture_);
    else if (twomen_.isNull() && logo_.isNull())
        PaintOwnPicture(painter);
    painter.setPen(QColor(255, 255, 255, 200));
    painter.drawText(rect().adjusted(kMargin, 0, -kMargin, -56), Qt::AlignLeft | Qt::AlignBottom,
                     VersionText());
}

void frmSplash::PaintOwnPicture(QPainter &painter) const {
    QLinearGradient ground(rect().topLeft(), rect().bottomRight());
    ground.setColorAt(0, kBright);
    ground.setColorAt(1, kDeep);
    painter.fillRect(rect(), ground);
    PaintMotif(painter);
    mainwindow::ProgramIcon().paint(&painter, QRect(kMargin, 64, 72, 72));
    QFont large = font();
    large.setPixelSize(44);
    large.setWeight(QFont::DemiBold);
    painter.setFont(large);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(kMargin, 140, width() - 2 * kMargin, 60), Qt::AlignLeft | Qt::AlignVCenter,
                     title_);
    painter.setFont(font());
}

} // namespace mainwindow
