// What Form IV states: the lab blank, and the samples that were analyzed with it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Entries.h"
#include "forms/FormContent.h"
#include "platform/Messages.h"

namespace qfr {

class Page;

inline constexpr std::size_t kCommentLines = 2;  // of the form

// Header and sample number are the lab blank's.
struct Form4Content : FormContent {
    std::string DateAnalyzed;
    std::string TimeAnalyzed;
    std::vector<ListedSample> Samples;
    std::vector<std::string> Comments;  // what is typed beyond the form's two lines is left out
};

// `blankTime`: when the lab blank, the first of the samples, was analyzed.
Form4Content BuildForm4Content(const SampleListType& samples, DateTime blankTime,
                               const BlankComments& comments);

// Inches that a line of the comments is long on the form, and what a text takes of it.
inline constexpr double kCommentLineLength = 5.4;
double CommentLengthInch(Page& page, std::string_view text);

// The bytes at the front of each line that stand on one of the form's lines.
std::vector<std::size_t> CommentsOnForm(Page& page, const std::vector<std::string>& lines);

// That not all of the comments stand on the form, and what does not; absent when all do.
std::optional<Message> CommentsNotPrinted(Page& page, const std::vector<std::string>& lines);

// Asks for what the form needs: what it would print for the batch; absent after a message, or when
// the dialog was cancelled.
std::optional<Form4Content> PrepareForm4(FormHost& host);

// The driver: prints that.
void Form4MBSClick(FormHost& host);

}  // namespace qfr
