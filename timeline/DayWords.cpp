#include "timeline/DayWords.h"

#include <QRegularExpression>
#include <span>
#include <vector>

namespace timeline {

namespace {

// Whole words of a text that was made plain, as a pattern, and what stands for them.
struct Words {
    const char *pattern, *english;
};

// In this order, as each is replaced in the whole text before the next: longer ones first, and units before
// what has one behind it.
constexpr Words kGerman[] = {
    {"übermorgen", "day after tomorrow"},
    {"vorgestern", "2 day ago"},
    {"heute", "today"},
    {"morgen", "tomorrow"},
    {"gestern", "yesterday"},
    {"monatsende", "end of month"},
    {"jahresende", "end of year"},
    {"eine[mrn]?", "a"},
    {"tage?n?", "day"},
    {"wochen?", "week"},
    {"monat(?:en?|s)?", "month"},
    {"jahr(?:en?|es)?", "year"},
    {"quartals?", "quarter"},
    {"vor (a|\\d+) (\\w+)", "\\1 \\2 ago"},
    {"am|den|ab", ""},
    {"(?:de[rsm] |die |das )?(?:nächste|kommende)[nrsm]?", "next"},
    {"(?:de[rsm] |die |das )?(?:letzte|vorige|vergangene)[nrsm]?", "last"},
    {"diese[nrsm]?", "this"},
    {"(?:zum )?ende(?: der| des| vom)?", "end of"},
    {"(?:zum )?anfang(?: der| des| vom)?", "start of"},
    {"mitte(?: der| des| vom)?", "middle of"},
    {"bis(?: zum)?", "to"},
    {"vom|von", "from"},
    {"für", "for"},
};

constexpr Words kFrench[] = {
    {"après[ -]demain", "day after tomorrow"},
    {"avant[ -]hier", "2 day ago"},
    {"aujourd['’]hui", "today"},
    {"demain", "tomorrow"},
    {"hier", "yesterday"},
    {"1er", "1"},
    {"une?", "a"},
    {"jours?", "day"},
    {"semaines?", "week"},
    {"mois", "month"},
    {"ans?|années?", "year"},
    {"trimestres?", "quarter"},
    {"il y a (a|\\d+) (\\w+)", "\\1 \\2 ago"},
    {"dans", "in"},
    {"(?:le |la |l['’])?(\\w+) prochaine?", "next \\1"},
    {"(?:le |la |l['’])?(\\w+) (?:derni(?:er|ère)|passée?)", "last \\1"},
    {"ce(?:t|tte)?", "this"},
    {"(?:à la )?fin(?: du| de la| de l['’]| de| d['’])?", "end of "},
    {"(?:au )?début(?: du| de la| de l['’]| de| d['’])?", "start of "},
    {"(?:à la )?mi-?", "middle of "},
    {"jusqu['’]au|au", "to"},
    {"du", "from"},
    {"pendant|pour", "for"},
    {"le", ""},
};

constexpr Words kSpanish[] = {
    {"pasado mañana", "day after tomorrow"},
    {"anteayer|antes de ayer", "2 day ago"},
    {"hoy", "today"},
    {"mañana", "tomorrow"},
    {"ayer", "yesterday"},
    {"una?", "a"},
    {"d[íi]as?", "day"},
    {"semanas?", "week"},
    {"mes(?:es)?", "month"},
    {"años?", "year"},
    {"trimestres?", "quarter"},
    {"hace (a|\\d+) (\\w+)", "\\1 \\2 ago"},
    {"dentro de|en", "in"},
    {"(?:el |la )?(\\w+) que viene", "next \\1"},
    {"(?:el |la )?pr[óo]xim[oa]", "next"},
    {"(?:el |la )?(\\w+) pasad[oa]", "last \\1"},
    {"est[ea]", "this"},
    {"(\\d{1,2}) de (\\w+)", "\\1 \\2"},
    {"(\\w+) del? (\\d{4})", "\\1 \\2"},
    {"(?:a )?fin(?:al|ales|es)?(?: del| de la| de)?", "end of"},
    {"(?:a )?(?:principios?|inicios?)(?: del| de la| de)?", "start of"},
    {"(?:a )?mediados(?: del| de la| de)?", "middle of"},
    {"desde(?: el)?|del", "from"},
    {"hasta(?: el)?|al", "to"},
    {"durante|por", "for"},
    {"el", ""},
};

constexpr Words kItalian[] = {
    {"dopodomani", "day after tomorrow"},
    {"(?:l['’])?altro ?ieri", "2 day ago"},
    {"oggi", "today"},
    {"domani", "tomorrow"},
    {"ieri", "yesterday"},
    {"una?|un['’]", "a "},
    {"giorn[oi]", "day"},
    {"settiman[ae]", "week"},
    {"mes[ei]", "month"},
    {"ann[oi]", "year"},
    {"trimestr[ei]", "quarter"},
    {"(a|\\d+) (\\w+) fa", "\\1 \\2 ago"},
    {"tra|fra", "in"},
    {"(?:il |la )?(\\w+) prossim[oa]", "next \\1"},
    {"(?:il |la )?prossim[oa]", "next"},
    {"(?:il |la )?(\\w+) (?:scors[oa]|passat[oa])", "last \\1"},
    {"(?:il |la )?scors[oa]", "last"},
    {"quest[oa]", "this"},
    {"(?:alla )?fine(?: del| della| di)?", "end of"},
    {"(?:all['’])?inizio(?: del| della| di)?", "start of"},
    {"(?:a )?metà(?: del| della| di)?", "middle of"},
    {"dal", "from"},
    {"fino al|al", "to"},
    {"per", "for"},
    {"il", ""},
};

constexpr Words kDutch[] = {
    {"overmorgen", "day after tomorrow"},
    {"eergisteren", "2 day ago"},
    {"vandaag", "today"},
    {"morgen", "tomorrow"},
    {"gisteren", "yesterday"},
    {"een|één", "a"},
    {"dag(?:en)?", "day"},
    {"week|weken", "week"},
    {"maand(?:en)?", "month"},
    {"jaar|jaren", "year"},
    {"kwartaal|kwartalen", "quarter"},
    {"(a|\\d+) (\\w+) geleden", "\\1 \\2 ago"},
    {"over", "in"},
    {"op", ""},
    {"(?:de |het )?(?:volgende?|komende?|aanstaande)", "next"},
    {"(?:de |het )?(?:vorige?|afgelopen)", "last"},
    {"deze|dit", "this"},
    {"eind(?:e)?(?: van)?(?: de| het)?", "end of"},
    {"begin(?: van)?(?: de| het)?", "start of"},
    {"(?:midden|half)(?: van)?(?: de| het)?", "middle of"},
    {"tot(?: en met)?|t/m", "to"},
    {"vanaf|van", "from"},
    {"voor|gedurende", "for"},
};

std::span<const Words> TableOf(QLocale::Language language) {
    switch (language) {
    case QLocale::German:
        return kGerman;
    case QLocale::French:
        return kFrench;
    case QLocale::Spanish:
        return kSpanish;
    case QLocale::Italian:
        return kItalian;
    case QLocale::Dutch:
        return kDutch;
    default:
        return {};
    }
}

} // namespace

QString WithEnglishWords(const QString &plain, const QLocale &locale) {
    QString text = plain;
    for (const Words &words : TableOf(locale.language())) {
        // An apostrophe or a hyphen ends a word that it belongs to.
        const QRegularExpression pattern(
            QStringLiteral("(?<!\\w)(?:%1)(?:(?<=['’-])|(?!\\w))").arg(QString::fromUtf8(words.pattern)),
            QRegularExpression::UseUnicodePropertiesOption);
        text.replace(pattern, QString::fromUtf8(words.english));
    }
    return text.simplified();
}

} // namespace timeline
