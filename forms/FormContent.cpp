#include "forms/FormContent.h"

#include "platform/DateTime.h"
#include "platform/Text.h"

namespace qfr {

SampleHeader PrintedHeader(const SampleHeader& header) {
    SampleHeader printed;
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        printed[HeaderFieldAt(number)] = PrintableDate(header[HeaderFieldAt(number)]);
    }
    return printed;
}

std::string PrintedPart(std::string_view dateTime, std::size_t first, std::size_t last) {
    return PrintableDate(CharacterRange(dateTime, first, last));
}

}  // namespace qfr
