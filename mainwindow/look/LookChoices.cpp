#include "mainwindow/look/LookChoices.h"

#include "diagram/model/AutomaticStyle.h"
#include "document/cLevels.h"
#include "mainwindow/icons/Icons.h"
#include "mainwindow/look/LookPictures.h"
#include "mainwindow/look/RecentColours.h"
#include "settings/Settings.h"
#include "widgets/ColourPalette.h"
#include "widgets/PropertyLists.h"

#include <QCoreApplication>

namespace mainwindow {

namespace {

using widgets::Choice;
using widgets::ChoiceSection;

constexpr int kColoursInRow = 6;
constexpr int kArrowsInRow = 6;
constexpr int kMostRows = 7;     // of a list with names: it fits a small screen at 200 per cent
constexpr QSize kSwatch(24, 18); // pixels

QString Tr(const char *text) { return QCoreApplication::translate("mainwindow::Look", text); }

// Makes choices of one property.
class Maker {
public:
    Maker(const LookRow &row, const LookState &state, const LookActions &actions)
        : row_(row), state_(state), actions_(actions) {}

    Choice Of(double value, const QString &name) const {
        return {name, PictureOfLook(row_, value), state_.value == value,
                [choose = actions_.choose, value] { choose(value); }};
    }

    static ChoiceSection Swatches(const QString &title) { return {title, {}, kColoursInRow, false, kSwatch}; }

    ChoiceSection Palette(const QString &title, std::span<const widgets::PaletteColour> colours) const {
        ChoiceSection section = Swatches(title);
        for (const widgets::PaletteColour &colour : colours)
            section.choices.push_back(Of(colour.colour, NameOfLook(row_, colour.colour)));
        return section;
    }

    ChoiceSection Levels(const document::cLevels &levels) const {
        ChoiceSection section = Swatches(Tr("Levels"));
        for (int i = 1; i <= levels.count(); ++i)
            section.choices.push_back(Of(levels.Item(i).Color, levels.Item(i).LevelName));
        return section;
    }

    ChoiceSection Recent() const {
        ChoiceSection section = Swatches(Tr("Recent"));
        for (const support::Colour colour : RecentColours())
            section.choices.push_back(Of(colour, NameOfLook(row_, colour)));
        return section;
    }

    ChoiceSection Others() const {
        ChoiceSection section = Swatches({});
        section.columns = 2;
        section.named = true;
        if (row_.what == LookOf::Fill) section.choices.push_back(Of(kNoFill, Tr("No fill")));
        section.choices.push_back(
            {Tr("Other..."), Icon(QStringLiteral("colour")), false, actions_.other, false});
        return section;
    }

    ChoiceSection List() const {
        ChoiceSection section{{}, {}, 1, true, widgets::kPictureSize};
        for (const widgets::ListEntry &entry : widgets::EntriesOf(*ListOfLook(row_.what)))
            section.choices.push_back(Of(entry.value, NameOfLook(row_, entry.value)));
        section.columns = (int(section.choices.size()) + kMostRows - 1) / kMostRows;
        const bool isArrow = row_.what == LookOf::ArrowStart || row_.what == LookOf::ArrowEnd;
        if (isArrow) section.named = false, section.columns = kArrowsInRow;
        return section;
    }

private:
    const LookRow &row_;
    const LookState &state_;
    const LookActions &actions_;
};

} // namespace

std::vector<ChoiceSection> LookChoices(const LookRow &row, const LookState &state,
                                       const document::cLevels &levels, const LookActions &actions) {
    const Maker maker(row, state, actions);
    if (!IsColour(row.what)) return {maker.List()};
    return {maker.Levels(levels), maker.Palette(Tr("Colours"), widgets::PaletteColours()),
            maker.Palette({}, widgets::PlainColours()), maker.Recent(), maker.Others()};
}

ChoiceSection NewLinkChoices(const LookState &routing, const NewLinkActions &actions) {
    const LookRow &row = LookRowOf(LookOf::Routing);
    ChoiceSection section{settings::ReplaceTerms(Tr("New @LINKs")), {}, 1, true, widgets::kPictureSize};
    const auto offer = [&](int style, const QString &name) {
        section.choices.push_back({name, PictureOfLook(row, style), actions.now == style,
                                   [set = actions.set, style] { set(style); }, false});
    };
    if (routing.value) offer(int(*routing.value), Tr("As selected"));
    offer(diagram::kAutomaticStyle, Tr("Automatic, each the best"));
    return section;
}

} // namespace mainwindow
