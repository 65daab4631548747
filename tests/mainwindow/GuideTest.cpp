// What the README and the guide tell step by step can be done as they tell it.
#include "tests/mainwindow/GuideReader.h"
#include "tests/Paths.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

namespace mainwindow::testing {

namespace {

QStringList LinesOf(const QString &name) {
    QFile file(tests::Source(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return QString::fromUtf8(file.readAll()).split(u'\n');
}

// The numbered steps of a document, each joined with its indented lines.
QStringList NumberedSteps(const QString &name) {
    static const QRegularExpression number(QStringLiteral("^\\d+\\. "));
    QStringList steps;
    bool goesOn = false;
    for (const QString &line : LinesOf(name)) {
        const QRegularExpressionMatch match = number.match(line);
        if (match.hasMatch())
            steps << line.mid(match.capturedLength()).simplified();
        else if (goesOn && line.startsWith(u' '))
            steps.last() += u' ' + line.simplified();
        goesOn = match.hasMatch() || (goesOn && line.startsWith(u' '));
    }
    return steps;
}

QStringList Cells(const QString &row) {
    QStringList cells;
    for (const QString &cell : row.split(u'|')) cells << cell.simplified();
    return cells.mid(1, cells.size() - 2);
}

// The rows of every table of a document whose last column is called "do".
QStringList TableSteps(const QString &name) {
    QStringList steps;
    bool tells = false;
    for (const QString &line : LinesOf(name)) {
        if (!line.startsWith(u'|')) {
            tells = false;
            continue;
        }
        const QStringList cells = Cells(line);
        if (cells.last() == QLatin1String("do"))
            tells = true;
        else if (tells && !cells.first().startsWith(QLatin1String("---")))
            steps << cells.join(QLatin1String(" | "));
    }
    return steps;
}

QStringList Told() {
    return NumberedSteps(QStringLiteral("README.md")) + TableSteps(QStringLiteral("docs/guide.md"));
}

std::vector<ToldStep> Done() {
    std::vector<ToldStep> all;
    for (const auto steps : {ReadmeSteps(), DrawingSteps(), LookSteps(), LayoutSteps(), KeyboardSteps(),
                             CommandSteps(), TemplateSteps(), PlanSteps()})
        all.insert(all.end(), steps.begin(), steps.end());
    return all;
}

std::string NameOf(const ::testing::TestParamInfo<ToldStep> &step) {
    std::string name = std::to_string(step.index) + "_";
    for (const char *letter = step.param.text; *letter && name.size() < 40; ++letter)
        if (std::isalnum(static_cast<unsigned char>(*letter))) name += *letter;
    return name;
}

} // namespace

TEST(Guide, EachStepThatIsToldIsDoneByATest) {
    QStringList done;
    for (const ToldStep &step : Done()) done << QString::fromUtf8(step.text);
    const QStringList told = Told();
    for (const QString &step : told) EXPECT_TRUE(done.contains(step)) << "nobody does: " << qPrintable(step);
    for (const QString &step : done) EXPECT_TRUE(told.contains(step)) << "nobody tells: " << qPrintable(step);
}

class GuideStep : public Reader, public ::testing::WithParamInterface<ToldStep> {};

TEST_P(GuideStep, CanBeDoneAsItIsTold) {
    SCOPED_TRACE(GetParam().text);
    GetParam().doIt(*this);
}

INSTANTIATE_TEST_SUITE_P(All, GuideStep, ::testing::ValuesIn(Done()), NameOf);

} // namespace mainwindow::testing
