#include "forms/Form4Content.h"

#include <algorithm>

#include "platform/Text.h"

namespace qfr {

Form4Content BuildForm4Content(const SampleListType& samples, DateTime blankTime,
                               const BlankComments& comments) {
    Form4Content content;
    const SampleHeader& blank = samples.front().Header;
    content.Header = PrintedHeader(blank);
    content.SampleNo = blank[HeaderField::kZovSampleNo];
    content.DateAnalyzed = PrintedPart(blank[HeaderField::kDateAnalyzed], 1, 10);
    content.TimeAnalyzed = PrintedPart(blank[HeaderField::kDateAnalyzed], 12, 16);
    content.Samples = ListSamples(samples, 1, blankTime);
    content.Comments = comments.Lines;
    content.Comments.resize(std::min(content.Comments.size(), kCommentLines));
    for (std::string& line : content.Comments) {
        CutText(line);
    }
    return content;
}

}  // namespace qfr
