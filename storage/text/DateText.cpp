#include "storage/text/DateText.h"

#include <cmath>
#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <vector>

namespace storage {

namespace {

// What a text holds once its time is taken off: numbers and at most one month name, in the order of the text.
struct DateParts {
    std::vector<int> numbers;
    int firstDigits = 0; // digits of the first number: more than two are a year
    int month = 0;       // from a name; 0 when there was none
};

constexpr int kMonths = 12;

bool NamesMonth(const QLocale &locale, const QString &word, int month) {
    for (const auto format : {QLocale::LongFormat, QLocale::ShortFormat}) {
        QString name = locale.monthName(month, format);
        QString standalone = locale.standaloneMonthName(month, format);
        if (name.remove(QLatin1Char('.')).compare(word, Qt::CaseInsensitive) == 0 ||
            standalone.remove(QLatin1Char('.')).compare(word, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

int MonthOf(const QString &word) {
    for (const QLocale &locale : {QLocale(), QLocale::c()}) {
        for (int month = 1; month <= kMonths; ++month) {
            if (NamesMonth(locale, word, month)) return month;
        }
    }
    return 0;
}

bool IsWeekday(const QString &word) {
    for (const QLocale &locale : {QLocale(), QLocale::c()}) {
        for (int day = 1; day <= 7; ++day) {
            if (locale.dayName(day).compare(word, Qt::CaseInsensitive) == 0 ||
                locale.dayName(day, QLocale::ShortFormat).compare(word, Qt::CaseInsensitive) == 0)
                return true;
        }
    }
    return false;
}

// Takes a time such as 9:15, 09:15:02 or 3 PM off `text`; an invalid time when the text has a wrong one.
QTime TakeTime(QString &text, bool &found) {
    static const QRegularExpression form(
        QStringLiteral("(?:^|[\\sT])(\\d{1,2})(?::(\\d{2})(?::(\\d{2})(?:\\.\\d+)?)?\\s*([AaPp][Mm])?|\\s*(["
                       "AaPp][Mm]))Z?\\s*$"));
    const auto match = form.match(text);
    found = match.hasMatch();
    if (!found) return QTime(0, 0);
    text.truncate(match.capturedStart());
    int hour = match.captured(1).toInt();
    const QString half = (match.captured(4) + match.captured(5)).toLower();
    if (!half.isEmpty()) {
        if (hour < 1 || hour > 12) return QTime();
        hour = hour % 12 + (half == QLatin1String("pm") ? 12 : 0);
    }
    return QTime(hour, match.captured(2).toInt(), match.captured(3).toInt());
}

// Takes the text apart; weekdays are passed over. False when it has anything that no date has.
bool Split(const QString &text, DateParts &parts) {
    static const QRegularExpression word(
        QStringLiteral("(\\d+)(?:st|nd|rd|th)?(?!\\p{L})|(\\p{L}+)\\.?|([\\s,./-]+)"),
        QRegularExpression::UseUnicodePropertiesOption);
    qsizetype at = 0;
    while (at < text.size()) {
        const auto match = word.match(text, at, QRegularExpression::NormalMatch,
                                      QRegularExpression::AnchorAtOffsetMatchOption);
        if (!match.hasMatch()) return false;
        at = match.capturedEnd();
        if (!match.captured(1).isEmpty()) {
            if (parts.numbers.empty()) parts.firstDigits = static_cast<int>(match.captured(1).size());
            if (match.captured(1).size() > 4) return false;
            parts.numbers.push_back(match.captured(1).toInt());
        } else if (!match.captured(2).isEmpty() && !IsWeekday(match.captured(2))) {
            if (parts.month != 0) return false;
            parts.month = MonthOf(match.captured(2));
            if (parts.month == 0) return false;
        }
    }
    return true;
}

// Two digits mean the years 1930 to 2029.
int FullYear(int year) { return year >= 100 ? year : year < 30 ? 2000 + year : 1900 + year; }

QDate FromName(const DateParts &parts) {
    const auto &n = parts.numbers;
    if (n.size() == 1) // "January 2004", and "4 January" of this year
        return n[0] > 31 ? QDate(FullYear(n[0]), parts.month, 1)
                         : QDate(QDate::currentDate().year(), parts.month, n[0]);
    if (n.size() != 2) return {};
    return parts.firstDigits > 2 || n[0] > 31 ? QDate(FullYear(n[0]), parts.month, n[1])
                                              : QDate(FullYear(n[1]), parts.month, n[0]);
}

bool DayComesFirst() {
    const QString format = QLocale().dateFormat(QLocale::ShortFormat);
    const auto day = format.indexOf(QLatin1Char('d'));
    return day >= 0 && day < format.indexOf(QLatin1Char('M'));
}

QDate FromNumbers(const DateParts &parts) {
    const auto &n = parts.numbers;
    if (n.size() == 2) { // a month and a year, or a day and a month of this year
        if (n[1] > 31) return QDate(n[1], n[0], 1);
        const bool dayFirst = DayComesFirst();
        return QDate(QDate::currentDate().year(), dayFirst ? n[1] : n[0], dayFirst ? n[0] : n[1]);
    }
    if (n.size() != 3) return {};
    if (parts.firstDigits > 2 || n[0] > 31) return QDate(FullYear(n[0]), n[1], n[2]);
    const int year = FullYear(n[2]);
    const QDate date = DayComesFirst() ? QDate(year, n[1], n[0]) : QDate(year, n[0], n[1]);
    return date.isValid() ? date : DayComesFirst() ? QDate(year, n[0], n[1]) : QDate(year, n[1], n[0]);
}

QDateTime FromSerial(double days) {
    constexpr double kFirst = -657434; // 1 January 100
    constexpr double kBehindLast = 2958466;
    constexpr double kSecondsPerDay = 86400;
    if (!(days >= kFirst && days < kBehindLast)) return {};
    const double whole = std::trunc(days);
    const double fraction = std::abs(days - whole); // the time counts forward on both sides of 0
    return QDateTime(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC)
        .addDays(qint64(whole))
        .addSecs(qRound64(fraction * kSecondsPerDay));
}

} // namespace

QString DateTextOfSerial(double days) {
    const QDateTime moment = FromSerial(days);
    return moment.isValid() ? moment.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) : QString();
}

QString ReadDate(const QString &text) {
    QString rest = text.trimmed();
    bool isNumber = false;
    const double serial = rest.toDouble(&isNumber);
    if (isNumber) return DateTextOfSerial(serial);
    bool hasTime = false;
    const QTime time = TakeTime(rest, hasTime);
    DateParts parts;
    if (!time.isValid() || !Split(rest, parts)) return {};
    const bool timeAlone = hasTime && parts.numbers.empty() && parts.month == 0;
    const QDate date = timeAlone         ? QDate(1899, 12, 30)
                       : parts.month > 0 ? FromName(parts)
                                         : FromNumbers(parts);
    if (!date.isValid()) return {};
    return QDateTime(date, time, Qt::UTC).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

} // namespace storage
