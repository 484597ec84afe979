#include "forms/Form4Content.h"

#include <algorithm>

#include "forms/SampleChecks.h"

namespace qfr {

Form4Content BuildForm4Content(const SampleListType& samples, DateTime blankTime,
                               const BlankComments& comments) {
    constexpr std::size_t kCommentLines = 2;
    Form4Content content;
    const SampleHeader& blank = samples.front().Header;
    content.Header = PrintedHeader(blank);
    content.SampleNo = blank[HeaderField::kZovSampleNo];
    content.DateAnalyzed = PrintedPart(blank[HeaderField::kDateAnalyzed], 1, 10);
    content.TimeAnalyzed = PrintedPart(blank[HeaderField::kDateAnalyzed], 12, 16);
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const SampleHeader& sample = samples[i].Header;
        const std::string& analyzed = sample[HeaderField::kDateAnalyzed];
        content.Samples.push_back({sample[HeaderField::kZovSampleNo],
                                   sample[HeaderField::kLabSampleId],
                                   sample[HeaderField::kLabFileId], PrintableDate(analyzed),
                                   TwelveHourFlag(analyzed, blankTime)});
    }
    content.Comments = comments.Lines;
    content.Comments.resize(std::min(content.Comments.size(), kCommentLines));
    return content;
}

}  // namespace qfr
