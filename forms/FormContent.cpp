#include "forms/FormContent.h"

#include <optional>

#include "platform/Text.h"

namespace qfr {

SampleHeader PrintedHeader(const SampleHeader& header) {
    SampleHeader printed;
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        printed[HeaderFieldAt(number)] = PrintableDate(header[HeaderFieldAt(number)]);
    }
    std::string& received = printed[HeaderField::kDateReceived];
    received = WithoutUnfilledTime(received);
    return printed;
}

std::string PrintedPart(std::string_view dateTime, std::size_t first, std::size_t last) {
    return PrintableDate(CharacterRange(dateTime, first, last));
}

std::vector<ListedSample> ListSamples(const SampleListType& samples, std::size_t first,
                                      DateTime start) {
    std::vector<ListedSample> listed;
    for (std::size_t i = first; i < samples.size(); ++i) {
        const SampleHeader& sample = samples[i].Header;
        const std::string& analyzed = sample[HeaderField::kDateAnalyzed];
        listed.push_back({sample[HeaderField::kZovSampleNo], sample[HeaderField::kLabSampleId],
                          sample[HeaderField::kLabFileId], PrintableDate(analyzed),
                          TwelveHourFlag(analyzed, start)});
    }
    return listed;
}

std::string TwelveHourFlag(std::string_view dateAnalyzed, DateTime start) {
    const std::optional<DateTime> analyzed = ParseDateTime(dateAnalyzed);
    if (!analyzed) {
        return "";
    }
    const std::int64_t after = analyzed->seconds - start.seconds;
    return after < 0 || after > kTwelveHours ? "*" : "";
}

Message ReportNotFound(std::string_view fileName) {
    return {std::string(fileName) +
                "\ncould not be found.  Use Data Files|Load Files menu option\nto relocate file",
            kFileNotFoundTitle};
}

}  // namespace qfr
