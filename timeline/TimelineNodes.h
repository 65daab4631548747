// The nodes of a surface that make its timeline: months, hidden days, and the hidden node that gives the
// months their look. Dates are compared as texts, letter for letter; where none is the same, by what they
// mean.
#pragma once

#include "document/DefaultNodes.h"

#include <QString>
#include <vector>

namespace diagram {
class Node;
class Sights;
class Surface;
} // namespace diagram

namespace timeline {

class DateIndex;

// The text of the hidden node that gives the months their look.
inline const QString kTemplateNodeText = QStringLiteral("TIMELINE TEMPLATE NODE");

// The first hidden node with that text, made first where it is missing and Create is true; else null. A new
// one has no size: that says that nobody has set the timeline up yet.
diagram::Node *LocateTimeLineTemplateNode(diagram::Surface &Flow, bool Create);
// The same of a surface that is only read; null where there is none.
const diagram::Node *TemplateOf(const diagram::Surface &flow);
// Whether the surface has one, with a width.
bool IsConfigured(diagram::Surface &Flow);
// Makes it unless there is one.
void CreateTimelineTemplateNode(diagram::Surface &Flow);

// How often `Find` stands in `Text`, without overlap; letters count as they are written. 0 for an empty Find.
int CountOccurencies(const QString &Text, const QString &Find);

// Whether the node belongs to a timeline at all: marked, and not to be selected.
bool IsTimelineMaterial(const diagram::Node &node);
// Whether a text has the form of a month: just one "-" or just one blank.
bool HasMonthForm(const QString &text);

// The month nodes, hidden ones too, in the order of adding: timeline material whose text has the form of a
// month.
std::vector<diagram::Node *> LocateTimelineNodes(const diagram::Surface &Flow);

// The first timeline node whose date is `TheDate`, else the first that means the same by its date. Where
// there is none and Create is true it is made: without LinkFrom as a month; with it as a hidden day, whose
// month is made too where it is missing. LinkFrom is then linked to it by a marked link that cannot be
// selected. Null when there is none. With an index of the surface nothing is walked over; it is told of new
// nodes.
diagram::Node *LocateTimelineNode(diagram::Surface &Flow, const QString &TheDate, bool Create,
                                  diagram::Node *LinkFrom = nullptr, DateIndex *index = nullptr);

// Gives every month in sight the look and the size of the template node, which is made where it is missing.
// A template node without a width gives no size.
void CopyTemplateLook(diagram::Surface &Flow);

// Whether the node stands for a day: hidden, marked, not to be selected.
bool NodeIsTimeline(const diagram::Node &Node);

// The days of a month given as text; error 13 "Type mismatch" for what is no date.
int DaysPerMonth(const QString &Month);

// Shows or hides the months of the surface, with the links that end on their days; links of a hidden node
// stay as they are. Months take the width of the template node, unless they are folded. Those that the user
// hid stay hidden, and as they are, unless that is every month. Nothing is laid out.
void ShowHideTimelineNodes(diagram::Surface &Flow, bool Shown);

// What ShowHideTimelineNodes would show and hide among what `sights` says, to be painted: the surface stays
// as it is.
void PreviewTimelineNodes(diagram::Surface &Flow, bool Shown, diagram::Sights &sights);
// Hides the one month, until ShowHiddenMonths. Nothing is laid out.
void HideMonth(diagram::Node &month);
// Whether the strip as a whole is hidden: there are months, none is seen, and some not by the user's hand
// month by month.
bool IsTimelineHidden(const diagram::Surface &Flow);

// Shows each hidden node whose text has the form of a month, the default node excepted, whatever it is.
void ShowHiddenMonths(diagram::Surface &Flow);

} // namespace timeline
