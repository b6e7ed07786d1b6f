/// What the host's print shows of a module: which lists, in which order and under which titles. Not
/// among them are the list that runs behind the monitoring loop, the steps of a wireless template,
/// the every-frequency list of `aceEMSAutoTemplateGeneral` and the matrix.
#pragma once

#include <functional>
#include <span>

#include <ace/core/moment_table.h>
#include <ace/core/thread_context.h>

namespace ace {

/// How a title tells the number of its set, from 1.
enum class TitleNumber : std::uint8_t {
    None,
    Behind,      ///< the first text, a blank, the number
    InBrackets,  ///< the first text, a blank, the number in round brackets
    OfText,      ///< there is a text for each: the first one's number is so many higher
};

/// One list of a module in the print; a list that comes with each numbered set has one row.
struct PrintRow {
    aceModul moduleKind;
    p_PerformTimes time;
    std::int32_t firstText;       ///< numbers of the title's texts
    std::int32_t secondText = 0;  ///< behind ": "; 0 for none
    TitleNumber numbering = TitleNumber::None;
    const ListFields* otherList = nullptr;  ///< printed instead of the list of the moment
};

/// A list that the print comes to.
struct PrintedList {
    const PrintRow& row;
    MomentRow moment;     ///< with the list that is printed
    std::int32_t number;  ///< of the numbered set, from 0; 0 for a set that the module has once
};
using PrintVisit = std::function<void(const PrintedList& list)>;

/// The rows of a module in the print's order; none for the matrix and for a kind outside the
/// members, which print nothing.
std::span<const PrintRow> PrintRowsOf(std::int32_t moduleKind);
/// Hands on the lists of a module in the order of the print, those without actions too: lists of
/// numbered sets set by set, as many as the count beside the sets says when the first one's turn
/// comes. A set that its array lacks is error 9 where somebody looks at it.
void ForEachPrinted(const ModuleLists& lists, std::int32_t moduleKind, const PrintVisit& visit);
/// The title of a list in the host's language. Errors of its language data come out; no messages
/// run.
String TitleOf(ThreadContext& context, const PrintedList& list);

}  // namespace ace
