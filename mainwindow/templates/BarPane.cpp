#include "mainwindow/templates/BarPane.h"

#include "settings/GetSet.h"
#include "support/Error.h"
#include "support/Val.h"

#include <QSplitter>

namespace mainwindow {

namespace {

const QString kWidth = QStringLiteral("BarWidth");
const QString kHidden = QStringLiteral("BarHidden");
constexpr int kUsualCharacters = 32;
constexpr int kLeastCharacters = 12;
constexpr int kMostWidth = 4000; // pixels
constexpr int kSettles = 400;    // milliseconds

int StoredWidth(const QWidget &bar) {
    const int least = bar.fontMetrics().averageCharWidth() * kLeastCharacters;
    const int usual = bar.fontMetrics().averageCharWidth() * kUsualCharacters;
    const double stored = support::Val(settings::GetSet(kWidth));
    return stored > 0 ? int(qBound(double(least), stored, double(kMostWidth))) : usual;
}

} // namespace

BarPane::BarPane(QSplitter &splitter, QWidget &bar) : splitter_(splitter), bar_(bar) {
    bar.setMinimumWidth(bar.fontMetrics().averageCharWidth() * kLeastCharacters);
    splitter.insertWidget(0, &bar);
    splitter.setStretchFactor(0, 0);
    splitter.setStretchFactor(1, 1);
    splitter.setSizes({StoredWidth(bar), kMostWidth});
    bar.setVisible(support::Val(settings::GetSet(kHidden)) == 0);
    store_.setSingleShot(true);
    store_.setInterval(kSettles);
    connect(&splitter, &QSplitter::splitterMoved, &store_, qOverload<>(&QTimer::start));
    connect(&store_, &QTimer::timeout, this,
            [this] { support::Report("frmMain", "SSSplitter1_Resize", [this] { StoreWidth(); }); });
}

BarPane::~BarPane() {
    if (store_.isActive()) support::Report("frmMain", "SSSplitter1_Resize", [this] { StoreWidth(); });
}

bool BarPane::IsShown() const { return !bar_.isHidden(); }

void BarPane::SetShown(bool shown) {
    if (shown == IsShown()) return;
    bar_.setVisible(shown);
    settings::SaveSet(kHidden, QString::number(shown ? 0 : 1));
}

void BarPane::StoreWidth() {
    if (const int width = splitter_.sizes().value(0)) settings::SaveSet(kWidth, QString::number(width));
}

} // namespace mainwindow
