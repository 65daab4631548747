#include "mainwindow/look/RecentColours.h"

#include "settings/GetSet.h"

#include <algorithm>
#include <QStringList>

namespace mainwindow {

namespace {
const QString kSetting = QStringLiteral("RecentColours");
} // namespace

std::vector<support::Colour> RecentColours() {
    std::vector<support::Colour> colours;
    for (const QString &text : settings::GetSet(kSetting).split(u' ', Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const int number = text.toInt(&isNumber);
        if (isNumber && number >= 0 && number <= support::kWhite && colours.size() < kRecentColours)
            colours.push_back(number);
    }
    return colours;
}

void NoteRecentColour(support::Colour colour) {
    std::vector<support::Colour> colours = RecentColours();
    std::erase(colours, colour);
    colours.insert(colours.begin(), colour);
    if (colours.size() > kRecentColours) colours.resize(kRecentColours);
    QStringList texts;
    for (const support::Colour each : colours) texts << QString::number(each);
    settings::SaveSet(kSetting, texts.join(u' '));
}

} // namespace mainwindow
